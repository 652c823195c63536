#include "polygons.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "../frame/lines.h"
#include "../frame/sorting.h"
#include "../frame/tolerance.h"
#include "../frame/work_list.h"

namespace kez {

namespace {

bool on_segment(Segment<Vec2> edge, Vec2 p) {
  switch (position_on_segment(edge, p)) {
    case Position::at_first:
    case Position::at_second:
    case Position::between:
      return true;
    default:
      return false;
  }
}

// The x at which the edge meets the x axis; an edge that ends there meets it too.
std::optional<float> axis_crossing(Segment<Vec2> edge) {
  const auto [status, point] = intersect_lines(line_through(edge.first, edge.second), {0, 1, 0});
  if (status != Meeting::one_point || !on_segment(edge, {point.x, 0})) return std::nullopt;
  return point.x;
}

// Whether both ends lie on one side of the x axis, clear of it and of a hundredth of the edge's
// width. The rays to them from any point of the axis are then less than pi - 0.02 apart, whose
// cosine is above -1 + 2e-4: no such point counts as one of the edge, however the crossing rounds.
bool is_clear_of_axis(Segment<Vec2> edge) {
  const auto [p, q] = edge;
  const float gap = std::max(std::min(p.y, q.y), -std::max(p.y, q.y));
  return (gap > 1e-4f) & (gap > 0.01f * std::fabs(q.x - p.x));
}

// Of so many edges from the given one on. Without a branch, so that the compiler uses vector
// registers.
constexpr std::size_t stride = 16;

bool are_clear_of_axis(const PlanePoints& points, std::size_t from) {
  int near = 0;
  for (std::size_t i = from; i < from + stride; ++i) {
    near |= !is_clear_of_axis({points[i], points[i + 1]});
  }
  return near == 0;
}

// Strictly between the ends in one coordinate, and clear of both by the tolerance in one: a line
// through a vertex inserts nothing there, because the vertex itself is there.
bool crosses(Segment<Vec2> edge, Vec2 p) {
  const Vec2 e = edge.vector(), d1 = p - edge.first, d2 = p - edge.second;
  const auto clear = [](float a, float b) {
    return at_least_tolerance(std::fabs(a)) && at_least_tolerance(std::fabs(b));
  };
  const auto between = [](float length, float a, float b) {
    return a * length > 0 && length * b < 0;
  };
  return (clear(d1.x, d2.x) || clear(d1.y, d2.y)) &&
         (between(e.x, d1.x, d2.x) || between(e.y, d1.y, d2.y));
}

std::optional<Vec2> crossing(Line line, Segment<Vec2> edge) {
  const auto [status, point] = intersect_lines(line, line_through(edge.first, edge.second));
  if (status != Meeting::one_point || !crosses(edge, point)) return std::nullopt;
  return point;
}

// The gaps between the first and second, third and fourth, ... of them.
float length_between_pairs(std::span<float> xs) {
  sort_ascending(xs);
  float length = 0;
  for (std::size_t j = 1; j < xs.size(); j += 2) length += xs[j] - xs[j - 1];
  return length;
}

}  // namespace

PolygonPosition relate_point_polygon(const PlanePoints& outline, Vec2 p) {
  const std::size_t n = close_outline(outline);
  translate(outline, p);

  const auto edge = [&](std::size_t i) { return Segment{outline[i], outline[i + 1]}; };
  const auto next_near_axis = [&](std::size_t i) {
    while (i + stride <= n && are_clear_of_axis(outline, i)) i += stride;
    while (i < n && is_clear_of_axis(edge(i))) ++i;
    return i;
  };
  bool odd_left = false, odd_right = false;
  for (std::size_t i = next_near_axis(0); i < n; i = next_near_axis(i + 1)) {
    if (on_segment(edge(i), {0, 0})) return PolygonPosition::on_boundary;
    const auto x = axis_crossing(edge(i));
    if (!x) continue;
    odd_left ^= *x < 0;
    odd_right ^= *x > 0;
  }
  // Either side is enough: a vertex on the axis counts twice and spoils the count of its side.
  return odd_left || odd_right ? PolygonPosition::inside : PolygonPosition::outside;
}

float cut_polygon(const PlanePoints& outline, Line line, PolygonPart& upper, PolygonPart& lower) {
  const std::size_t n = close_outline(outline);
  WorkList<float> chord(n);
  if (!chord) return 0;

  std::size_t chord_count = 0;
  const auto collect = [&](Vec2 p) {
    const bool on_axis = equal(p.y, 0), is_upper = p.y >= 0 || on_axis;
    if (is_upper) upper.add(p);
    if (p.y <= 0 || on_axis) lower.add(p);
    return is_upper;
  };
  for (std::size_t i = 0; i < n; ++i) {
    const Segment edge = {outline[i], outline[i + 1]};
    collect(edge.first);
    const auto p = crossing(line, edge);
    if (p && collect(*p)) chord.entries()[chord_count++] = p->x;
  }
  return length_between_pairs(chord.entries().first(chord_count));
}

}  // namespace kez
