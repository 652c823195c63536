#include "lines.h"

#include <cmath>

#include "points.h"
#include "tolerance.h"

namespace kez {

Line line_in_direction(Vec2 p, Vec2 direction) {
  // Exactly: a direction that is merely steep keeps its slope.
  if (direction.x == 0) return {1, 0, -p.x};
  return {direction.y / direction.x, -1, p.y - direction.y * p.x / direction.x};
}

Line line_at_angle(Vec2 p, float theta) {
  // Only +pi/2 and -pi/2 are vertical, and strictly within the tolerance: other odd multiples keep
  // the slope that the tangent gives them.
  const float from_vertical = theta >= 0 ? theta - half_pi : theta + half_pi;
  if (below_tolerance(std::fabs(from_vertical))) return {1, 0, -p.x};
  const float slope = std::tan(theta);
  return {slope, -1, p.y - slope * p.x};
}

Line parallel(Line l, float d) {
  return {l.a, l.b, l.c - d * std::sqrt(l.a * l.a + l.b * l.b)};
}

// The normal is l1 l2 times the difference of the rays' unit vectors.
Line bisector(Vec2 vertex, Vec2 p, Vec2 q) {
  const Vec2 u = p - vertex, w = q - vertex;
  const float l1 = length(u), l2 = length(w);
  return {u.x * l2 - w.x * l1, u.y * l2 - w.y * l1, -l2 * dot(u, vertex) + l1 * dot(w, vertex)};
}

Quotients guarded_quotients(float a, float b, float c) {
  if (!non_zero(a)) return {0, 0};
  return {c / a, b / a};
}

}  // namespace kez
