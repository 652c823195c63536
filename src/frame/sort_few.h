// Sorting a few entries by counting for each those that come before it. A processor guesses every
// second comparison of unsorted entries wrong, which takes longer than ten of them: nothing here
// branches on one.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <span>

#include "four.h"

namespace kez {

// Four 32-bit numbers are compared at once, longer ones one by one.
template <typename T>
inline constexpr std::size_t few = sizeof(T) == 4 ? 40 : 20;

// How many of the list come before each of the four entries from the given one on; of equal entries
// the first does.
template <typename T>
Four<std::int32_t> count_before(std::span<const T> list, std::size_t first) {
  const Four<T> four = four_from(&list[first]);
  const Four<std::int32_t> lanes = {0, 1, 2, 3};
  Four<std::int32_t> less{};  // each comparison is -1 or 0
  std::size_t j = 0;
  for (; j < first; ++j) less += four_times(list[j]) <= four;
  for (std::int32_t lane = 0; lane < 4; ++lane, ++j) {
    const Four<T> x = four_times(list[j]);
    less += (x < four) | ((x == four) & (lanes > lane));
  }
  for (; j < list.size(); ++j) less += four_times(list[j]) < four;
  return -less;
}

template <typename T>
void count_before_each(std::span<const T> list, std::int32_t ranks[]) {
  if constexpr (sizeof(T) == 4) {
    for (std::size_t i = 0; i < list.size(); i += 4) {
      const std::size_t first = std::min(i, list.size() - 4);
      const auto four = count_before(list, first);
      std::memcpy(ranks + first, &four, sizeof four);
    }
    return;
  }
  for (std::size_t i = 0; i < list.size(); ++i) {
    std::int32_t rank = 0;
    for (std::size_t j = 0; j < i; ++j) {
      const bool before = list[i] < list[j];
      ranks[j] += before;
      rank += !before;
    }
    ranks[i] = rank;
  }
}

// At most few<T> of them. Of equal entries any may come first, and reals must compare.
template <typename T>
void sort_few(std::span<T> list) {
  if (list.size() < 4) {
    for (std::size_t i = 1; i < list.size(); ++i) {
      for (std::size_t j = i; j > 0; --j) {
        const T x = list[j - 1], y = list[j];
        list[j - 1] = std::min(x, y);
        list[j] = std::max(x, y);
      }
    }
    return;
  }
  std::array<T, few<T>> sorted;
  std::array<std::int32_t, few<T>> ranks;
  count_before_each(std::span<const T>(list), ranks.data());
  for (std::size_t i = 0; i < list.size(); ++i)
    sorted[static_cast<std::size_t>(ranks[i])] = list[i];
  std::copy_n(sorted.begin(), list.size(), list.begin());
}

// Any number of them, where there is no memory to sort by digits: never in quadratic time, and in
// half the code of std::sort. Ascending by default.
template <typename T, typename Less = std::less<>>
void sort_without_memory(std::span<T> list, Less less = {}) {
  std::make_heap(list.begin(), list.end(), less);
  std::sort_heap(list.begin(), list.end(), less);
}

}  // namespace kez
