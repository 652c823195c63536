// Orders of lists and of parallel lines, as lists of positions.
#pragma once

#include <cstdint>
#include <span>

#include "../frame/point_lists.h"

namespace kez {

// Writes the positions of the entries by ascending value, of equal entries the last first. With
// not-a-number or very large entries the order is that of choosing pass by pass, for which a long
// list needs memory: if that runs out, nothing is written and the result is false.
bool order_ascending(std::span<const float> list, std::span<std::int32_t> order);

enum class LineOrder : std::int32_t { ordered = 0, not_ordered = -1 };

// Writes the positions of parallel and distinct lines by ascending intercept; of others, and if
// memory runs out, 1, 2, ..., n. The lines are given by their coefficients a, b and c.
LineOrder order_parallel_lines(const ConstSpacePoints& coefficients, std::span<std::int32_t> order);

}  // namespace kez
