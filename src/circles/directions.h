// The direction of a vector, the convexity of an outline, and the feet of two perpendiculars.
#pragma once

#include <cstdint>
#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

// From the positive x axis to a vector, negative below it. A vector that is within the tolerance of
// the axis has no sign: it stands at 0 or pi.
float direction_angle(Vec2 v);

enum class Convexity : std::int32_t { convex = 0, not_convex = -1 };

// Closes the outline first.
Convexity judge_convexity(const PlanePoints& outline);

// Two perpendiculars on the line from `first` to `second`. Heights are measured from the line's
// projection on the x-y plane, positions along the line in space.
struct Feet {
  float height_before, position_before;
  float height_after, position_after;
  float length;
};

// `before` is measured from the line's first point, `after` back from its second.
Feet drop_perpendiculars(Vec3 before, Vec3 first, Vec3 second, Vec3 after);

}  // namespace kez
