// Sorting the caller's tables.
#pragma once

#include <cstdint>
#include <span>

namespace kez {

// Ascending. If entries compare equal without being the same, or do not compare at all, the order
// is that of a selection sort that takes the last of equal minima.
void sort_ascending(std::span<float> x);
void sort_ascending(std::span<std::int32_t> x);

}  // namespace kez
