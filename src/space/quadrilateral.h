// The outline of a quadrilateral in space whose corners come in any order.
#pragma once

#include <array>
#include <cstdint>

#include "../frame/types.h"

namespace kez {

using Corners = std::array<Vec3, 4>;

// The positions of the corners round an outline that starts with the first and does not cross
// itself.
std::array<std::int32_t, 4> outline_order(const Corners& corners);

}  // namespace kez
