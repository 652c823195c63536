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

// Joins term(0) .. term(count - 1) to the start in several lanes, which the compiler keeps in one
// vector register, and then joins the lanes. The grouping is fixed, so every build rounds alike.
template <typename Term, typename Join>
float join_terms(std::size_t count, float start, Term term, Join join) {
  std::array<float, 8> lanes;
  lanes.fill(start);
  std::size_t i = 0;
  for (; i + lanes.size() <= count; i += lanes.size()) {
    for (std::size_t lane = 0; lane < lanes.size(); ++lane) join(lanes[lane], term(i + lane));
  }
  for (; i < count; ++i) join(start, term(i));
  for (const float lane : lanes) join(start, lane);
  return start;
}

template <typename Term>
float sum(std::size_t count, Term term) {
  return join_terms(count, 0, term, [](float& total, float x) { total += x; });
}

// To compare with: it does not tell +0 from -0. Not-a-number is never the largest; of no entries it
// is the most negative finite value.
template <typename Entry>
float largest(std::size_t count, Entry entry) {
  return join_terms(count, std::numeric_limits<float>::lowest(), entry,
                    [](float& top, float x) { top = x > top ? x : top; });
}

inline float largest(std::span<const float> list) {
  return largest(list.size(), [list](std::size_t i) { return list[i]; });
}

}  // namespace kez
