#include "sorting.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "keys.h"

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
void sort_in_any_way(std::span<T> x) {
  const SortedEntries<Key> sorted(x.size(), [x](std::size_t i) { return key_of(x[i]); });
  if (!sorted) return sort_without_memory(x);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = value_of<T>(sorted.entries()[i]);
}

// From this length on, as measured, sorting first is faster than passes.
constexpr std::size_t fewest_to_sort = 80;

void exchange_by_passes(std::span<float> x) {
  for (std::size_t i = 0; i < x.size(); ++i) {
    std::size_t least = i;
    for (std::size_t j = i + 1; j < x.size(); ++j) {
      if (x[j] <= x[least]) least = j;
    }
    std::swap(x[i], x[least]);
  }
}

// The same exchanges without the passes: the sorted entries tell in advance where the next minimum
// stands. `sorted` holds the index at which each entry stands now, and `at` the rank of the entry
// that stands at each index; both follow every exchange. Not-a-number is never exchanged.
struct Exchanges {
  std::span<float> x;
  std::span<Keyed> sorted, at;
  std::size_t front = 0;

  void make() {
    for (std::size_t rank = 0; rank < x.size(); ++rank) at[index_of(sorted[rank])] = rank;
    for (std::size_t begin = 0, end = 0; begin < x.size(); begin = end) {
      const Key key = key_of(sorted[begin]);
      if (key == key_of_not_a_number) return;
      while (end < x.size() && key_of(sorted[end]) == key) ++end;
      std::sort(&sorted[begin], &sorted[begin] + (end - begin));
      place_equals(begin, end);
    }
  }

  // The last of the equals goes to the front, and to its place what was there: one of them, which
  // leaves their places as they are except the front, or another entry.
  void place_equals(std::size_t first, std::size_t last) {
    for (; first < last; ++front) {
      while (std::isnan(x[front])) ++front;
      const std::size_t place = index_of(sorted[last - 1]);
      std::swap(x[front], x[place]);
      if (index_of(sorted[first]) == front) {
        ++first;
      } else {
        --last;
        at[place] = at[front];
        const std::size_t displaced = index_of(at[place]);
        sorted[displaced] = keyed(key_of(sorted[displaced]), place);
      }
    }
  }
};

}  // namespace

void sort_ascending(std::span<float> x) {
  if (order_is_unique(x)) return sort_in_any_way(x);
  if (x.size() < fewest_to_sort) return exchange_by_passes(x);
  const auto sorted = sort_by_value(std::span<const float>(x));
  if (!sorted) return exchange_by_passes(x);
  Exchanges{x, sorted.entries(), sorted.room()}.make();
}

void sort_ascending(std::span<std::int32_t> x) {
  sort_in_any_way(x);
}

}  // namespace kez
