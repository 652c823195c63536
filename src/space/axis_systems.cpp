#include "axis_systems.h"

#include "../frame/lines.h"
#include "../frame/tolerance.h"

namespace kez {

namespace {

// Upward, where up is y; for a vertical plane z decides, and for one across the z axis x.
Vec3 upward(Vec3 n) {
  const float height = non_zero(n.y) ? n.y : non_zero(n.z) ? n.z : n.x;
  return height < 0 ? -1.0f * n : n;
}

Vec3 unit_or_zero(Vec3 v) {
  const float l = length(v);
  if (!at_least_tolerance(l)) return {};
  return {v.x / l, v.y / l, v.z / l};
}

}  // namespace

PlacedAxes axes_through(Vec3 origin, Vec3 on_x, Vec3 in_xy) {
  if (position_on_segment(Segment{origin, on_x}, in_xy) != Position::off_line) {
    return {PlacedAxes::Status::collinear, {}};
  }
  const Vec3 x = on_x - origin;
  const Vec3 z = upward(cross(x, in_xy - origin));
  const Vec3 y = cross(z, x);
  return {PlacedAxes::Status::placed, {unit_or_zero(x), unit_or_zero(y), unit_or_zero(z)}};
}

float distance_in_plane(Segment<Vec3> line, Vec3 p) {
  const auto [p1, p2] = line;
  if (is_null(p2 - p1)) return distance(p1, p);
  const auto [status, axes] = axes_through(p1, p2, p);
  if (status != PlacedAxes::Status::placed) return 0;
  // Distances do not depend on the origin, so the points need not be moved to p1 first.
  return signed_distance(to_local_plane(axes, p),
                         line_through(to_local_plane(axes, p1), to_local_plane(axes, p2)));
}

float distance_by_cross(Segment<Vec3> line, Vec3 p) {
  const Vec3 p1 = line.first, u = line.vector();
  if (is_null(u)) return distance(p1, p);
  const Vec3 w = {p1.x - p.x, p1.y - p.y, p1.y - p.z};
  return length(cross(w, u)) / length(u);
}

}  // namespace kez
