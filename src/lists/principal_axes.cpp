#include "principal_axes.h"

#include <cmath>

#include "../frame/quiet.h"

namespace kez {

PrincipalAxes principal_axes(float p, float q, float r) {
  // Relative to the sum. If all moments are zero, 0 / 0 counts as small too.
  if (!std::isgreater(std::fabs(quiet::divide(r, p + q)), 1.0e-8f)) return {p, q, 0};

  const float d = q - p;
  if (std::fabs(d) < 1.0e-12f) return {(p + q) * 0.5f - r, (p + q) * 0.5f + r, 0.7853982f};

  // The product moment in the turned axes, r cos 2 theta - d/2 sin 2 theta, vanishes.
  const float theta = 0.5f * std::atan(2 * r / d);
  const float s = std::sin(theta), c = std::cos(theta);
  const float s2 = s * s, c2 = c * c, product = 2 * r * s * c;
  return {p * c2 + q * s2 - product, p * s2 + q * c2 + product, theta};
}

}  // namespace kez
