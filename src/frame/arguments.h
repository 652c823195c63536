// What the exported shells are made of: the interface's declarations, and the passage from the
// caller's variables to values and back. A shell loads every input before it stores a result, so
// that a host may pass one variable for several arguments.
#pragma once

#if defined(_WIN32)
#define KEZ_API  // the module-definition file exports
#else
#define KEZ_API __attribute__((visibility("default")))
#endif
#include "kezlib.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <type_traits>

#include "numbers.h"
#include "point_lists.h"
#include "types.h"

namespace kez {

inline Vec2 load(const float* x, const float* y) {
  return {*x, *y};
}

inline Vec3 load(const float* x, const float* y, const float* z) {
  return {*x, *y, *z};
}

inline Segment<Vec3> load_segment(const float* x1, const float* y1, const float* z1,
                                  const float* x2, const float* y2, const float* z2) {
  return {load(x1, y1, z1), load(x2, y2, z2)};
}

// From the first end of a segment to its second.
inline Vec3 load_vector(const float* x1, const float* y1, const float* z1, const float* x2,
                        const float* y2, const float* z2) {
  return load_segment(x1, y1, z1, x2, y2, z2).vector();
}

// A line, plane or circle by the coefficients of its equation.
template <typename Equation, std::same_as<float>... Real>
Equation load(const Real*... coefficients) {
  return {*coefficients...};
}

// A result of so many reals: a point, a line, a circle. Copied one by one, so that they stay in
// registers.
template <typename Result, std::same_as<float>... Real>
requires std::is_aggregate_v<Result> &&
    (sizeof(Result) == sizeof...(Real) * sizeof(float)) void store(const Result& result,
                                                                   Real*... to) {
  const auto* from = reinterpret_cast<const std::byte*>(&result);
  const auto next = [&from] {
    float real;
    std::memcpy(&real, from, sizeof real);
    from += sizeof real;
    return real;
  };
  ((*to = next()), ...);
}

// Without a result the caller's variables stay as they are.
template <typename Result, typename... Variable>
void store(const std::optional<Result>& result, Variable*... to) {
  if (result) store(*result, to...);
}

// A count below 1 means an empty list.
inline std::size_t size_of(std::int32_t n) {
  return n > 0 ? static_cast<std::size_t>(n) : 0;
}

// The caller's list of n entries.
template <typename T>
std::span<T> entries(T* first, std::int32_t n) {
  return {first, size_of(n)};
}

// The caller's n points.
template <typename Real>
PlaneList<Real> points(Real* xs, Real* ys, std::int32_t n) {
  return {xs, ys, size_of(n)};
}
template <typename Real>
SpaceList<Real> points(Real* xs, Real* ys, Real* zs, std::int32_t n) {
  return {xs, ys, zs, size_of(n)};
}

// The caller's n vertices and the place for the closing one.
inline PlanePoints outline(float* xs, float* ys, std::int32_t n) {
  return {xs, ys, size_with_place(n)};
}

}  // namespace kez
