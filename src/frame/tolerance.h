// The library's tolerance and the two tests that use it. Unlike the operators they raise no
// exception for not-a-number: hosts may trap it.
#pragma once

#include <cmath>

namespace kez {

inline constexpr float tolerance = 1.0e-5f;

// A difference of exactly the tolerance counts as equal; not-a-number equals nothing.
inline bool equal(float a, float b) {
  return std::islessequal(std::fabs(a - b), tolerance);
}

// Not the opposite of equal(a, 0): not-a-number is neither.
inline bool non_zero(float a) {
  return std::isgreater(std::fabs(a), tolerance);
}

}  // namespace kez
