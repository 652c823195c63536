// Points against polygons, and polygons cut by a line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "../frame/types.h"

namespace kez {

// Outlines: the vertices, and behind them the place for the closing one.
struct Polygon {
  std::span<float> xs, ys;
};

enum class PolygonPosition : std::int32_t { inside = 0, outside = -1, on_boundary = 100 };

// Closes the outline and moves it so that p is its origin: hosts rely on it.
PolygonPosition locate_in_polygon(Polygon polygon, Vec2 p) noexcept;

// Where vertices are collected, with room for all of them.
class PolygonPart {
 public:
  PolygonPart(std::span<float> xs, std::span<float> ys) noexcept : xs_(xs), ys_(ys) {}

  void add(Vec2 vertex) noexcept {
    xs_[count_] = vertex.x;
    ys_[count_++] = vertex.y;
  }
  std::int32_t count() const noexcept { return static_cast<std::int32_t>(count_); }

 private:
  std::span<float> xs_, ys_;
  std::size_t count_ = 0;
};

// Closes the outline, collects its vertices and its crossings with the line by the sign of y, and
// returns the length of the x axis between the crossings of the upper part, two by two. Without
// memory the parts stay empty.
float cut_polygon(Polygon polygon, Line line, PolygonPart& upper, PolygonPart& lower) noexcept;

}  // namespace kez
