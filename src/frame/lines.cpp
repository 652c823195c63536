#include "lines.h"

#include <cmath>
#if defined(__SSE__)
#include <xmmintrin.h>
#endif

#include "points.h"
#include "tolerance.h"

namespace kez {

namespace {

float approximate_reciprocal_sqrt(float s) noexcept {
#if defined(__SSE__)
  return _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(s)));
#else
  return 1.0f / std::sqrt(s);
#endif
}

}  // namespace

float reciprocal_sqrt(float s) noexcept {
  const float r0 = approximate_reciprocal_sqrt(s);
  return r0 * -0.5f * (s * r0 * r0 - 3.0f);
}

Line line_through(Vec2 p, Vec2 q) noexcept {
  return {q.y - p.y, -(q.x - p.x), p.y * q.x - p.x * q.y};
}

Line line_in_direction(Vec2 p, Vec2 direction) noexcept {
  // Exactly: a direction that is merely steep keeps its slope.
  if (direction.x == 0) return {1, 0, -p.x};
  return {direction.y / direction.x, -1, p.y - direction.y * p.x / direction.x};
}

Line line_at_angle(Vec2 p, float theta) noexcept {
  // Only +pi/2 and -pi/2 are vertical, and strictly within the tolerance: other odd multiples keep
  // the slope that the tangent gives them.
  const float from_vertical = theta >= 0 ? theta - half_pi : theta + half_pi;
  if (std::fabs(from_vertical) < tolerance) return {1, 0, -p.x};
  const float slope = std::tan(theta);
  return {slope, -1, p.y - slope * p.x};
}

Line parallel(Line l, float d) noexcept {
  return {l.a, l.b, l.c - d * std::sqrt(l.a * l.a + l.b * l.b)};
}

// The normal is l1 l2 times the difference of the rays' unit vectors.
Line bisector(Vec2 vertex, Vec2 p, Vec2 q) noexcept {
  const Vec2 u = p - vertex, w = q - vertex;
  const float l1 = length(u), l2 = length(w);
  return {u.x * l2 - w.x * l1, u.y * l2 - w.y * l1, -l2 * dot(u, vertex) + l1 * dot(w, vertex)};
}

float signed_distance(Vec2 p, Line l) noexcept {
  return (l.a * p.x + l.b * p.y + l.c) * reciprocal_sqrt(l.a * l.a + l.b * l.b);
}

Plane plane_spanned(Vec3 p, Vec3 u, Vec3 w) noexcept {
  const float a = determinant(u.y, u.z, w.y, w.z);
  const float b = -determinant(u.x, u.z, w.x, w.z);
  const float c = determinant(u.x, u.y, w.x, w.y);
  return {a, b, c, -(a * p.x + b * p.y + c * p.z)};
}

// Cramer's rule. The tests are on the determinants as they are: normalising the coefficients would
// change which lines of a host count as parallel.
LineMeeting intersect_lines(Line p, Line q) noexcept {
  const float det = p.a * q.b - q.a * p.b;
  const float dx = p.b * q.c - q.b * p.c;
  const float dy = q.a * p.c - p.a * q.c;
  if (non_zero(det)) return {Meeting::one_point, Vec2{dx / det, dy / det}};
  if (non_zero(dx) || non_zero(dy)) return {Meeting::parallel, std::nullopt};
  return {Meeting::coincident, std::nullopt};
}

Quotients guarded_quotients(float a, float b, float c) noexcept {
  if (!non_zero(a)) return {0, 0};
  return {c / a, b / a};
}

}  // namespace kez
