// Implicit lines in the plane, the plane of two directions, and points against a segment.
#pragma once

#include <cstdint>
#include <optional>

#include "points.h"
#include "tolerance.h"
#include "types.h"

namespace kez {

// An approximation of 1 / sqrt(s), good to about 22 bits: the start value r0 with one Newton step
// for f(r) = 1 / r^2 - s, in the order -r0/2 (s r0 r0 - 3).
float reciprocal_sqrt(float s) noexcept;

Line line_through(Vec2 p, Vec2 q) noexcept;
Line line_in_direction(Vec2 p, Vec2 direction) noexcept;
Line line_at_angle(Vec2 p, float theta) noexcept;
Line parallel(Line l, float d) noexcept;
Line bisector(Vec2 vertex, Vec2 p, Vec2 q) noexcept;

// Positive on the side to which the line's normal points.
float signed_distance(Vec2 p, Line l) noexcept;

Plane plane_spanned(Vec3 p, Vec3 u, Vec3 w) noexcept;

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
Position position_on_segment(Segment<Point> segment, Point p) noexcept {
  const Point u = p - segment.first, w = p - segment.second;
  const float d1 = length(u), d2 = length(w);
  if (d1 <= tolerance) return Position::at_first;
  if (d2 <= tolerance) return Position::at_second;

  const auto cosine = cosine_between(u, w);
  if (!cosine) return Position::off_line;
  if (equal(*cosine, -1)) return Position::between;
  if (equal(*cosine, 1)) {
    if (d2 > d1) return Position::before_first;
    if (d1 > d2) return Position::beyond_second;
  }
  return Position::off_line;
}

enum class Meeting : std::int32_t { one_point = 0, coincident = 1, parallel = 2 };

struct LineMeeting {
  Meeting status;
  std::optional<Vec2> point;
};

LineMeeting intersect_lines(Line p, Line q) noexcept;

struct Quotients {
  float c_over_a, b_over_a;
};

// Zero where a is within the tolerance of zero.
Quotients guarded_quotients(float a, float b, float c) noexcept;

}  // namespace kez
