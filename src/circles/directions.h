// The direction of a vector, the convexity of an outline, the feet of two perpendiculars, and
// points against the angle between two rays.
#pragma once

#include <cstdint>
#include <span>

#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

// From the positive x axis to a vector, negative below it. A vector that is within the tolerance of
// the axis has no sign: it stands at 0 or pi.
float direction_angle(Vec2 v);

enum class Convexity : std::int32_t { convex = 0, not_convex = -1 };

// Closes the outline first.
Convexity classify_outline(const PlanePoints& outline);

// Two perpendiculars on the line from `first` to `second`. Heights are measured from the line's
// projection on the x-y plane, positions along the line in space.
struct Feet {
  float height_before, position_before;
  float height_after, position_after;
  float length;
};

// `before` is measured from the line's first point, `after` back from its second.
Feet drop_perpendiculars(Vec3 before, Vec3 first, Vec3 second, Vec3 after);

enum class AngleClass : std::int32_t { none = -1, first = 1, second = 2 };

// Writes one class a point: `first` for a point on the same side of both rays' lines whose foot on
// the first line does not lie behind the vertex, else `second`; `none` for all if the rays coincide
// or one has no length.
void relate_points_angle(Vec2 vertex, Vec2 p, Vec2 q, const ConstPlanePoints& points,
                         std::span<std::int32_t> flags);

}  // namespace kez
