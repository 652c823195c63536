// Conversions from and to the interface's integers, none of which an input may make undefined, and
// sums over long lists.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace kez {

// The number that the interface publishes for a relation, position or status.
template <typename Code>
constexpr std::int32_t code_of(Code value) {
  static_assert(std::is_enum_v<Code>);
  return static_cast<std::int32_t>(value);
}

// What a host's number asks for. Any number is a value of the enumeration, and what takes the value
// says what one without a name means.
template <typename Code>
constexpr Code from_code(std::int32_t number) {
  static_assert(std::is_same_v<std::underlying_type_t<Code>, std::int32_t>);
  return static_cast<Code>(number);
}

// The interface counts entries from 1.
constexpr std::int32_t position_of(std::size_t index) {
  return static_cast<std::int32_t>(index) + 1;
}

// Toward zero; beyond the integers the nearest of them, and 0 for not-a-number.
inline std::int32_t truncate(float value) {
  constexpr float limit = 2147483648.0f;
  if (value >= limit) return std::numeric_limits<std::int32_t>::max();
  if (value <= -limit) return std::numeric_limits<std::int32_t>::min();
  return value == value ? static_cast<std::int32_t>(value) : 0;
}

inline std::int32_t successor(std::int32_t value) {
  return value < std::numeric_limits<std::int32_t>::max() ? value + 1 : value;
}

// The sum of term(0) .. term(count - 1) in partial sums of their own, which the compiler keeps in
// one vector register; the grouping is fixed, so every build rounds alike.
template <typename Term>
float sum(std::size_t count, Term term) {
  std::array<float, 8> partial{};
  std::size_t i = 0;
  for (; i + partial.size() <= count; i += partial.size()) {
    for (std::size_t lane = 0; lane < partial.size(); ++lane) partial[lane] += term(i + lane);
  }
  float total = 0;
  for (; i < count; ++i) total += term(i);
  for (const float part : partial) total += part;
  return total;
}

}  // namespace kez
