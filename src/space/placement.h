// Placing lists of points in space, and planes rotated about a line.
#pragma once

#include "../frame/point_lists.h"
#include "../frame/types.h"
#include "axis_systems.h"
#include "planes.h"

namespace kez {

// A translation, then rotations about the x, the y and the z axis.
struct Placement {
  Vec3 translation;
  Vec3 angles;
};

// Translations and angles within the tolerance of zero leave the points as they are.
void place(const SpacePoints& points, Placement placement);

// In the axes through three points. Nothing is left out; collinear points leave the list alone.
PlacedAxes::Status place_locally(Vec3 origin, Vec3 on_x, Vec3 in_xy, const SpacePoints& points,
                                 Placement placement);

// The plane of three points rotated about the line through the first two, with a normal of unit
// length. Position::at_first also where the end of that normal coincides with p1.
PlaneOfPoints rotated_plane(Vec3 p1, Vec3 p2, Vec3 p3, float angle);

}  // namespace kez
