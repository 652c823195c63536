#include "ordering.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "../frame/keys.h"
#include "../frame/lines.h"
#include "../frame/numbers.h"

namespace kez {

namespace {

// Writes the order that choosing makes of entry(0) .. entry(count - 1): each pass takes the
// smallest entry, of equal ones the last, and overwrites it by the marker, the largest entry plus
// 1. As long as entries below the marker are left, that is their sorted order. False if memory runs
// out.
template <typename Entry>
bool order_by(std::size_t count, Entry entry, std::span<std::int32_t> order) {
  // From the last entry on, because the last of equal entries comes first.
  const SortedEntries<Keyed> sorted(count, [&](std::size_t back) {
    return keyed(comparison_key(entry(count - 1 - back)), back);
  });
  if (!sorted) return false;
  const auto position = [count](Keyed e) { return position_of(count - 1 - index_of(e)); };

  const float marker = largest(count, entry) + 1.0f;
  const auto is_below = [marker](Keyed e) { return value_of(e) < marker; };
  const auto entries = sorted.entries();
  const auto chosen = std::partition_point(entries.begin(), entries.end(), is_below);
  const auto below = static_cast<std::size_t>(chosen - entries.begin());
  // A pass that begins at not-a-number takes none. Once no entry is below the marker, those that
  // are numbers all equal it, as the markers do, and every pass takes the last of them.
  const auto takes_none = [&](std::size_t i) { return below < count && std::isnan(entry(i)); };
  std::size_t last = count, pass = 0;
  while (last > 0 && takes_none(last - 1)) --last;
  for (std::size_t k = 0; k < last; ++k) {
    if (takes_none(k)) continue;
    order[k] = pass < below ? position(sorted.entries()[pass]) : position_of(last - 1);
    ++pass;
  }
  return true;
}

// Needs no memory; false unless every entry is below the marker.
bool sort_positions(std::span<const float> list, std::span<std::int32_t> order) {
  const float marker = largest(list) + 1.0f;
  if (!std::all_of(list.begin(), list.end(), [marker](float x) { return x < marker; }))
    return false;
  const auto entry = [list](std::int32_t i) { return list[static_cast<std::size_t>(i) - 1]; };
  std::iota(order.begin(), order.end(), 1);
  sort_without_memory(order, [entry](std::int32_t i, std::int32_t j) {
    return entry(i) < entry(j) || (entry(i) == entry(j) && i > j);
  });
  return true;
}

}  // namespace

bool order_ascending(std::span<const float> list, std::span<std::int32_t> order) {
  const auto entry = [list](std::size_t i) { return list[i]; };
  return order_by(list.size(), entry, order) || sort_positions(list, order);
}

LineOrder order_parallel_lines(const ConstSpacePoints& coefficients,
                               std::span<std::int32_t> order) {
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
  if (ordered) {
    // Deliberate: a first line that is the y axis itself is none of the vertical ones (kezpor).
    const bool vertical = parallel_to_first({1, 0, 0});
    const auto intercept = [&](std::size_t i) {
      const auto [a, b, c] = coefficients[i];
      return -c / (vertical ? a : b);
    };
    if (order_by(n, intercept, order)) return LineOrder::ordered;
  }
  std::iota(order.begin(), order.end(), 1);
  return LineOrder::not_ordered;
}

}  // namespace kez
