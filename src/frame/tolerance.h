// The library's tolerance and the tests that use it. Unlike the operators they raise no exception
// for not-a-number, which hosts may trap: it passes none of them.
#pragma once

#include <cmath>

namespace kez {

inline constexpr float tolerance = 1.0e-5f;

inline bool at_most_tolerance(float a) {
  return std::islessequal(a, tolerance);
}
inline bool above_tolerance(float a) {
  return std::isgreater(a, tolerance);
}

// Strict: exactly the tolerance counts as more.
inline bool below_tolerance(float a) {
  return std::isless(a, tolerance);
}
inline bool at_least_tolerance(float a) {
  return std::isgreaterequal(a, tolerance);
}

inline bool equal(float a, float b) {
  return at_most_tolerance(std::fabs(a - b));
}

// Not the opposite of equal(a, 0): not-a-number is neither.
inline bool non_zero(float a) {
  return above_tolerance(std::fabs(a));
}

}  // namespace kez
