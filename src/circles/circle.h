// The circle as the coefficients of its equation, and what it has in common with a line or circle.
#pragma once

#include <cmath>
#include <cstdint>

#include "../frame/points.h"
#include "../frame/quiet.h"
#include "../frame/tolerance.h"
#include "../frame/types.h"

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

// The equation k2 t^2 + k1 t + k0 = 0 that circle constructions end in. Each construction judges by
// the discriminant which of its cases holds.
struct Quadratic {
  float k2, k1, k0;

  float discriminant() const { return k1 * k1 - k2 * 4 * k0; }

  // Where the discriminant counts as zero.
  float double_root() const { return -quiet::divide(k1, k2) * 0.5f; }

  // s is the square root of the discriminant.
  float first_root(float s) const { return (s - k1) / k2 * 0.5f; }
  float second_root(float s) const { return -(k1 + s) / k2 * 0.5f; }
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
  const float y = quiet::divide(-c, b);
  return {roots.count, {roots.first, y}, {roots.second, y}};
}

inline Crossings intersect_circles(Circle p, Circle q) {
  const Line radical = {q.d - p.d, q.e - p.e, q.f - p.f};
  if (at_most_tolerance(std::fabs(radical.a) + std::fabs(radical.b))) return {};
  return intersect_line_circle(radical, p);
}

// Where a circle lies against a dividing line and the x axis.
enum class Region : std::int32_t {
  circle_in_positive = 1,
  circle_in_negative = 2,
  segment_in_positive = 3,
  complement_in_positive = 4,
};

struct RegionFinding {
  Region region;
  Crossings crossings;
};

// The circle about `centre` through p.
inline RegionFinding classify_region(Vec2 centre, Vec2 p, Line line) {
  const Crossings crossings =
      intersect_line_circle(line, circle_about(centre, distance(centre, p)));
  // A centre on the axis counts as negative where the line misses and as positive where it cuts.
  if (crossings.count == 2) {
    return {centre.y < 0 ? Region::segment_in_positive : Region::complement_in_positive, crossings};
  }
  return {centre.y > 0 ? Region::circle_in_positive : Region::circle_in_negative, crossings};
}

}  // namespace kez
