// Rotation in a coordinate plane about the origin.
#pragma once

#include <cmath>
#include <cstdint>

#include "point_lists.h"
#include "types.h"

namespace kez {

// A positive angle rotates the first coordinate towards the second.
struct Rotation {
  float sine, cosine;
};

// Any other number means forwards too.
enum class Sense : std::int32_t { forwards = 0, backwards = 1 };

// Exact: rotating back differs in the sign of the sine only.
inline Rotation inverse(Rotation r) {
  return {-r.sine, r.cosine};
}

inline Rotation rotation_by(float angle, Sense sense = Sense::forwards) {
  const Rotation forwards = {std::sin(angle), std::cos(angle)};
  return sense == Sense::backwards ? inverse(forwards) : forwards;
}

inline Vec2 rotate(Rotation r, Vec2 p) {
  return {r.cosine * p.x - r.sine * p.y, r.sine * p.x + r.cosine * p.y};
}

void rotate_each(Rotation r, const PlanePoints& points);

}  // namespace kez
