// The results of IEEE 754 without its exceptions, for where a degenerate value on the way leaves a
// call's results proper. Hosts may have the exceptions unmasked, and then die of one.
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

// a / b.
inline float quotient(float a, float b) {
  if (b != 0) return a / b;
  if (a == 0) return not_a_number;
  return a * std::copysign(std::numeric_limits<float>::infinity(), b);
}

// Not-a-number below zero.
inline float square_root(float a) {
  return std::isless(a, 0.0f) ? not_a_number : std::sqrt(a);
}

// Not-a-number for what rounding has put beyond 1.
inline float arc_cosine(float a) {
  return std::isgreater(std::fabs(a), 1.0f) ? not_a_number : std::acos(a);
}

}  // namespace kez
