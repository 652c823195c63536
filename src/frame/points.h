// Points, vectors and determinants: what all other routines are built from.
#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

#include "tolerance.h"
#include "types.h"

namespace kez {

inline float dot(Vec2 u, Vec2 w) {
  return u.x * w.x + u.y * w.y;
}
inline float dot(Vec3 u, Vec3 w) {
  return u.x * w.x + u.y * w.y + u.z * w.z;
}

inline float length(Vec2 v) {
  return std::sqrt(dot(v, v));
}
inline float length(Vec3 v) {
  return std::sqrt(dot(v, v));
}

inline float distance(Vec2 p, Vec2 q) {
  return length(q - p);
}
inline float distance(Vec3 p, Vec3 q) {
  return length(q - p);
}

// In the plane the z of the product: positive where w lies counter-clockwise of u.
inline float cross(Vec2 u, Vec2 w) {
  return u.x * w.y - u.y * w.x;
}
inline Vec3 cross(Vec3 u, Vec3 w) {
  return {u.y * w.z - u.z * w.y, u.z * w.x - u.x * w.z, u.x * w.y - u.y * w.x};
}

// Every component within the tolerance: the vector of a segment whose ends coincide.
inline bool is_null(Vec2 v) {
  return equal(v.x, 0) && equal(v.y, 0);
}
inline bool is_null(Vec3 v) {
  return equal(v.x, 0) && equal(v.y, 0) && equal(v.z, 0);
}

// Deliberate: exact, as hosts ask whether a value was ever set (kezcnt1).
inline bool is_exactly_zero(Vec2 v) {
  return v.x == 0 && v.y == 0;
}
inline bool is_exactly_zero(Vec3 v) {
  return v.x == 0 && v.y == 0 && v.z == 0;
}

template <typename Point>
Point midpoint(Point p, Point q) {
  return 0.5f * (p + q);
}

// The point p + t (q - p), unless the ends coincide.
template <typename Point>
std::optional<Point> point_along(Point p, Point q, float t) {
  const Point v = q - p;
  if (is_null(v)) return std::nullopt;
  return p + t * v;
}

inline float determinant(float a, float b, float c, float d) {
  return a * d - b * c;
}

// The matrix with the rows u, v, w, expanded along u.
inline float determinant(Vec3 u, Vec3 v, Vec3 w) {
  return u.x * determinant(v.y, v.z, w.y, w.z) - u.y * determinant(v.x, v.z, w.x, w.z) +
         u.z * determinant(v.x, v.y, w.x, w.y);
}

inline bool span_space(Vec3 u, Vec3 v, Vec3 w) {
  return non_zero(determinant(u, v, w));
}

template <typename Vector>
float cosine(Vector u, Vector w) {
  return dot(u, w) / length(u) / length(w);
}

// The square of the cosine as a fraction, which tells most vectors apart without a root or
// division: 1 / 0 if a squared length is out of bounds. Within them no product leaves the range of
// ordinary numbers, and a vector is longer than three tolerances.
struct CosineSquare {
  float numerator, denominator;

  // The cosine is made of the same rounded dot(u, w) and squared lengths, and its further roundings
  // change it by less than one part in a million: here it differs from 1 and -1 by more than 0.004.
  bool is_clear_of_one() const { return numerator < 0.99f * denominator; }
  // Here it is at least 0.9e-4, nine tolerances.
  bool is_clear_of_zero() const { return numerator > 1e-8f * denominator; }
};

template <typename Vector>
CosineSquare cosine_square(Vector u, Vector w) {
  const auto in_bounds = [](float square) {
    return std::isgreater(square, 1e-9f) && std::isless(square, 1e18f);
  };
  const float uu = dot(u, u);
  if (!in_bounds(uu)) return {1, 0};
  const float ww = dot(w, w);
  if (!in_bounds(ww)) return {1, 0};
  const float uw = dot(u, w);
  return {uw * uw, uu * ww};
}

struct CosineSine {
  float cosine, sine;
};

// Of the unsigned angle between two vectors, unless one is null.
inline std::optional<CosineSine> angle_between(Vec3 u, Vec3 w) {
  if (is_null(u) || is_null(w)) return std::nullopt;
  return CosineSine{cosine(u, w), length(cross(u, w)) / length(u) / length(w)};
}

inline float interpolate(float x1, float x2, float y1, float y2, float x) {
  return y1 + (y2 - y1) * (x - x1) / (x2 - x1);
}

enum class Side : std::int32_t { positive = 1, other = 2 };

inline Side side_of(float b) {
  return b > 0 ? Side::positive : Side::other;
}

}  // namespace kez
