#include "polygons.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>

#include "../frame/four.h"
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
bool are_clear_of_axis(const PlanePoints& points, std::size_t from) {
  int near = 0;
  for (std::size_t i = from; i < from + stride; ++i) {
    near |= !is_clear_of_axis({points[i], points[i + 1]});
  }
  return near == 0;
}

struct FourPoints {
  Four<float> x, y;
};

// The vertices from i on of an outline of n, beyond which all are the closing one. The last are
// loaded one by one, as that has just been stored.
FourPoints four_vertices(const PlanePoints& outline, std::size_t i, std::size_t n) {
  const auto load = [=](const float* list) {
    const auto at = [=](std::size_t k) { return list[std::min(k, n)]; };
    return i + 4 <= n ? four_from(list + i) : Four<float>{at(i), at(i + 1), at(i + 2), at(i + 3)};
  };
  return {load(outline.xs()), load(outline.ys())};
}

Four<std::int32_t> are_huge(const FourPoints& p) {
  constexpr auto limit = std::bit_cast<std::int32_t>(0x1p28f);
  return (magnitudes(p.x) >= limit) | (magnitudes(p.y) >= limit);
}

// Edges for which it is sure, without a root or division, whether they cross the x axis, left or
// right of the origin and not near it. With all coordinates below 2^28, eps = 2^-24, and
//
//     |y1|, |y2| > gap >= 1e-4, 0.01 |x2 - x1| and 0.0005 (|x1| + |x2|)
//
// an edge with both ends on one side is clear of the axis as above. One with ends on both sides
// crosses it, since |y2 - y1| is above the tolerance, at x = -c / (y2 - y1) with the rounded
// c = y1 x2 - x1 y2, if
//
// - the origin is off the edge. The rays from it to the ends make an angle of cosine d / l1 l2 and
//   sine c / l1 l2, where d is their scalar product, and both are wrong by 3 eps at most. So
//   c^2 > 0.0103 d^2 means a sine above 0.1008 and a squared cosine below 0.9899: that is off the
//   line already for cosine_square. With d > 0 the rounded cosine is not near -1 either. Then x1
//   and x2 have the same sign, and the two terms of c too. Both ways c is not 0 and its sign, and
//   so that of x, is certain.
// - (x, 0) is on the edge. c is wrong by 2 eps max(|x1|, |x2|) |y2 - y1|, and x by twice that and
//   without the last factor, 2.5e-7 max(|x1|, |x2|). The rays from there to the ends turn from
//   opposite directions by at most twice that by gap, 1e-3, and their cosine is below
//   -1 + 5e-7 + 10 eps, well within the tolerance.
struct SureEdges {
  unsigned sure;                    // bit k of edge k
  Four<std::int32_t> cross, right;  // by the sign
};

SureEdges sure_edges(const FourPoints& p, const FourPoints& q) {
  const auto gap = four_times(1e-4f) + four_times(0.01f) * absolute(q.x - p.x) +
                   four_times(0.0005f) * (absolute(p.x) + absolute(q.x));
  const auto c = p.y * q.x - p.x * q.y, d = p.x * q.x + p.y * q.y;
  const auto is_off = c * c > four_times(-0.0103f) * (d * absolute(d));
  const auto on_both_sides = bits(p.y) ^ bits(q.y);
  const auto sure = (absolute(p.y) > gap) & (absolute(q.y) > gap) & ~(on_both_sides & ~is_off);
  const auto cross = sure & on_both_sides;
  return {lanes(sure), cross, cross & (bits(c) ^ bits(q.y))};
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

// Below 2^24 and, for coordinates, 2^28 the products of `may_cross` and `crossing` stay below 2^82,
// quotients by more than the tolerance below 2^99, and what `crosses` multiplies them by below
// 2^29: nothing overflows, and what is not needed may be computed too.
bool is_small(Line line) {
  constexpr auto limit = std::bit_cast<std::int32_t>(0x1p24f);
  return !any(magnitudes(Four<float>{line.a, line.b, line.c}) >= limit);
}

// Bit k says whether a small line may cross the k-th edge from p to q. What `crossing` computes, up
// to the vectors from the ends, is computed in the same way and rounds alike. An edge is crossed
// only where these vectors have opposite signs in a coordinate.
unsigned may_cross(Line line, const FourPoints& p, const FourPoints& q) {
  if (any(are_huge(p) | are_huge(q))) return 15;
  // As line_through and intersect_lines do it.
  const Four<float> a = q.y - p.y, b = -(q.x - p.x), c = p.y * q.x - p.x * q.y;
  const Four<float> det = line.a * b - a * line.b;
  const Four<float> dx = line.b * c - b * line.c, dy = a * line.c - line.a * c;

  // Parallel lines must not divide by 0: they get a divisor from 1 on.
  const auto meet = magnitudes(det) > std::bit_cast<std::int32_t>(tolerance);
  const auto divisor = reals(bits(det) | (~meet & std::bit_cast<std::int32_t>(1.0f)));
  const Four<float> x = dx / divisor, y = dy / divisor;
  return lanes(meet & ((bits(x - p.x) ^ bits(x - q.x)) | (bits(y - p.y) ^ bits(y - q.y))));
}

// Whether four vertices are on one side of the x axis, clear of it, and so go to one part.
bool are_on_one_side(Four<float> y) {
  const auto clear = (magnitudes(y) > std::bit_cast<std::int32_t>(tolerance)) &
                     (magnitudes(y) <= std::bit_cast<std::int32_t>(HUGE_VALF));
  const unsigned below = lanes(bits(y));
  return lanes(clear) == 15 && (below == 0 || below == 15);
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
  if (outline.size() == 0) return PolygonPosition::outside;
  const std::size_t n = outline.size() - 1;
  translate({outline.xs(), outline.ys(), std::max<std::size_t>(n, 1)}, p);
  close_outline(outline);

  bool odd_left = false, odd_right = false;
  const auto is_on_edge = [&](std::size_t i) {
    const Segment edge = {outline[i], outline[i + 1]};
    if (is_clear_of_axis(edge)) return false;
    if (on_segment(edge, {0, 0})) return true;
    if (const auto x = axis_crossing(edge)) {
      odd_left ^= *x < 0;
      odd_right ^= *x > 0;
    }
    return false;
  };
  Four<std::int32_t> sure{}, right{};
  for (std::size_t i = 0; i < n; i += 4) {
    while (i % stride == 0 && i + stride <= n && are_clear_of_axis(outline, i)) i += stride;
    const FourPoints from = four_vertices(outline, i, n), next = four_vertices(outline, i + 4, n);
    unsigned unsure = 15;
    if (!any(are_huge(from) | are_huge(next))) {
      const auto edges = sure_edges(from, {shifted(from.x, next.x), shifted(from.y, next.y)});
      unsure ^= edges.sure;
      sure ^= edges.cross;
      right ^= edges.right;
    }
    for (std::size_t k = i; unsure != 0 && k < n; ++k, unsure >>= 1) {
      if (unsure & 1 && is_on_edge(k)) return PolygonPosition::on_boundary;
    }
  }
  odd_left ^= std::popcount(lanes(sure ^ right)) % 2 != 0;
  odd_right ^= std::popcount(lanes(right)) % 2 != 0;
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
  const bool by_four = n >= 4 && is_small(line);
  for (std::size_t i = 0; i < n; i += 4) {
    // Again some of the last: that an edge is asked twice changes nothing.
    const std::size_t from = by_four ? std::min(i, n - 4) : i;
    unsigned near = 15;
    if (by_four) {
      const FourPoints p = {four_from(outline.xs() + from), four_from(outline.ys() + from)};
      const FourPoints q = {four_ends(outline.xs(), from, n), four_ends(outline.ys(), from, n)};
      near = may_cross(line, p, q) >> (i - from);
      if (near == 0 && i == from && are_on_one_side(p.y)) {
        (p.y[0] > 0 ? upper : lower).add_four(outline, i);
        continue;
      }
    }
    for (std::size_t k = i; k < std::min(i + 4, n); ++k, near >>= 1) {
      const Segment edge = {outline[k], outline[k + 1]};
      collect(edge.first);
      if (!(near & 1)) continue;
      const auto p = crossing(line, edge);
      if (p && collect(*p)) chord.entries()[chord_count++] = p->x;
    }
  }
  return length_between_pairs(chord.entries().first(chord_count));
}

}  // namespace kez
