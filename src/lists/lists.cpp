#include "lists.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "../frame/keys.h"
#include "../frame/work_list.h"

namespace kez {

namespace {

// The marker is the largest entry plus 1. Above the largest integer it wraps to the smallest: then
// the markers come first in the order, and no entry is below them.
std::int32_t mark_behind(std::span<std::int32_t> list, std::size_t kept, std::int32_t largest) {
  const auto marker = static_cast<std::int32_t>(static_cast<std::uint32_t>(largest) + 1);
  const auto tail = list.subspan(kept);
  std::fill(tail.begin(), tail.end(), marker);
  if (marker > largest) return static_cast<std::int32_t>(kept);
  std::rotate(list.begin(), tail.begin(), list.end());
  return 0;
}

}  // namespace

std::int32_t join(std::span<const RawWord> a, std::span<const RawWord> b, RawWord joined[]) {
  RawWord* const end = std::copy(b.begin(), b.end(), std::copy(a.begin(), a.end(), joined));
  return static_cast<std::int32_t>(end - joined);
}

void insert(std::span<RawWord> list, std::int32_t position, RawWord value) {
  if (position < 1 || static_cast<std::size_t>(position) > list.size()) return;
  const auto place = list.begin() + (position - 1);
  std::copy_backward(place, list.end() - 1, list.end());
  *place = value;
}

std::int32_t keep_distinct(std::span<std::int32_t> list) {
  if (list.empty()) return 0;
  sort_ascending(list);
  const std::int32_t largest = list.back();
  const auto kept = std::unique(list.begin(), list.end()) - list.begin();
  return mark_behind(list, static_cast<std::size_t>(kept), largest);
}

std::int32_t keep_repeated(std::span<std::int32_t> list) {
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

// From this length on, as measured, sorting first is faster than looking at every pair.
constexpr std::size_t fewest_to_sort = 80;

class Comparing {
 public:
  Comparing(std::span<const std::int32_t> a, std::span<const std::int32_t> b, std::int32_t common[],
            std::int32_t differing[])
      : a_(a), b_(b), common_(common), differing_(differing) {}

  // The two functions say how often the entry of one list at an index stands in the other list.
  template <typename InB, typename InA>
  Comparison write(InB in_b, InA in_a) const {
    std::int32_t* common_end = common_;
    std::int32_t* differing_end = differing_;
    for (std::size_t i = 0; i < a_.size(); ++i) {
      const auto times = in_b(i);
      if (times == 0) *differing_end++ = a_[i];
      common_end = std::fill_n(common_end, times, a_[i]);
    }
    for (std::size_t j = 0; j < b_.size(); ++j) {
      if (in_a(j) == 0) *differing_end++ = b_[j];
    }
    return {static_cast<std::int32_t>(common_end - common_),
            static_cast<std::int32_t>(differing_end - differing_)};
  }

  Comparison by_pairs() const {
    return write([this](std::size_t i) { return std::count(b_.begin(), b_.end(), a_[i]); },
                 [this](std::size_t j) { return std::count(a_.begin(), a_.end(), b_[j]); });
  }

  // Nothing where there is no memory.
  std::optional<Comparison> by_sorting() const {
    const std::size_t n = a_.size() + b_.size();
    WorkList<Keyed> memory(2 * n);
    if (!memory) return std::nullopt;
    const auto entries = memory.entries().first(n);
    for (std::size_t i = 0; i < a_.size(); ++i) entries[i] = keyed(key_of(a_[i]), i);
    for (std::size_t i = a_.size(); i < n; ++i) entries[i] = keyed(key_of(b_[i - a_.size()]), i);
    const auto sorted = sort_keys(entries, memory.entries().last(n));
    const auto times = sorted.room;
    count(sorted.entries, times);
    return write([&](std::size_t i) { return index_of(times[i]); },
                 [&](std::size_t j) { return index_of(times[a_.size() + j]); });
  }

 private:
  // Among equal entries of the lists in one those of a come first.
  void count(std::span<const Keyed> sorted, std::span<Keyed> times) const {
    for (std::size_t begin = 0, middle = 0, end = 0; begin < sorted.size(); begin = end) {
      const Key key = key_of(sorted[begin]);
      const auto equal = [&](std::size_t k) {
        return k < sorted.size() && key_of(sorted[k]) == key;
      };
      for (middle = begin; equal(middle) && index_of(sorted[middle]) < a_.size();) ++middle;
      for (end = middle; equal(end);) ++end;
      for (std::size_t k = begin; k < middle; ++k) times[index_of(sorted[k])] = end - middle;
      for (std::size_t k = middle; k < end; ++k) times[index_of(sorted[k])] = middle - begin;
    }
  }

  std::span<const std::int32_t> a_, b_;
  std::int32_t *common_, *differing_;
};

}  // namespace

Comparison compare(std::span<const std::int32_t> a, std::span<const std::int32_t> b,
                   std::int32_t common[], std::int32_t differing[]) {
  const Comparing comparing(a, b, common, differing);
  if (std::min(a.size(), b.size()) < fewest_to_sort) return comparing.by_pairs();
  const auto result = comparing.by_sorting();
  return result ? *result : comparing.by_pairs();
}

}  // namespace kez
