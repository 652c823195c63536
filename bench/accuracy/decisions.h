// Decisions that rounding spoils, with and without a cure.
#pragma once

#include <array>

#include "measure.h"

namespace accuracy {

// A line divided by the length of its normal, as a host does it in single precision.
struct PlaneLine {
  float a, b, c;

  PlaneLine(Point p, Point q, bool divided) {
    call<kezln3>(p.x, p.y, q.x, q.y, a, b, c);
    if (!divided) return;
    const float r = std::sqrt(a * a + b * b);
    a /= r, b /= r, c /= r;
  }
};

using Pair = std::array<Point, 4>;  // two points of a line, and two of a parallel

inline std::int32_t relation(const PlaneLine& g, const PlaneLine& h) {
  std::int32_t status;
  Point p;
  call<kezlni>(g.a, g.b, g.c, h.a, h.b, h.c, status, p.x, p.y);
  return status;
}

inline bool parallel_lines_cross(Random& random, double size, bool divided) {
  const Point p(random.in_box(size)), q(random.in_box(size));
  const Vec move = random.in_box(size);
  return relation({p, q, divided}, {Point(p + move), Point(q + move), divided}) == 0;
}

// The points of each line are some way apart, and the lines too, for their coordinates.
inline Pair parallel_pair(Random& random, double size) {
  for (;;) {
    const Vec p{random.between(0, size), random.between(0, size)};
    const Vec q{random.between(0, size), random.between(0, size)};
    if (length(q - p) < 0.1 * size) continue;
    const Vec across = random.between(0.05, 0.5) * size * unit(left_of(q - p));
    return {Point(p), Point(q), Point(p + across), Point(q + across)};
  }
}

// The points of each line are `ratio` times closer together than their coordinates are large.
inline Pair close_pair(Random& random, double size, double ratio) {
  const Vec p{random.between(0.5, 1) * size, random.between(0.5, 1) * size};
  const double apart = size / ratio;
  const Vec along = polar(apart, random.angle());
  const Vec across = random.between(0.3, 1) * left_of(along);
  return {Point(p), Point(p + along), Point(p + across), Point(p + along + across)};
}

inline bool are_ordered(const Pair& p, bool divided) {
  const PlaneLine g(p[0], p[1], divided), h(p[2], p[3], divided);
  const float a[] = {g.a, h.a}, b[] = {g.b, h.b}, c[] = {g.c, h.c};
  const std::int32_t n = 2;
  std::int32_t order[2], status;
  call<kezpor>(n, &a[0], &b[0], &c[0], &order[0], status);
  return status == 0;
}

// Points of two lines that meet, the first two on one line, the others on the other.
inline Pair meeting_lines(Random& random, double size) {
  for (;;) {
    const Vec m = random.in_box(size), a = random.in_box(size), b = random.in_box(size);
    const Vec beyond_a = m + random.between(0, 1) * (m - a);
    const Vec beyond_b = m + random.between(0, 1) * (m - b);
    if (std::max(largest(beyond_a), largest(beyond_b)) < size)
      return {Point(a), Point(beyond_a), Point(b), Point(beyond_b)};
  }
}

// A cure divides the coordinates by a power of 2, which rounds nothing.
inline bool meeting_lines_are_skew(Random& random, double size, bool scaled) {
  Pair p = meeting_lines(random, size);
  const double factor = scaled ? std::exp2(-std::ceil(std::log2(size))) : 1;
  for (Point& point : p) point = Point(factor * point);
  std::int32_t rel;
  call<kezdirl>(p[0].x, p[0].y, p[0].z, p[1].x, p[1].y, p[1].z, p[2].x, p[2].y, p[2].z, p[3].x,
                p[3].y, p[3].z, rel);
  return rel == 6;
}

inline bool coplanar_vectors_span(Random& random, double size) {
  const auto [p, q, r, s] = meeting_lines(random, size);
  std::int32_t spans;
  call<kez3sp>(p.x, p.y, p.z, q.x, q.y, q.z, r.x, r.y, r.z, s.x, s.y, s.z, p.x, p.y, p.z, r.x, r.y,
               r.z, spans);
  return spans == 1;
}

inline bool point_of_plane_is_missed(Random& random, double size, bool scaled) {
  const double factor = scaled ? std::exp2(-std::ceil(std::log2(size))) : 1;
  const Vec n = random.direction();
  const double d = random.between(-0.5, 0.5) * size;
  const Vec q = random.in_box(size);
  const Point normal(n), rounded(q - (dot(n, q) + d) * n), p(factor * rounded);
  const auto first = static_cast<float>(factor * static_cast<float>(d));
  const auto second = static_cast<float>(factor * static_cast<float>(size - d));
  float a = -normal.x, b = -normal.y, c = -normal.z, d2 = second;
  const std::int32_t one = 1;
  std::int32_t code;
  call<kezptp1>(normal.x, normal.y, normal.z, first, a, b, c, d2, one, &p.x, &p.y, &p.z, &code);
  return code != 1;
}

}  // namespace accuracy
