#include "tables.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "keys.h"
#include "numbers.h"
#include "tolerance.h"
#include "work_list.h"

namespace kez {

namespace {

// Whether any two entries that compare equal are the same, and all compare: then every correct sort
// leaves the same table.
bool order_is_unique(std::span<const float> x) {
  bool nan = false, plus_zero = false, minus_zero = false;
  for (const float v : x) {
    nan |= v != v;
    plus_zero |= v == 0 && !std::signbit(v);
    minus_zero |= v == 0 && std::signbit(v);
  }
  return !nan && !(plus_zero && minus_zero);
}

// Not inlined, so that a short table does not take the stack of a long one.
template <typename T>
[[gnu::noinline]] bool sort_by_keys(std::span<T> x) {
  WorkList<Key> memory(2 * x.size());
  if (!memory) return false;
  const auto keys = memory.entries().first(x.size());
  std::transform(x.begin(), x.end(), keys.begin(), [](T value) { return key_of(value); });
  const auto sorted = sort_keys(keys, memory.entries().last(x.size())).entries;
  for (std::size_t i = 0; i < x.size(); ++i) set_value(sorted[i], x[i]);
  return true;
}

template <typename T>
void sort_in_any_way(std::span<T> x) {
  if (x.size() < fewest_keys || !sort_by_keys(x)) std::sort(x.begin(), x.end());
}

void selection_sort(std::span<float> x) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    std::size_t least = i;
    for (std::size_t j = i + 1; j < x.size(); ++j) {
      if (x[j] <= x[least]) least = j;
    }
    std::swap(x[i], x[least]);
  }
}

// The exchanges of a selection sort, of which the sorted entries tell in advance where the next
// minimum stands: their indices follow the entries. Not-a-number is never exchanged.
class Exchanges {
 public:
  Exchanges(std::span<float> x, Sorted<Keyed> s) : x_(x), sorted_(s.entries), at_(s.room) {
    for (std::size_t rank = 0; rank < x.size(); ++rank) at_[index_of(sorted_[rank])] = rank;
  }

  void make(std::size_t numbers) {
    for (std::size_t begin = 0, end = 0; begin < numbers; begin = end) {
      while (end < numbers && key_of(sorted_[end]) == key_of(sorted_[begin])) ++end;
      std::sort(&sorted_[begin], &sorted_[begin] + (end - begin));
      place_equals(begin, end);
    }
  }

 private:
  // The last of the equals goes to the front, and to its place what was there: one of them, which
  // leaves their places as they are but for the front, or another entry.
  void place_equals(std::size_t first, std::size_t last) {
    for (; first < last; ++front_) {
      while (std::isnan(x_[front_])) ++front_;
      const std::size_t place = index_of(sorted_[last - 1]);
      std::swap(x_[front_], x_[place]);
      if (index_of(sorted_[first]) == front_) {
        ++first;
      } else {
        --last;
        at_[place] = at_[front_];
        const std::size_t displaced = index_of(at_[place]);
        sorted_[displaced] = keyed(key_of(sorted_[displaced]), place);
      }
    }
  }

  std::span<float> x_;
  std::span<Keyed> sorted_, at_;
  std::size_t front_ = 0;
};

[[gnu::noinline]] bool replay_selection_sort(std::span<float> x) {
  WorkList<Keyed> memory(2 * x.size());
  if (!memory) return false;
  const auto entries = memory.entries().first(x.size()), room = memory.entries().last(x.size());
  for (std::size_t i = 0; i < x.size(); ++i) entries[i] = keyed(comparison_key(x[i]), i);
  const auto numbers = std::count_if(x.begin(), x.end(), [](float v) { return !std::isnan(v); });
  Exchanges(x, sort_keys(entries, room)).make(static_cast<std::size_t>(numbers));
  return true;
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
  if (order_is_unique(x)) {
    sort_in_any_way(x);
  } else if (x.size() < fewest_keys || !replay_selection_sort(x)) {
    selection_sort(x);
  }
}

void sort_ascending(std::span<std::int32_t> x) {
  sort_in_any_way(x);
}

void reverse(std::span<RawWord> x) {
  std::reverse(x.begin(), x.end());
}

std::int32_t select(std::span<const std::int32_t> table, std::int32_t v, std::int32_t positions[]) {
  std::int32_t count = 0;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i] == v) positions[count++] = position_of(i);
  }
  return count;
}

std::optional<RangeEntries> find_range(std::span<const float> x, float low, float high,
                                       std::int32_t positions[]) {
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
  // Nor where the block would end behind any array that the counts can describe.
  const auto room = std::numeric_limits<std::int32_t>::max() - std::max(block.offset, 0);
  if (block.count < 1 || block.offset < 0 || block.count > room) return std::nullopt;
  return block;
}

}  // namespace kez
