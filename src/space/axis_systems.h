// Axis systems in the plane of three points, and distances from a line in space.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

#include "../frame/numbers.h"
#include "../frame/points.h"
#include "../frame/types.h"

namespace kez {

// The unit vectors of the local axes in global coordinates; one that is too short to be made a unit
// vector is zero.
struct AxisSystem {
  Vec3 x, y, z;
};

struct PlacedAxes {
  enum class Status : std::int32_t { placed = 0, collinear = -2 };
  Status status;
  AxisSystem axes;  // zero where the points are collinear
};

// The local x axis from the origin to `on_x`, `in_xy` in the local xy plane on either side of it.
PlacedAxes axes_through(Vec3 origin, Vec3 on_x, Vec3 in_xy) noexcept;

// Directions, or points relative to the origin of the axes.
inline Vec3 to_global(const AxisSystem& axes, Vec3 p) noexcept {
  return p.x * axes.x + p.y * axes.y + p.z * axes.z;
}
inline Vec3 to_local(const AxisSystem& axes, Vec3 p) noexcept {
  return {dot(axes.x, p), dot(axes.y, p), dot(axes.z, p)};
}
inline Vec2 to_local_plane(const AxisSystem& axes, Vec3 p) noexcept {
  return {dot(axes.x, p), dot(axes.y, p)};
}

// The origin moves to `origin`; to move back, translate by its negative.
void translate(std::span<float> xs, std::span<float> ys, std::span<float> zs, Vec3 origin) noexcept;

// Of p from the line through p1 and p2; negative where p is on the side to which the y axis through
// p1, p2 and p points.
float distance_in_plane(Vec3 p1, Vec3 p2, Vec3 p) noexcept;

// By the cross product of p1 - p and p2 - p1, but with p1's y for its z: the distance where both
// are the same.
float distance_by_cross(Vec3 p1, Vec3 p2, Vec3 p) noexcept;

// Writes the positions of the points for which distance_by_cross is within tol, ascending, and
// returns their number. z_of(position) gives the z of a point.
template <typename Height>
std::int32_t points_near_line(Vec3 p1, Vec3 p2, std::span<const float> xs,
                              std::span<const float> ys, Height z_of, float tol,
                              std::int32_t positions[]) {
  std::int32_t count = 0;
  for (std::size_t i = 0; i < xs.size(); ++i) {
    const std::int32_t position = position_of(i);
    const float z = z_of(position);
    if (tol >= distance_by_cross(p1, p2, {xs[i], ys[i], z})) {
      positions[count++] = position;
    }
  }
  return count;
}

}  // namespace kez
