// Turning in a coordinate plane about the origin.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

#include "numbers.h"
#include "types.h"

namespace kez {

// A positive angle turns the first coordinate towards the second.
struct Rotation {
  float sine, cosine;
};

enum class Sense : std::int32_t { forwards = 0, backwards = 1 };

// Hosts pass 1 to turn backwards and anything else to turn forwards.
inline Sense sense_of(std::int32_t mode) noexcept {
  return mode == number(Sense::backwards) ? Sense::backwards : Sense::forwards;
}

// Exact: turning back differs in the sign of the sine only.
inline Rotation inverse(Rotation r) noexcept {
  return {-r.sine, r.cosine};
}

inline Rotation rotation_by(float angle, Sense sense = Sense::forwards) noexcept {
  const Rotation forwards = {std::sin(angle), std::cos(angle)};
  return sense == Sense::backwards ? inverse(forwards) : forwards;
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
