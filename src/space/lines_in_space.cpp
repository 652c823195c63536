#include "lines_in_space.h"

#include <cmath>

#include "../frame/lines.h"
#include "../frame/points.h"
#include "../frame/tolerance.h"
#include "axis_systems.h"

namespace kez {

DirectionClass classify_direction(Vec3 direction) {
  const bool x = non_zero(direction.x), x0 = equal(direction.x, 0);
  const bool y = non_zero(direction.y), y0 = equal(direction.y, 0);
  const bool z = non_zero(direction.z), z0 = equal(direction.z, 0);
  if (x0 && y0 && z0) return DirectionClass::null;
  if (x && y0 && z0) return DirectionClass::along_x;
  if (x0 && y && z0) return DirectionClass::along_y;
  if (x0 && y0 && z) return DirectionClass::along_z;
  if (x && y && z0) return DirectionClass::in_xy;
  if (x0 && y && z) return DirectionClass::in_yz;
  if (x && y0 && z) return DirectionClass::in_xz;
  return DirectionClass::general;  // also with a component that is not a number
}

PointOnLine relate_point_line(Vec3 p0, Vec3 direction, Vec3 p, float tol) {
  const float u = direction.x, v = direction.y, w = direction.z;
  // The class is that of the direction between two points of the line, with their rounding.
  const DirectionClass found = classify_direction((p0 + direction) - p0);
  const auto close = [tol](float a, float b) { return tol >= std::fabs(a - b); };
  const auto y_at_px = [&] { return p0.y - v / u * (p0.x - p.x); };
  const auto z_at_px = [&] { return p0.z - w / u * (p0.x - p.x); };
  const auto z_at_py = [&] { return p0.z - w / v * (p0.y - p.y); };
  switch (found) {
    case DirectionClass::general:
      return {found, close(p.y, y_at_px()) && close(p.z, z_at_px())};
    case DirectionClass::along_x:
      return {found, close(p.y, p0.y) && close(p.z, p0.z)};
    case DirectionClass::along_y:
      return {found, close(p.x, p0.x) && close(p.z, p0.z)};
    case DirectionClass::along_z:
      return {found, close(p.x, p0.x) && close(p.y, p0.y)};
    case DirectionClass::in_xy:
      return {found, close(p.y, y_at_px()) && close(p.z, p0.z)};
    case DirectionClass::in_yz:
      return {found, close(p.x, p0.x) && close(p.z, z_at_py())};
    case DirectionClass::in_xz:
      return {found, close(p.y, p0.y) && close(p.z, z_at_px())};
    case DirectionClass::null:
      break;
  }
  return {found, false};
}

PointOnMeetingLine relate_point_meeting_line(Plane p, Plane q, float n, Vec3 point, float tol,
                                             Vec3& kept) {
  const auto [a1, b1, c1, d1] = p;
  const auto [a2, b2, c2, d2] = q;
  const float l = determinant(b1, c1, b2, c2), m = determinant(a1, c1, a2, c2);
  const auto close = [tol](float a, float b) { return std::fabs(a - b) <= tol; };
  bool on_line = false;
  if (non_zero(l)) {
    kept.y = ((c1 * a2 - a1 * c2) * kept.x + (c1 * d2 - d1 * c2)) / l;
    kept.z = ((a1 * b2 - b1 * a2) * kept.x + (d1 * b2 - b1 * d2)) / l;
    on_line = close(point.y, kept.y) && close(point.z, kept.z);
  } else if (non_zero(m)) {
    // Deliberate: the slope of z has the sign opposite to the solution's (kezln7).
    kept.x = ((c1 * b2 - b1 * c2) * kept.y + (c1 * d2 - d1 * c2)) / m;
    kept.z = ((a1 * b2 - b1 * a2) * kept.y + (d1 * a2 - a1 * d2)) / m;
    on_line = close(point.z, kept.z) && close(point.x, kept.x);
  } else if (non_zero(n)) {
    kept.x = ((b1 * c2 - c1 * b2) * kept.z + (b1 * d2 - d1 * b2)) / n;
    kept.y = ((c1 * a2 - a1 * c2) * kept.z + (d1 * a2 - a1 * d2)) / n;
    on_line = close(point.x, kept.x) && close(point.y, kept.y);
  }
  return {l, m, classify_direction({l, m, n}), on_line};
}

// In the plane of the lines, in axes whose x axis is the first line.
SpaceMeeting intersect_lines_in_space(Ray first, Ray second, Vec2 fallback) {
  const Obstacle obstacle = plane_through_lines(first, second).obstacle;
  if (obstacle != Obstacle::none) return {obstacle, {}, {}, {}};

  // p1 is moved like the others: if it is not finite, it must not become the origin.
  const auto [p1, q1] = first.segment();
  const auto [p2, q2] = second.segment();
  const Vec3 from = p1 - p1, to = q1 - p1, second_from = p2 - p1, second_to = q2 - p1;
  // If q2 lies on the first line, there are no axes, and all local coordinates are 0.
  const AxisSystem axes = axes_through(from, to, second_to).axes;
  const auto local = [&axes](Vec3 p) { return to_local_plane(axes, p); };
  const LineMeeting meeting = intersect_lines(line_through(local(from), local(to)),
                                              line_through(local(second_from), local(second_to)));
  const Vec2 point = meeting.point_or(fallback);
  return {obstacle, to_global(axes, in_plane(point)) + p1, from, second_from};
}

}  // namespace kez
