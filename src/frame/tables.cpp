#include "tables.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "keys.h"
#include "numbers.h"
#include "selection_sort.h"
#include "sort_few.h"
#include "tolerance.h"

namespace kez {

namespace {

// Whether every correct sort leaves the same table: all entries compare, and those that compare
// equal are the same.
bool order_is_unique(std::span<const float> x) {
  bool nan = false, plus_zero = false, minus_zero = false;
  for (const float v : x) {
    nan |= std::isnan(v);
    plus_zero |= v == 0 && !std::signbit(v);
    minus_zero |= v == 0 && std::signbit(v);
  }
  return !nan && !(plus_zero && minus_zero);
}

template <typename T>
bool sort_by_keys(std::span<T> x) {
  const SortedEntries<Key> sorted(x.size(), [x](std::size_t i) { return key_of(x[i]); });
  if (!sorted) return false;
  const auto keys = sorted.entries();
  for (std::size_t i = 0; i < x.size(); ++i) set_value(keys[i], x[i]);
  return true;
}

template <typename T>
void sort_in_any_way(std::span<T> x) {
  if (x.size() <= few<T>) return sort_few(x);
  if (!sort_by_keys(x)) sort_without_memory(x);
}

}  // namespace

std::int32_t find_interval(std::span<const float> x, float v) {
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    if (x[i] <= v && v < x[i + 1]) return position_of(i);
  }
  return 0;
}

Place find_place(std::span<const float> x, float v) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (equal(x[i], v)) return {Match::entry, position_of(i)};
  }
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    if (x[i] < v && v < x[i + 1]) return {Match::interval, position_of(i)};
  }
  return {Match::none, 0};
}

void sort_ascending(std::span<float> x) {
  if (order_is_unique(x)) return sort_in_any_way(x);
  selection_sort(x);
}

void sort_ascending(std::span<std::int32_t> x) {
  sort_in_any_way(x);
}

void reverse(std::span<RawWord> x) {
  std::reverse(x.begin(), x.end());
}

std::int32_t select(std::span<const std::int32_t> table, std::int32_t v,
                    std::span<std::int32_t> positions) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i] == v) positions[count++] = position_of(i);
  }
  return static_cast<std::int32_t>(count);
}

std::optional<RangeEntries> find_range(std::span<const float> x, float low, float high,
                                       std::span<std::int32_t> positions) {
  std::size_t count = 0, first = 0, last = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (!(low <= x[i] && x[i] <= high)) continue;
    if (count == 0) first = i;
    last = i;
    positions[count++] = position_of(i);
  }
  if (count > 0) {
    return RangeEntries{static_cast<std::int32_t>(count), std::fabs(x[first] - low),
                        std::fabs(high - x[last])};
  }

  std::optional<RangeEntries> enclosing;
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    if (!(low > x[i] && x[i + 1] > low && x[i + 1] > high)) continue;
    positions[0] = position_of(i);
    positions[1] = positions[0] + 1;
    enclosing = {2, 0, 0};
  }
  return enclosing;
}

std::optional<Block> last_block(std::span<const std::int32_t> counts) {
  if (counts.empty()) return std::nullopt;
  std::uint32_t sum = 0;  // Deliberate: it wraps (kezadr).
  for (const std::int32_t count : counts.first(counts.size() - 1)) {
    sum += static_cast<std::uint32_t>(count);
  }
  const Block block = {static_cast<std::int32_t>(sum), counts.back()};
  // The block must not end beyond any array that the counts can describe.
  const auto room = std::numeric_limits<std::int32_t>::max() - std::max(block.offset, 0);
  if (block.count < 1 || block.offset < 0 || block.count > room) return std::nullopt;
  return block;
}

}  // namespace kez
