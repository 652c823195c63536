#include "angles.h"

#include <cmath>

#include "lines.h"
#include "points.h"
#include "quiet.h"
#include "tolerance.h"

namespace kez {

std::optional<float> line_angle(Vec3 u, Vec3 w) {
  if (!both_long(u, w)) return std::nullopt;
  return quiet::acos(std::fabs(dot(u, w)) / length(u) / length(w));
}

Vec3 projected_angles(Vec3 u, Vec3 w) {
  return {angle(Vec2{u.y, u.z}, Vec2{w.y, w.z}), angle(Vec2{u.x, u.z}, Vec2{w.x, w.z}),
          angle(Vec2{u.x, u.y}, Vec2{w.x, w.y})};
}

LineRelation relate_lines(Segment<Vec3> first, Segment<Vec3> second) {
  const Vec3 u = first.vector(), w = second.vector();
  const auto on_first = [first](Vec3 p) {
    return position_on_segment(first, p) != Position::off_line;
  };
  const auto on_one_line = [&] { return on_first(second.first) || on_first(second.second); };
  switch (const DirectionRelation directions = relate_directions(u, w)) {
    case DirectionRelation::null:
      return LineRelation::undefined;
    case DirectionRelation::same:
      return on_one_line() ? LineRelation::same_line_same : LineRelation::parallel_same;
    case DirectionRelation::opposite:
      return on_one_line() ? LineRelation::same_line_opposite : LineRelation::parallel_opposite;
    default:
      if (span_space(u, w, second.first - first.first)) return LineRelation::skew;
      return directions == DirectionRelation::perpendicular ? LineRelation::perpendicular
                                                            : LineRelation::oblique;
  }
}

namespace {

// p = k q for the normals of parallel planes. Deliberate: the last component that can be divided by
// decides, even if the components disagree by rounding (kezdirp).
float normal_ratio(Vec3 p, Vec3 q) {
  if (non_zero(q.z)) return p.z / q.z;
  if (non_zero(q.y)) return p.y / q.y;
  return p.x / q.x;
}

// For planes with parallel normals.
bool distinct(Plane p, Plane q) {
  if (!non_zero(p.d) && !non_zero(q.d)) return false;
  const float ratio_of_constants = non_zero(q.d) ? p.d / q.d : 0.0f;
  return non_zero(normal_ratio(p.normal(), q.normal()) - ratio_of_constants);
}

}  // namespace

PlaneRelation relate_planes(Plane p, Plane q) {
  switch (relate_directions(p.normal(), q.normal())) {
    case DirectionRelation::same:
      return distinct(p, q) ? PlaneRelation::parallel_same : PlaneRelation::same_plane_same;
    case DirectionRelation::opposite:
      return distinct(p, q) ? PlaneRelation::parallel_opposite : PlaneRelation::same_plane_opposite;
    case DirectionRelation::perpendicular:
      return PlaneRelation::perpendicular;
    case DirectionRelation::null:
      return PlaneRelation::null_normal;
    case DirectionRelation::oblique:
      break;
  }
  return PlaneRelation::intersecting;
}

}  // namespace kez
