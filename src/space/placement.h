// Turning and placing lists of points in space, and planes turned about a line.
#pragma once

#include <cstdint>
#include <span>

#include "../frame/types.h"
#include "axis_systems.h"
#include "planes.h"

namespace kez {

// The coordinates of a list of points.
struct PointList {
  std::span<float> xs, ys, zs;
};

// A translation, then turns about the x, the y and the z axis, each in the sense of `turned`.
struct Placement {
  Vec3 translation;
  Vec3 angles;
};

// Translations and angles within the tolerance of zero leave the points as they are.
void place(PointList points, Placement placement) noexcept;

// In the axes through three points. Nothing is left out; collinear points leave the list alone.
PlacedAxes::Status place_locally(Vec3 origin, Vec3 on_x, Vec3 in_xy, PointList points,
                                 Placement placement) noexcept;

// The plane of three points turned about the line through the first two, with a normal of unit
// length. Position::at_first also where the end of that normal coincides with p1.
PlaneOfPoints plane_turned(Vec3 p1, Vec3 p2, Vec3 p3, float angle) noexcept;

}  // namespace kez
