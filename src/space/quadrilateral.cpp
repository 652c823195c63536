#include "quadrilateral.h"

#include "../frame/points.h"

namespace kez {

namespace {

// Whether the fan's triangles a b c and a c d turn against each other: then b and d lie on one side
// of the diagonal a c. A product of zero or not-a-number does not say so.
bool crosses_itself(Vec3 a, Vec3 b, Vec3 c, Vec3 d) {
  return dot(cross(b - a, c - a), cross(c - a, d - a)) < 0;
}

}  // namespace

std::array<std::int32_t, 4> outline_order(const Corners& corners) {
  const auto& [p1, p2, p3, p4] = corners;
  if (!crosses_itself(p1, p2, p3, p4)) return {1, 2, 3, 4};
  if (!crosses_itself(p1, p2, p4, p3)) return {1, 2, 4, 3};
  return {1, 4, 2, 3};
}

}  // namespace kez
