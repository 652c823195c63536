// The selection sort that takes the last of equal minima, which defines the order of a table whose
// entries do not all compare, or compare equal without being the same.
#pragma once

#include <span>

namespace kez {

void selection_sort(std::span<float> x);

}  // namespace kez
