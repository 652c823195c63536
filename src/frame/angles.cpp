#include "angles.h"

#include <cmath>

#include "lines.h"
#include "points.h"
#include "tolerance.h"

namespace kez {

namespace {

bool both_long(Vec3 u, Vec3 w) noexcept {
  return length(u) > tolerance && length(w) > tolerance;
}

}  // namespace

std::optional<float> angle_if_long(Vec3 u, Vec3 w) noexcept {
  if (!both_long(u, w)) return std::nullopt;
  return std::acos(cosine(u, w));
}

float angle(Vec3 u, Vec3 w) noexcept {
  return angle_if_long(u, w).value_or(0.0f);
}

float vertex_angle(Vec2 vertex, Vec2 p, Vec2 q) noexcept {
  return angle(in_plane(p - vertex), in_plane(q - vertex));
}

float vertex_angle(Vec3 vertex, Vec3 p, Vec3 q) noexcept {
  return angle(p - vertex, q - vertex);
}

std::optional<float> line_angle(Vec3 u, Vec3 w) noexcept {
  if (!both_long(u, w)) return std::nullopt;
  return std::acos(std::fabs(dot(u, w)) / length(u) / length(w));
}

Vec3 projected_angles(Vec3 u, Vec3 w) noexcept {
  return {angle({0, u.y, u.z}, {0, w.y, w.z}), angle({u.x, 0, u.z}, {w.x, 0, w.z}),
          angle({u.x, u.y, 0}, {w.x, w.y, 0})};
}

DirectionRelation relate_directions(Vec3 u, Vec3 w) noexcept {
  const auto between = angle_between(u, w);
  if (!between) return DirectionRelation::null;
  if (equal(between->cosine, 1)) return DirectionRelation::same;
  if (equal(between->cosine, -1)) return DirectionRelation::opposite;
  if (equal(between->cosine, 0)) return DirectionRelation::perpendicular;
  return DirectionRelation::oblique;
}

LineRelation relate_lines(Vec3 p1, Vec3 p2, Vec3 p3, Vec3 p4) noexcept {
  const Vec3 u = p2 - p1, w = p4 - p3;
  const auto between = angle_between(u, w);
  if (!between) return LineRelation::undefined;

  const auto on_first = [&](Vec3 p) {
    return position_on_segment(p1, p2, p) != Position::off_line;
  };
  if (equal(between->cosine, 1)) {
    return on_first(p3) || on_first(p4) ? LineRelation::same_line_same
                                        : LineRelation::parallel_same;
  }
  if (equal(between->cosine, -1)) {
    return on_first(p3) || on_first(p4) ? LineRelation::same_line_opposite
                                        : LineRelation::parallel_opposite;
  }
  if (span_space(u, w, p3 - p1)) return LineRelation::skew;
  return equal(between->cosine, 0) ? LineRelation::perpendicular : LineRelation::oblique;
}

namespace {

// p = k q for the normals of parallel planes. The last component that can be divided by decides,
// which hosts rely on where the components disagree by rounding.
float normal_ratio(Vec3 p, Vec3 q) noexcept {
  if (non_zero(q.z)) return p.z / q.z;
  if (non_zero(q.y)) return p.y / q.y;
  return p.x / q.x;
}

// For planes with parallel normals.
bool distinct(Plane p, Plane q) noexcept {
  if (!non_zero(p.d) && !non_zero(q.d)) return false;
  const float ratio_of_constants = non_zero(q.d) ? p.d / q.d : 0.0f;
  return non_zero(normal_ratio(p.normal(), q.normal()) - ratio_of_constants);
}

}  // namespace

PlaneRelation relate_planes(Plane p, Plane q) noexcept {
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
