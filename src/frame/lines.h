// Implicit lines in the plane, the plane of two directions, and points against a segment.
#pragma once

#include <cmath>
#include <cstdint>
#if defined(__SSE__)
#include <xmmintrin.h>
#endif

#include "points.h"
#include "tolerance.h"
#include "types.h"

namespace kez {

inline float approximate_reciprocal_sqrt(float s) {
#if defined(__SSE__)
  return _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(s)));
#else
  return 1.0f / std::sqrt(s);
#endif
}

// An approximation of 1 / sqrt(s) to about 22 bits: the start value r0 with one Newton step for
// f(r) = 1 / r^2 - s, in the order -r0/2 (s r0 r0 - 3).
inline float reciprocal_sqrt(float s) {
  const float r0 = approximate_reciprocal_sqrt(s);
  return r0 * -0.5f * (s * r0 * r0 - 3.0f);
}

inline Line line_through(Vec2 p, Vec2 q) {
  return {q.y - p.y, -(q.x - p.x), p.y * q.x - p.x * q.y};
}

Line line_in_direction(Vec2 p, Vec2 direction);
Line line_at_angle(Vec2 p, float theta);
Line parallel(Line l, float d);
Line bisector(Vec2 vertex, Vec2 p, Vec2 q);

// Positive on the side to which the line's normal points.
inline float signed_distance(Vec2 p, Line l) {
  return (l.a * p.x + l.b * p.y + l.c) * reciprocal_sqrt(l.a * l.a + l.b * l.b);
}

inline Plane plane_spanned(Vec3 p, Vec3 u, Vec3 w) {
  const float a = determinant(u.y, u.z, w.y, w.z);
  const float b = -determinant(u.x, u.z, w.x, w.z);
  const float c = determinant(u.x, u.y, w.x, w.y);
  return {a, b, c, -(a * p.x + b * p.y + c * p.z)};
}

enum class Position : std::int32_t {
  off_line = 0,
  at_first = 1,
  at_second = 2,
  between = 3,
  before_first = 4,
  beyond_second = 5,
};

// Within the coincidence box of an end, but not at it, there is no cosine, and the point counts as
// off the line.
template <typename Point>
Position position_on_segment(Segment<Point> segment, Point p) {
  const Point u = p - segment.first, w = p - segment.second;
  if (cosine_square(u, w).is_clear_of_one()) return Position::off_line;
  const float d1 = length(u), d2 = length(w);
  if (at_most_tolerance(d1)) return Position::at_first;
  if (at_most_tolerance(d2)) return Position::at_second;

  if (is_null(u) || is_null(w)) return Position::off_line;
  const float c = cosine(u, w);
  if (equal(c, -1)) return Position::between;
  if (equal(c, 1)) {
    if (d2 > d1) return Position::before_first;
    if (d1 > d2) return Position::beyond_second;
  }
  return Position::off_line;
}

enum class Meeting : std::int32_t { one_point = 0, coincident = 1, parallel = 2 };

struct LineMeeting {
  Meeting status;
  Vec2 point;  // zero unless the lines meet in one

  Vec2 point_or(Vec2 otherwise) const { return status == Meeting::one_point ? point : otherwise; }
};

// Cramer's rule. The tests are on the determinants as they are: normalising the coefficients would
// change which lines of a host count as parallel.
inline LineMeeting intersect_lines(Line p, Line q) {
  const float det = p.a * q.b - q.a * p.b;
  const float dx = p.b * q.c - q.b * p.c;
  const float dy = q.a * p.c - p.a * q.c;
  if (non_zero(det)) return {Meeting::one_point, {dx / det, dy / det}};
  if (non_zero(dx) || non_zero(dy)) return {Meeting::parallel, {}};
  return {Meeting::coincident, {}};
}

struct Quotients {
  float c_over_a, b_over_a;
};

// Zero if a is within the tolerance of zero.
Quotients guarded_quotients(float a, float b, float c);

}  // namespace kez
