#include "ordering.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numeric>

#include "../frame/keys.h"
#include "../frame/lines.h"
#include "../frame/numbers.h"
#include "../frame/work_list.h"

namespace kez {

namespace {

// An order of entry(0) .. entry(count - 1): pass by pass the smallest entry gives way to the
// marker. That takes the entries below the marker as they are sorted, equal ones from the last on.
template <typename Entry>
class Ordering {
 public:
  Ordering(std::size_t count, Entry entry, std::int32_t order[])
      : count_(count), entry_(entry), order_(order), marker_(largest(count, entry) + 1.0f) {}

  void write(std::span<Keyed> entries, std::span<Keyed> room) const {
    std::size_t below = 0;
    for (std::size_t i = count_; i-- > 0;) {
      const float x = entry_(i);
      entries[below] = keyed(comparison_key(x), count_ - i);
      below += x < marker_;
    }
    const auto sorted = sort_keys(entries.first(below), room.first(below)).entries;
    if (below == count_) {
      for (std::size_t k = 0; k < count_; ++k) order_[k] = position(sorted[k]);
    } else {
      write_passes(sorted);
    }
  }

 private:
  // A pass that begins at not-a-number takes none. Once no entry is below the marker, those that
  // are numbers all equal it, as the markers do, and every pass takes the last of them.
  void write_passes(std::span<const Keyed> sorted) const {
    std::size_t last = count_, pass = 0;
    while (last > 0 && std::isnan(entry_(last - 1))) --last;
    for (std::size_t k = 0; k < last; ++k) {
      if (std::isnan(entry_(k))) continue;
      order_[k] = pass < sorted.size() ? position(sorted[pass]) : position_of(last - 1);
      ++pass;
    }
  }

  std::int32_t position(Keyed entry) const {
    return static_cast<std::int32_t>(count_ + 1 - index_of(entry));
  }

  std::size_t count_;
  Entry entry_;
  std::int32_t* order_;
  float marker_;
};

// Not inlined, so that a short list does not take the stack of a long one.
template <typename Entry>
[[gnu::noinline]] bool order_long(const Ordering<Entry>& ordering, std::size_t count) {
  WorkList<Keyed> memory(2 * count);
  if (!memory) return false;
  ordering.write(memory.entries().first(count), memory.entries().last(count));
  return true;
}

// False where there is no memory.
template <typename Entry>
bool order_by(std::size_t count, Entry entry, std::int32_t order[]) {
  const Ordering<Entry> ordering(count, entry, order);
  if (count >= fewest_keys) return order_long(ordering, count);
  std::array<Keyed, 2 * fewest_keys> memory;
  ordering.write(std::span(memory).first(count), std::span(memory).last(count));
  return true;
}

// Needs no memory; false where not every entry is below the marker.
bool sort_positions(std::span<const float> list, std::int32_t order[]) {
  const float marker = largest(list) + 1.0f;
  if (!std::all_of(list.begin(), list.end(), [marker](float x) { return x < marker; }))
    return false;
  const auto entry = [list](std::int32_t i) { return list[static_cast<std::size_t>(i) - 1]; };
  std::iota(order, order + list.size(), 1);
  std::sort(order, order + list.size(), [entry](std::int32_t i, std::int32_t j) {
    return entry(i) < entry(j) || (entry(i) == entry(j) && i > j);
  });
  return true;
}

}  // namespace

bool order_ascending(std::span<const float> list, std::int32_t order[]) {
  const auto entry = [list](std::size_t i) { return list[i]; };
  return order_by(list.size(), entry, order) || sort_positions(list, order);
}

LineOrder order_parallel_lines(const ConstSpacePoints& coefficients, std::int32_t order[]) {
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
  std::iota(order, order + n, 1);
  return LineOrder::not_ordered;
}

}  // namespace kez
