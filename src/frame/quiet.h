// Division, root and arc cosine with the IEEE result but no floating-point exception, for
// intermediate values that may be degenerate in a valid call. Hosts may have the exceptions
// unmasked, and then one of them ends the process.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

namespace kez {

// The one that an invalid operation of the processor gives.
#if defined(__SSE__)
inline constexpr auto not_a_number = std::bit_cast<float>(std::uint32_t{0xffc00000});
#else
inline constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();
#endif

namespace quiet {

inline float divide(float a, float b) {
  if (b != 0) return a / b;
  if (a == 0) return not_a_number;
  return a * std::copysign(std::numeric_limits<float>::infinity(), b);
}

inline float sqrt(float a) {
  return std::isless(a, 0.0f) ? not_a_number : std::sqrt(a);
}

// Rounding may have put a cosine beyond 1.
inline float acos(float a) {
  return std::isgreater(std::fabs(a), 1.0f) ? not_a_number : std::acos(a);
}

}  // namespace quiet

}  // namespace kez
