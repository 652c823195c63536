// The equation k2 t^2 + k1 t + k0 = 0 that circle constructions end in. Which of its cases holds is
// for each of them to judge by the discriminant.
#pragma once

#include "../frame/quiet.h"

namespace kez {

struct Quadratic {
  float k2, k1, k0;

  float discriminant() const { return k1 * k1 - k2 * 4 * k0; }

  // Where the discriminant counts as zero.
  float double_root() const { return -quotient(k1, k2) * 0.5f; }

  // s is the square root of the discriminant.
  float first_root(float s) const { return (s - k1) / k2 * 0.5f; }
  float second_root(float s) const { return -(k1 + s) / k2 * 0.5f; }
};

}  // namespace kez
