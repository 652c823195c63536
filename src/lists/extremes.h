// The largest and the smallest entry of a real list, to compare with: zeros of either sign are one.
#pragma once

#include <array>
#include <cstddef>
#include <limits>
#include <span>

namespace kez {

// In several lanes, as sum() goes (frame/numbers.h). Not-a-number never replaces, nor is replaced.
template <typename Replaces>
float extreme(std::span<const float> list, float start, Replaces replaces) noexcept {
  std::array<float, 8> best;
  best.fill(start);
  std::size_t i = 0;
  for (; i + best.size() <= list.size(); i += best.size()) {
    for (std::size_t lane = 0; lane < best.size(); ++lane) {
      best[lane] = replaces(list[i + lane], best[lane]) ? list[i + lane] : best[lane];
    }
  }
  for (; i < list.size(); ++i) best[0] = replaces(list[i], best[0]) ? list[i] : best[0];
  for (const float lane : best) best[0] = replaces(lane, best[0]) ? lane : best[0];
  return best[0];
}

// Of an empty list the most negative finite value.
inline float largest(std::span<const float> list) noexcept {
  return extreme(list, std::numeric_limits<float>::lowest(),
                 [](float a, float b) { return a > b; });
}

inline float smallest(std::span<const float> list, float start) noexcept {
  return extreme(list, start, [](float a, float b) { return a < b; });
}

}  // namespace kez
