// Kinds of plane figures, and outlines as two lists of coordinates, whose last entries are the
// place for the closing vertex.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

// The numbers are those of the area routines and of section contours; any other is no figure.
enum class Figure : std::int32_t {
  area_at_point = 1,
  polygon = 2,
  circle = 3,
  segment = 4,  // centre and the two ends of the chord
  complement = 5,
};

// Entries of each list: n vertices and the place for the closing one. Below 0 vertices that place
// would lie before the lists, and there is none.
inline std::size_t outline_size(std::int32_t n) noexcept {
  return n >= 0 ? static_cast<std::size_t>(n) + 1 : 0;
}

inline void close_outline(std::span<float> xs, std::span<float> ys) noexcept {
  if (xs.empty()) return;
  xs.back() = xs.front();
  ys.back() = ys.front();
}

}  // namespace kez
