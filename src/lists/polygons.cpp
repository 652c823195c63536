#include "polygons.h"

#include <cmath>
#include <optional>

#include "../circles/transform.h"
#include "../frame/lines.h"
#include "../frame/outline.h"
#include "../frame/tables.h"
#include "../frame/tolerance.h"
#include "../space/line_intersections.h"
#include "work_list.h"

namespace kez {

namespace {

// Returns the number of vertices.
std::size_t close(Polygon polygon) noexcept {
  close_outline(polygon.xs, polygon.ys);
  return polygon.xs.empty() ? 0 : polygon.xs.size() - 1;
}

Vec2 vertex(Polygon polygon, std::size_t i) noexcept {
  return {polygon.xs[i], polygon.ys[i]};
}

bool on_segment(Vec2 first, Vec2 second, Vec2 p) noexcept {
  switch (position_on_segment(in_plane(first), in_plane(second), in_plane(p))) {
    case Position::at_first:
    case Position::at_second:
    case Position::between:
      return true;
    default:
      return false;
  }
}

// The x at which the segment meets the x axis; at both ends of an edge that ends there.
std::optional<float> axis_crossing(Vec2 first, Vec2 second) noexcept {
  const LineMeeting meeting = intersect(line_through(first, second), {0, 1, 0});
  if (meeting.status != Meeting::one_point) return std::nullopt;
  if (!on_segment(first, second, {meeting.point.x, 0})) return std::nullopt;
  return meeting.point.x;
}

}  // namespace

PolygonPosition locate_in_polygon(Polygon polygon, Vec2 p) noexcept {
  const std::size_t n = close(polygon);
  translate(polygon.xs, polygon.ys, p);

  bool odd_left = false, odd_right = false;
  for (std::size_t i = 0; i < n; ++i) {
    const Vec2 first = vertex(polygon, i), second = vertex(polygon, i + 1);
    if (on_segment(first, second, {0, 0})) return PolygonPosition::on_boundary;
    const auto x = axis_crossing(first, second);
    if (!x) continue;
    odd_left ^= *x < 0;
    odd_right ^= *x > 0;
  }
  // Either side may say so: a vertex on the axis counts twice and spoils the count of its side.
  return odd_left || odd_right ? PolygonPosition::inside : PolygonPosition::outside;
}

namespace {

// Strictly between the ends in one coordinate, and clear of both by the tolerance in one: a line
// through a vertex inserts nothing there, as the vertex itself serves.
bool crosses(Vec2 first, Vec2 second, Vec2 p) noexcept {
  const Vec2 e = second - first, d1 = p - first, d2 = p - second;
  const auto clear = [](float a, float b) {
    return std::fabs(a) >= tolerance && std::fabs(b) >= tolerance;
  };
  const auto between = [](float edge, float a, float b) { return a * edge > 0 && edge * b < 0; };
  return (clear(d1.x, d2.x) || clear(d1.y, d2.y)) &&
         (between(e.x, d1.x, d2.x) || between(e.y, d1.y, d2.y));
}

std::optional<Vec2> crossing(Line line, Vec2 first, Vec2 second) noexcept {
  const LineMeeting meeting = intersect(line, line_through(first, second));
  if (meeting.status != Meeting::one_point) return std::nullopt;
  if (!crosses(first, second, meeting.point)) return std::nullopt;
  return meeting.point;
}

// The gaps between the first and second, third and fourth, ... of them.
float length_between_pairs(std::span<float> xs) noexcept {
  sort_ascending(xs);
  float length = 0;
  for (std::size_t j = 1; j < xs.size(); j += 2) length += xs[j] - xs[j - 1];
  return length;
}

}  // namespace

float cut_polygon(Polygon polygon, Line line, PolygonPart& upper, PolygonPart& lower) noexcept {
  const std::size_t n = close(polygon);
  WorkList<float> chord(n);
  if (!chord) return 0;

  std::size_t chord_count = 0;
  const auto classify = [&](Vec2 p) {
    const bool on_axis = equal(p.y, 0), is_upper = p.y >= 0 || on_axis;
    if (is_upper) upper.add(p);
    if (p.y <= 0 || on_axis) lower.add(p);
    return is_upper;
  };
  for (std::size_t i = 0; i < n; ++i) {
    const Vec2 first = vertex(polygon, i), second = vertex(polygon, i + 1);
    classify(first);
    const auto p = crossing(line, first, second);
    if (p && classify(*p)) chord.entries()[chord_count++] = p->x;
  }
  return length_between_pairs(chord.entries().first(chord_count));
}

}  // namespace kez
