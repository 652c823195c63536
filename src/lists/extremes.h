// The largest entry of a real list, to compare with: zeros of either sign are one.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <span>

namespace kez {

// Of entry(0) .. entry(count - 1), in several lanes, as sum() goes (frame/numbers.h). Not-a-number
// is never the largest; of no entries it is the most negative finite value.
template <typename Entry>
float largest(std::size_t count, Entry entry) {
  std::array<float, 8> tops;
  tops.fill(std::numeric_limits<float>::lowest());
  const auto raise = [](float& top, float x) { top = x > top ? x : top; };
  std::size_t i = 0;
  for (; i + tops.size() <= count; i += tops.size()) {
    for (std::size_t lane = 0; lane < tops.size(); ++lane) raise(tops[lane], entry(i + lane));
  }
  for (; i < count; ++i) raise(tops[0], entry(i));
  for (const float top : tops) raise(tops[0], top);
  return tops[0];
}

inline float largest(std::span<const float> list) {
  return largest(list.size(), [list](std::size_t i) { return list[i]; });
}

}  // namespace kez
