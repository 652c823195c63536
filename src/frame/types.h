// The values that geometry computes with. A host passes them as single coordinates.
#pragma once

#include <cfloat>
#include <cstdint>

// Single precision as written, on every build: 32-bit x86 must not compute in the x87 registers.
static_assert(FLT_EVAL_METHOD == 0, "compile with -msse2 -mfpmath=sse");

// Results hold for the arithmetic of IEEE 754 only.
#if defined(__FAST_MATH__) || defined(__ASSOCIATIVE_MATH__) || defined(__RECIPROCAL_MATH__) || \
    defined(__NO_SIGNED_ZEROS__) || __FINITE_MATH_ONLY__
#error "compile KezLib without -ffast-math and the options that it stands for"
#endif

namespace kez {

inline constexpr float pi = 3.1415927f;
inline constexpr float half_pi = 1.5707964f;

struct Vec2 {
  float x, y;
};

struct Vec3 {
  float x, y, z;
};

inline Vec2 operator-(Vec2 p, Vec2 q) {
  return {p.x - q.x, p.y - q.y};
}
inline Vec3 operator-(Vec3 p, Vec3 q) {
  return {p.x - q.x, p.y - q.y, p.z - q.z};
}
inline Vec2 operator+(Vec2 p, Vec2 q) {
  return {p.x + q.x, p.y + q.y};
}
inline Vec3 operator+(Vec3 p, Vec3 q) {
  return {p.x + q.x, p.y + q.y, p.z + q.z};
}
inline Vec2 operator*(float t, Vec2 v) {
  return {t * v.x, t * v.y};
}
inline Vec3 operator*(float t, Vec3 v) {
  return {t * v.x, t * v.y, t * v.z};
}

// As a point of the x-y plane in space.
inline Vec3 in_plane(Vec2 p) {
  return {p.x, p.y, 0};
}

// Two points that belong together, in the plane or in space.
template <typename Point>
struct Segment {
  Point first, second;

  Point vector() const { return second - first; }
};
template <typename Point>
Segment(Point, Point) -> Segment<Point>;

// a x + b y + c = 0, not normalised.
struct Line {
  float a, b, c;
};

// a x + b y + c z + d = 0, not normalised.
struct Plane {
  float a, b, c, d;

  Vec3 normal() const { return {a, b, c}; }
};

// The same plane with its normal to the other side.
inline Plane operator-(Plane p) {
  return {-p.a, -p.b, -p.c, -p.d};
}

// x^2 + y^2 + d x + e y + f = 0.
struct Circle {
  float d, e, f;
};

// Kinds of plane figures. The numbers are those of the area routines and of section contours; any
// other is no figure.
enum class Figure : std::int32_t {
  area_at_point = 1,
  polygon = 2,
  circle = 3,
  segment = 4,  // centre and the two ends of the chord
  complement = 5,
};

}  // namespace kez
