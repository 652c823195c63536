// Kinds of plane figures.
#pragma once

#include <cstdint>

namespace kez {

// The numbers are those of the area routines and of section contours; any other is no figure.
enum class Figure : std::int32_t {
  area_at_point = 1,
  polygon = 2,
  circle = 3,
  segment = 4,  // centre and the two ends of the chord
  complement = 5,
};

}  // namespace kez
