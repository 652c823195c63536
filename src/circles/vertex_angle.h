// Points against the angle between two rays.
#pragma once

#include <cstdint>
#include <span>

#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

enum class AngleClass : std::int32_t { none = -1, first = 1, second = 2 };

// Writes one class a point: `first` for a point on the same side of both rays' lines whose foot on
// the first line does not lie behind the vertex, else `second`; `none` for all where the rays
// coincide or one has no length.
void locate_in_angle(Vec2 vertex, Vec2 p, Vec2 q, const ConstPlanePoints& points,
                     std::span<std::int32_t> flags);

}  // namespace kez
