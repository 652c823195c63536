#include "ordering.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "../frame/lines.h"
#include "extremes.h"
#include "work_list.h"

namespace kez {

namespace {

// The position of the last of the smallest entries, 0 when the one to begin with is not a number,
// which nothing is smaller than or equal to.
std::int32_t choose(std::span<const float> list, float begin) noexcept {
  const float least = smallest(list, begin);
  const auto n = static_cast<std::int32_t>(list.size());
  std::int32_t chosen = 0;
  for (std::int32_t i = 0; i < n; ++i) {
    chosen = list[static_cast<std::size_t>(i)] == least ? i + 1 : chosen;
  }
  return chosen;
}

// Chosen entries give way to the marker. Where it is no larger than others, they are chosen again.
bool order_by_passes(std::span<const float> list, float marker, std::int32_t order[]) noexcept {
  WorkList<float> memory(list.size());
  if (!memory) return false;
  const auto left = memory.entries();
  std::copy(list.begin(), list.end(), left.begin());
  for (std::size_t k = 0; k < left.size(); ++k) {
    const std::int32_t chosen = choose(left, left[k]);
    if (chosen == 0) continue;
    left[static_cast<std::size_t>(chosen) - 1] = marker;
    order[k] = chosen;
  }
  return true;
}

}  // namespace

bool order_ascending(std::span<const float> list, std::int32_t order[]) noexcept {
  const float top = largest(list), marker = top + 1.0f;
  const auto is_nan = [](float x) { return std::isnan(x); };
  if (!(marker > top) || std::any_of(list.begin(), list.end(), is_nan)) {
    return order_by_passes(list, marker, order);
  }
  const auto entry = [list](std::int32_t i) { return list[static_cast<std::size_t>(i) - 1]; };
  std::iota(order, order + list.size(), 1);
  std::sort(order, order + list.size(), [entry](std::int32_t i, std::int32_t j) {
    return entry(i) < entry(j) || (entry(i) == entry(j) && i > j);
  });
  return true;
}

LineOrder order_parallel_lines(const ConstSpacePoints& coefficients,
                               std::int32_t order[]) noexcept {
  const std::size_t n = coefficients.size();
  if (n == 0) return LineOrder::not_ordered;
  const auto line = [&](std::size_t i) {
    const auto [a, b, c] = coefficients[i];
    return Line{a, b, c};
  };
  const auto parallel_to_first = [&](Line other) {
    return intersect_lines(line(0), other).status == Meeting::parallel;
  };

  bool ordered = true;
  for (std::size_t i = 1; i < n && ordered; ++i) ordered = parallel_to_first(line(i));
  WorkList<float> memory(n);
  if (ordered && memory) {
    // Deliberate: a first line that is the y axis itself is none of the vertical ones (kezpor).
    const bool vertical = parallel_to_first({1, 0, 0});
    const auto intercepts = memory.entries();
    for (std::size_t i = 0; i < n; ++i) {
      const auto [a, b, c] = line(i);
      intercepts[i] = -c / (vertical ? a : b);
    }
    if (order_ascending(intercepts, order)) return LineOrder::ordered;
  }
  std::iota(order, order + n, 1);
  return LineOrder::not_ordered;
}

}  // namespace kez
