#include "tables.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "numbers.h"
#include "tolerance.h"

namespace kez {

namespace {

// Whether any two entries that compare equal are the same, and all compare: then every correct sort
// leaves the same table.
bool order_is_unique(std::span<const float> x) noexcept {
  bool nan = false, plus_zero = false, minus_zero = false;
  for (const float v : x) {
    nan |= v != v;
    plus_zero |= v == 0 && !std::signbit(v);
    minus_zero |= v == 0 && std::signbit(v);
  }
  return !nan && !(plus_zero && minus_zero);
}

void selection_sort(std::span<float> x) noexcept {
  for (std::size_t i = 0; i < x.size(); ++i) {
    std::size_t least = i;
    for (std::size_t j = i + 1; j < x.size(); ++j) {
      if (x[j] <= x[least]) least = j;
    }
    std::swap(x[i], x[least]);
  }
}

}  // namespace

std::int32_t find_interval(std::span<const float> x, float v) noexcept {
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    if (x[i] <= v && v < x[i + 1]) return position_of(i);
  }
  return 0;
}

Place find_place(std::span<const float> x, float v) noexcept {
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (equal(x[i], v)) return {Match::entry, position_of(i)};
  }
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    if (x[i] < v && v < x[i + 1]) return {Match::interval, position_of(i)};
  }
  return {Match::none, 0};
}

void sort_ascending(std::span<float> x) noexcept {
  if (order_is_unique(x)) {
    std::sort(x.begin(), x.end());
  } else {
    selection_sort(x);
  }
}

void sort_ascending(std::span<std::int32_t> x) noexcept {
  std::sort(x.begin(), x.end());
}

void reverse(std::span<RawWord> x) noexcept {
  std::reverse(x.begin(), x.end());
}

std::int32_t select(std::span<const std::int32_t> table, std::int32_t v,
                    std::int32_t positions[]) noexcept {
  std::int32_t count = 0;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i] == v) positions[count++] = position_of(i);
  }
  return count;
}

}  // namespace kez
