#include "local_frame.h"

#include <cmath>

#include "../frame/points.h"
#include "../frame/quiet.h"
#include "../frame/tolerance.h"

namespace kez {

namespace {

// From 0 to 2 pi.
float polar_angle(Vec2 v) {
  // Turns a negative zero into zero: it would change the sign of the quotient and put the point on
  // the other side.
  const float x = v.x + 0.0f;
  const float phi = std::atan(quiet::divide(v.y, x));
  if (x < 0) return phi + pi;
  return v.y < 0 ? phi + 2 * pi : phi;
}

}  // namespace

RotatedPoint rotate_about(Vec2 centre, Vec2 p, float angle) {
  const Vec2 v = p - centre;
  const float r = length(v);
  if (at_most_tolerance(r)) return {std::nullopt, v};
  const float psi = polar_angle(v) + angle;
  return {Vec2{r * std::cos(psi), r * std::sin(psi)} + centre, v + centre};
}

}  // namespace kez
