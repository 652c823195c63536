// Vectors in double precision, for the truth, and points in single precision, for the calls.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace accuracy {

constexpr double pi = std::numbers::pi;

struct Vec {
  double x = 0, y = 0, z = 0;
};

inline Vec operator+(Vec a, Vec b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec operator-(Vec a, Vec b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec operator*(double t, Vec a) {
  return {t * a.x, t * a.y, t * a.z};
}
inline double dot(Vec a, Vec b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec cross(Vec a, Vec b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec a) {
  return std::sqrt(dot(a, a));
}
inline Vec unit(Vec a) {
  return 1 / length(a) * a;
}
inline double angle(Vec a, Vec b) {
  return std::atan2(length(cross(a, b)), dot(a, b));
}
inline double largest(Vec a) {
  return std::max({std::fabs(a.x), std::fabs(a.y), std::fabs(a.z)});
}

// In the plane.
inline Vec polar(double r, double phi) {
  return {r * std::cos(phi), r * std::sin(phi)};
}
inline Vec left_of(Vec a) {
  return {-a.y, a.x};
}
inline Vec turned(Vec a, double phi) {
  return std::cos(phi) * a + std::sin(phi) * left_of(a);
}

// What a host passes: rounded to single precision. The truth is computed from the rounded numbers.
struct Point {
  float x = 0, y = 0, z = 0;

  Point() = default;
  explicit Point(Vec v)
      : x(static_cast<float>(v.x)), y(static_cast<float>(v.y)), z(static_cast<float>(v.z)) {}
  operator Vec() const { return {x, y, z}; }
};

// The crossing of the line through p along u with that through q along w, in the plane.
inline Vec crossing(Vec p, Vec u, Vec q, Vec w) {
  return p + cross(q - p, w).z / cross(u, w).z * u;
}

inline double distance_from_line(Vec p, Vec from, Vec to) {
  return length(cross(p - from, to - from)) / length(to - from);
}

}  // namespace accuracy
