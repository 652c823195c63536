// Unsigned angles, and how directions, lines and planes stand to one another.
#pragma once

#include <cstdint>
#include <optional>

#include "types.h"

namespace kez {

// The angle between two vectors that are both longer than the tolerance. The cosine is not clamped:
// exactly parallel vectors may round past 1, and the angle is then not a number.
std::optional<float> angle_if_long(Vec3 u, Vec3 w) noexcept;

// The same, 0 where a vector is too short.
float angle(Vec3 u, Vec3 w) noexcept;

// At a vertex, between the rays to p and q.
float vertex_angle(Vec2 vertex, Vec2 p, Vec2 q) noexcept;
float vertex_angle(Vec3 vertex, Vec3 p, Vec3 q) noexcept;

// Between two lines whatever their orientation, 0 to pi/2.
std::optional<float> line_angle(Vec3 u, Vec3 w) noexcept;

// Between the projections of two vectors on the y-z, x-z and x-y planes.
Vec3 projected_angles(Vec3 u, Vec3 w) noexcept;

enum class DirectionRelation : std::int32_t {
  oblique = 0,
  same = 1,
  opposite = 2,
  perpendicular = 3,
  null = 4,
};

DirectionRelation relate_directions(Vec3 u, Vec3 w) noexcept;

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

// The line through p1 and p2 against the line through p3 and p4.
LineRelation relate_lines(Vec3 p1, Vec3 p2, Vec3 p3, Vec3 p4) noexcept;

enum class PlaneRelation : std::int32_t {
  intersecting = 0,
  parallel_same = 1,
  parallel_opposite = 2,
  same_plane_same = 3,
  same_plane_opposite = 4,
  perpendicular = 5,
  null_normal = 6,
};

PlaneRelation relate_planes(Plane p, Plane q) noexcept;

}  // namespace kez
