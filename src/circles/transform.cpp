#include "transform.h"

#include <cmath>

#include "../frame/points.h"
#include "../frame/tolerance.h"

namespace kez {

void translate(std::span<float> xs, std::span<float> ys, Vec2 origin) noexcept {
  for (float& x : xs) x -= origin.x;
  for (float& y : ys) y -= origin.y;
}

namespace {

// From 0 to 2 pi.
float polar_angle(Vec2 v) noexcept {
  // A negative zero would turn the quotient's sign, and the point to the other side.
  const float x = v.x + 0.0f;
  const float phi = std::atan(v.y / x);
  if (x < 0) return phi + pi;
  return v.y < 0 ? phi + 2 * pi : phi;
}

}  // namespace

TurnedPoint turn_about(Vec2 centre, Vec2 p, float angle) noexcept {
  const Vec2 v = p - centre;
  const float r = length(v);
  if (r <= tolerance) return {std::nullopt, v};
  const float psi = polar_angle(v) + angle;
  return {Vec2{r * std::cos(psi), r * std::sin(psi)} + centre, v + centre};
}

}  // namespace kez
