// Points against polygons, and polygons cut by a line.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

enum class PolygonPosition : std::int32_t { inside = 0, outside = -1, on_boundary = 100 };

// Deliberate: closes the outline and moves it so that p is its origin (kezppp).
PolygonPosition relate_point_polygon(const PlanePoints& outline, Vec2 p);

// Collects vertices; the room must suffice for all of them.
class PolygonPart {
 public:
  explicit PolygonPart(const PlanePoints& room) : vertices_(room) {}

  void add(Vec2 vertex) {
    assert(count_ < vertices_.size());
    vertices_.put(count_++, vertex);
  }
  // Those from i on.
  void add_four(const PlanePoints& from, std::size_t i) {
    assert(count_ + 4 <= vertices_.size());
    std::memcpy(vertices_.xs() + count_, from.xs() + i, 4 * sizeof(float));
    std::memcpy(vertices_.ys() + count_, from.ys() + i, 4 * sizeof(float));
    count_ += 4;
  }
  std::int32_t count() const { return static_cast<std::int32_t>(count_); }

 private:
  PlanePoints vertices_;
  std::size_t count_ = 0;
};

// Closes the outline, collects its vertices and its crossings with the line by the sign of y, and
// returns the length of the x axis between the crossings of the upper part, two by two. If memory
// runs out, the parts stay empty.
float cut_polygon(const PlanePoints& outline, Line line, PolygonPart& upper, PolygonPart& lower);

}  // namespace kez
