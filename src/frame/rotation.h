// Turning in a coordinate plane about the origin.
#pragma once

#include <cmath>
#include <cstddef>
#include <span>

#include "types.h"

namespace kez {

// A positive angle turns the first coordinate towards the second.
struct Rotation {
  float sine, cosine;
};

inline Rotation rotation_by(float angle) noexcept {
  return {std::sin(angle), std::cos(angle)};
}

// Exact: turning back differs in the sign of the sine only.
inline Rotation inverse(Rotation r) noexcept {
  return {-r.sine, r.cosine};
}

inline Vec2 turned(Rotation r, Vec2 p) noexcept {
  return {r.cosine * p.x - r.sine * p.y, r.sine * p.x + r.cosine * p.y};
}

inline void turn(Rotation r, std::span<float> ps, std::span<float> qs) noexcept {
  for (std::size_t i = 0; i < ps.size(); ++i) {
    const Vec2 p = turned(r, {ps[i], qs[i]});
    ps[i] = p.x;
    qs[i] = p.y;
  }
}

}  // namespace kez
