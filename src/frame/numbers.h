// Conversions from and to the interface's integers, which are defined for every input, and sums and
// maxima of long lists.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <type_traits>

namespace kez {

// The number that the interface publishes for a relation, position or status.
template <typename Code>
constexpr std::int32_t code_of(Code value) {
  static_assert(std::is_enum_v<Code>);
  return static_cast<std::int32_t>(value);
}

// The code that a host's number stands for. Any number is a value of the enumeration; functions
// that take one say what a number without a name means.
template <typename Code>
constexpr Code from_code(std::int32_t number) {
  static_assert(std::is_same_v<std::underlying_type_t<Code>, std::int32_t>);
  return static_cast<Code>(number);
}

// The interface counts entries from 1.
constexpr std::int32_t position_of(std::size_t index) {
  return static_cast<std::int32_t>(index) + 1;
}

// Of a number that is not negative; beyond the integers the largest, and 0 for not-a-number.
inline std::int32_t truncate(float value) {
  if (value >= 2147483648.0f) return std::numeric_limits<std::int32_t>::max();
  return std::isnan(value) ? 0 : static_cast<std::int32_t>(value);
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

// The largest of entry(0) .. entry(count - 1), to compare with: it does not tell +0 from -0. In
// several lanes, like sum(). Not-a-number is never the largest; of no entries it is the most
// negative finite value.
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
