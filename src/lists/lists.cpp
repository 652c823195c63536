#include "lists.h"

#include <algorithm>
#include <cstddef>

#include "../frame/keys.h"
#include "../frame/sorting.h"

namespace kez {

namespace {

// Sorts the list and leaves in front, once each, the values that occur at least so often. The
// marker is the largest entry plus 1. Above the largest integer it wraps to the smallest: then the
// markers come first in the order, and no entry is below them.
std::int32_t keep_frequent(std::span<std::int32_t> list, std::size_t fewest) {
  if (list.empty()) return 0;
  sort_ascending(list);
  const std::int32_t largest = list.back();
  std::size_t kept = 0, times = 0;
  std::int32_t previous = largest;
  for (const std::int32_t value : list) {
    times = value == previous ? times + 1 : 1;
    previous = value;
    list[kept] = value;  // where it stands, or in front of that
    kept += times == fewest;
  }
  const auto marker = static_cast<std::int32_t>(static_cast<std::uint32_t>(largest) + 1);
  const auto tail = list.subspan(kept);
  std::fill(tail.begin(), tail.end(), marker);
  if (marker > largest) return static_cast<std::int32_t>(kept);
  std::rotate(list.begin(), tail.begin(), list.end());
  return 0;
}

// From this length on, as measured, sorting first is faster than looking at every pair.
constexpr std::size_t fewest_to_sort = 56;

// The two functions say how often the entry of one list at an index stands in the other list.
template <typename InB, typename InA>
Comparison write(std::span<const std::int32_t> a, std::span<const std::int32_t> b, InB in_b,
                 InA in_a, std::int32_t common[], std::int32_t differing[]) {
  std::int32_t *common_end = common, *differing_end = differing;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto times = in_b(i);
    if (times == 0) *differing_end++ = a[i];
    common_end = std::fill_n(common_end, times, a[i]);
  }
  for (std::size_t j = 0; j < b.size(); ++j) {
    if (in_a(j) == 0) *differing_end++ = b[j];
  }
  return {static_cast<std::int32_t>(common_end - common),
          static_cast<std::int32_t>(differing_end - differing)};
}

// Into the room of each list: how often the entry at an index stands in the other one.
void count_equals(const SortedEntries<Keyed>& a, const SortedEntries<Keyed>& b) {
  const auto equals_end = [](std::span<const Keyed> sorted, std::size_t k, Key key) {
    while (k < sorted.size() && key_of(sorted[k]) == key) ++k;
    return k;
  };
  std::fill(b.room().begin(), b.room().end(), 0);
  for (std::size_t i = 0, j = 0; i < a.entries().size();) {
    const Key key = key_of(a.entries()[i]);
    while (j < b.entries().size() && key_of(b.entries()[j]) < key) ++j;
    const std::size_t i_end = equals_end(a.entries(), i, key);
    const std::size_t j_end = equals_end(b.entries(), j, key);
    for (std::size_t k = i; k < i_end; ++k) a.room()[index_of(a.entries()[k])] = j_end - j;
    for (std::size_t k = j; k < j_end; ++k) b.room()[index_of(b.entries()[k])] = i_end - i;
    i = i_end;
    j = j_end;
  }
}

}  // namespace

std::int32_t join(std::span<const RawWord> a, std::span<const RawWord> b,
                  std::span<RawWord> joined) {
  std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), joined.begin()));
  return static_cast<std::int32_t>(joined.size());
}

void insert(std::span<RawWord> list, std::int32_t position, RawWord value) {
  if (position < 1 || static_cast<std::size_t>(position) > list.size()) return;
  const auto place = list.begin() + (position - 1);
  std::copy_backward(place, list.end() - 1, list.end());
  *place = value;
}

std::int32_t keep_distinct(std::span<std::int32_t> list) {
  return keep_frequent(list, 1);
}

std::int32_t keep_repeated(std::span<std::int32_t> list) {
  return keep_frequent(list, 2);
}

Comparison compare(std::span<const std::int32_t> a, std::span<const std::int32_t> b,
                   std::int32_t common[], std::int32_t differing[]) {
  if (std::min(a.size(), b.size()) >= fewest_to_sort) {
    const auto sorted_a = sort_by_value(a), sorted_b = sort_by_value(b);
    if (sorted_a && sorted_b) {
      count_equals(sorted_a, sorted_b);
      return write(
          a, b, [&](std::size_t i) { return index_of(sorted_a.room()[i]); },
          [&](std::size_t j) { return index_of(sorted_b.room()[j]); }, common, differing);
    }
  }
  return write(
      a, b, [&](std::size_t i) { return std::count(b.begin(), b.end(), a[i]); },
      [&](std::size_t j) { return std::count(a.begin(), a.end(), b[j]); }, common, differing);
}

}  // namespace kez
