#include "selection_sort.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "keys.h"

namespace kez {

namespace {

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
// stands. `sorted_` holds the index at which each entry stands now, and `at_` the rank of the entry
// that stands at each index; both follow every exchange. Not-a-number is never exchanged.
class Exchanges {
 public:
  Exchanges(std::span<float> x, std::span<Keyed> sorted, std::span<Keyed> at)
      : x_(x), sorted_(sorted), at_(at) {
    for (std::size_t rank = 0; rank < x.size(); ++rank) at_[index_of(sorted_[rank])] = rank;
  }

  void make() {
    for (std::size_t begin = 0, end = 0; begin < x_.size(); begin = end) {
      const Key key = key_of(sorted_[begin]);
      if (key == key_of_not_a_number) return;
      while (end < x_.size() && key_of(sorted_[end]) == key) ++end;
      std::sort(&sorted_[begin], &sorted_[begin] + (end - begin));
      place_equals(begin, end);
    }
  }

 private:
  // The last of the equals goes to the front, and to its place what was there: one of them, which
  // leaves their places as they are except the front, or another entry.
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

}  // namespace

void selection_sort(std::span<float> x) {
  if (x.size() < fewest_to_sort) return exchange_by_passes(x);
  const SortedEntries<Keyed> sorted(x.size(),
                                    [x](std::size_t i) { return keyed(comparison_key(x[i]), i); });
  if (!sorted) return exchange_by_passes(x);
  Exchanges(x, sorted.entries(), sorted.room()).make();
}

}  // namespace kez
