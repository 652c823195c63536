// The circle as the coefficients of its equation, and what it has in common with a line or circle.
#pragma once

#include <cstdint>

#include "../frame/types.h"

namespace kez {

Circle circle_about(Vec2 centre, float radius) noexcept;

// As many of the points as `count` says; the others are not to be read.
struct Crossings {
  std::int32_t count;
  Vec2 first, second;
};

Crossings intersect_line_circle(Line line, Circle circle) noexcept;
Crossings intersect_circles(Circle p, Circle q) noexcept;

}  // namespace kez
