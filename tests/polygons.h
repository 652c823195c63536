// Polygons for tests: outlines as routines take them, and what is known of polygons otherwise, in
// double precision.
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "frame/point_lists.h"
#include "random.h"

namespace kez::test {

struct Point {
  double x, y;
};

using Polygon = std::vector<Point>;

inline Point widened(Vec2 p) {
  return {static_cast<double>(p.x), static_cast<double>(p.y)};
}

inline Point operator-(Point p, Point q) {
  return {p.x - q.x, p.y - q.y};
}

inline double cross(Point u, Point w) {
  return u.x * w.y - u.y * w.x;
}

// From u to w, counter-clockwise positive.
inline double turn(Point u, Point w) {
  return std::atan2(cross(u, w), u.x * w.x + u.y * w.y);
}

inline double area(const Polygon& polygon) {
  double twice = 0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    twice += cross(polygon[i], polygon[(i + 1) % polygon.size()]);
  }
  return twice / 2;
}

// How often the polygon runs round a point that is not on an edge, counter-clockwise positive.
inline int winding_number(const Polygon& polygon, Point point) {
  double angle = 0;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    angle += turn(polygon[i] - point, polygon[(i + 1) % polygon.size()] - point);
  }
  return static_cast<int>(std::lround(angle / (2 * static_cast<double>(pi))));
}

struct Outline {
  std::vector<float> xs, ys;

  void add(Vec2 p) {
    xs.push_back(p.x);
    ys.push_back(p.y);
  }
  PlanePoints points() { return {xs.data(), ys.data(), xs.size()}; }
  Polygon polygon() const {
    Polygon result;
    for (std::size_t i = 0; i < xs.size(); ++i) result.push_back(widened({xs[i], ys[i]}));
    return result;
  }
};

// The place for the closing vertex holds what no routine may read.
inline Outline closable(Outline outline) {
  outline.add({std::nanf(""), std::nanf("")});
  return outline;
}

// Every vertex is seen from the origin, each in a direction of its own.
inline Outline random_star(Random& random, int n, float least, float most) {
  Outline star;
  const float step = 2 * pi / static_cast<float>(n);
  for (int i = 0; i < n; ++i) {
    const float angle = step * (static_cast<float>(i) + random.real(0, 0.8f));
    star.add(polar(random.real(least, most), angle));
  }
  return star;
}

// The same vertices the other way round.
inline Outline reversed(const Outline& outline) {
  return {{outline.xs.rbegin(), outline.xs.rend()}, {outline.ys.rbegin(), outline.ys.rend()}};
}

}  // namespace kez::test
