// Unsigned angles, and how directions, lines and planes stand to one another.
#pragma once

#include <cstdint>
#include <optional>

#include "points.h"
#include "quiet.h"
#include "tolerance.h"
#include "types.h"

namespace kez {

template <typename Vector>
bool both_long(Vector u, Vector w) {
  return above_tolerance(length(u)) && above_tolerance(length(w));
}

// 0 where a vector is no longer than the tolerance. The cosine is not clamped: exactly parallel
// vectors may round past 1, and the angle is then not a number.
template <typename Vector>
float angle(Vector u, Vector w) {
  return both_long(u, w) ? quiet::acos(cosine(u, w)) : 0.0f;
}

// At a vertex, between the rays to p and q.
template <typename Point>
float vertex_angle(Point vertex, Point p, Point q) {
  return angle(p - vertex, q - vertex);
}

// Between two lines, whatever their orientation: 0 to pi/2. None if a vector is too short.
std::optional<float> line_angle(Vec3 u, Vec3 w);

// Between the projections of two vectors on the y-z, x-z and x-y planes.
Vec3 projected_angles(Vec3 u, Vec3 w);

enum class DirectionRelation : std::int32_t {
  oblique = 0,
  same = 1,
  opposite = 2,
  perpendicular = 3,
  null = 4,
};

inline DirectionRelation relate_directions(Vec3 u, Vec3 w) {
  const CosineSquare square = cosine_square(u, w);
  if (square.is_clear_of_one() && square.is_clear_of_zero()) return DirectionRelation::oblique;
  if (is_null(u) || is_null(w)) return DirectionRelation::null;
  const float c = cosine(u, w);
  if (equal(c, 1)) return DirectionRelation::same;
  if (equal(c, -1)) return DirectionRelation::opposite;
  if (equal(c, 0)) return DirectionRelation::perpendicular;
  return DirectionRelation::oblique;
}

enum class LineRelation : std::int32_t {
  oblique = 0,
  parallel_same = 1,
  parallel_opposite = 2,
  same_line_same = 3,
  same_line_opposite = 4,
  perpendicular = 5,
  skew = 6,
  undefined = 7,
};

LineRelation relate_lines(Segment<Vec3> first, Segment<Vec3> second);

enum class PlaneRelation : std::int32_t {
  intersecting = 0,
  parallel_same = 1,
  parallel_opposite = 2,
  same_plane_same = 3,
  same_plane_opposite = 4,
  perpendicular = 5,
  null_normal = 6,
};

PlaneRelation relate_planes(Plane p, Plane q);

}  // namespace kez
