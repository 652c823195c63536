// The circle as the coefficients of its equation, and what it has in common with a line or circle.
#pragma once

#include <cmath>
#include <cstdint>

#include "../frame/quiet.h"
#include "../frame/tolerance.h"
#include "../frame/types.h"
#include "quadratic.h"

namespace kez {

inline Circle circle_about(Vec2 centre, float radius) {
  return {-2 * centre.x, -2 * centre.y,
          centre.x * centre.x + centre.y * centre.y - radius * radius};
}

// As many of the points as `count` says; the others are not to be read.
struct Crossings {
  std::int32_t count;
  Vec2 first, second;
};

// The real roots, the one with the positive root of the discriminant first. One root where the
// discriminant is within the tolerance of zero, whatever the size of the coefficients.
struct Roots {
  std::int32_t count;
  float first, second;
};

inline Roots solve(Quadratic equation) {
  const float discriminant = equation.discriminant();
  if (equal(discriminant, 0)) return {1, equation.double_root(), 0};
  if (discriminant < 0) return {0, 0, 0};
  const float s = std::sqrt(discriminant);
  return {2, equation.first_root(s), equation.second_root(s)};
}

inline Crossings intersect_line_circle(Line line, Circle circle) {
  const float a = line.a, b = line.b, c = line.c;
  const float d = circle.d, e = circle.e, f = circle.f;

  if (non_zero(a)) {
    // x = -(b y + c) / a leaves a quadratic in y.
    const float a2 = a * a;
    const Roots roots = solve({a2 + b * b, (2 * c - d * a) * b + e * a2, (c - d * a) * c + f * a2});
    const auto point_at = [=](float y) { return Vec2{(b * y + c) / -a, y}; };
    return {roots.count, point_at(roots.first), point_at(roots.second)};
  }
  // Deliberate: the horizontal line b y + c = 0, whatever is left of a (kezlci).
  const float b2 = b * b;
  const Roots roots = solve({b2, d * b2, (c - e * b) * c + f * b2});
  const float y = quotient(-c, b);
  return {roots.count, {roots.first, y}, {roots.second, y}};
}

inline Crossings intersect_circles(Circle p, Circle q) {
  const Line radical = {q.d - p.d, q.e - p.e, q.f - p.f};
  if (std::fabs(radical.a) + std::fabs(radical.b) <= tolerance) return {};
  return intersect_line_circle(radical, p);
}

}  // namespace kez
