#include "lists.h"

#include <algorithm>
#include <cstddef>

#include "work_list.h"

namespace kez {

namespace {

// The marker is the largest entry plus 1. Above the largest integer it wraps to the smallest: then
// the markers come first in the order, and no entry is below them.
std::int32_t mark_behind(std::span<std::int32_t> list, std::size_t kept,
                         std::int32_t largest) noexcept {
  const auto marker = static_cast<std::int32_t>(static_cast<std::uint32_t>(largest) + 1);
  const auto tail = list.subspan(kept);
  std::fill(tail.begin(), tail.end(), marker);
  if (marker > largest) return static_cast<std::int32_t>(kept);
  std::rotate(list.begin(), tail.begin(), list.end());
  return 0;
}

}  // namespace

std::int32_t join(std::span<const RawWord> a, std::span<const RawWord> b,
                  RawWord joined[]) noexcept {
  RawWord* const end = std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), joined));
  return static_cast<std::int32_t>(end - joined);
}

void insert(std::span<RawWord> list, std::int32_t position, RawWord value) noexcept {
  if (position < 1 || static_cast<std::size_t>(position) > list.size()) return;
  const auto place = list.begin() + (position - 1);
  std::copy_backward(place, list.end() - 1, list.end());
  *place = value;
}

std::int32_t keep_distinct(std::span<std::int32_t> list) noexcept {
  if (list.empty()) return 0;
  sort_ascending(list);
  const std::int32_t largest = list.back();
  const auto kept = std::unique(list.begin(), list.end()) - list.begin();
  return mark_behind(list, static_cast<std::size_t>(kept), largest);
}

std::int32_t keep_repeated(std::span<std::int32_t> list) noexcept {
  if (list.empty()) return 0;
  sort_ascending(list);
  const std::int32_t largest = list.back();
  std::size_t kept = 0;
  for (std::size_t begin = 0, end = 0; begin < list.size(); begin = end) {
    const std::int32_t value = list[begin];
    while (end < list.size() && list[end] == value) ++end;
    if (end - begin > 1) list[kept++] = value;
  }
  return mark_behind(list, kept, largest);
}

namespace {

// How often a value stands in a list: for a long list by a sorted copy, where there is memory.
class Occurrences {
 public:
  explicit Occurrences(std::span<const std::int32_t> list) noexcept
      : list_(list),
        copy_(list.size() < long_list ? 0 : list.size()),
        sorted_(list.size() >= long_list && copy_) {
    if (!sorted_) return;
    std::copy(list.begin(), list.end(), copy_.entries().begin());
    sort_ascending(copy_.entries());
  }

  std::ptrdiff_t of(std::int32_t value) const noexcept {
    if (!sorted_) return std::count(list_.begin(), list_.end(), value);
    const auto sorted = copy_.entries();
    const auto [begin, end] = std::equal_range(sorted.begin(), sorted.end(), value);
    return end - begin;
  }

 private:
  std::span<const std::int32_t> list_;
  WorkList<std::int32_t> copy_;
  bool sorted_;
};

}  // namespace

Comparison compare(std::span<const std::int32_t> a, std::span<const std::int32_t> b,
                   std::int32_t common[], std::int32_t differing[]) noexcept {
  const Occurrences in_a(a), in_b(b);
  std::int32_t* common_end = common;
  std::int32_t* differing_end = differing;
  for (const std::int32_t value : a) {
    const std::ptrdiff_t times = in_b.of(value);
    if (times == 0) *differing_end++ = value;
    common_end = std::fill_n(common_end, times, value);
  }
  for (const std::int32_t value : b) {
    if (in_a.of(value) == 0) *differing_end++ = value;
  }
  return {static_cast<std::int32_t>(common_end - common),
          static_cast<std::int32_t>(differing_end - differing)};
}

}  // namespace kez
