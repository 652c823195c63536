#include "figures.h"

#include <cmath>

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/numbers.h"
#include "../frame/outline.h"
#include "../frame/points.h"
#include "../frame/tolerance.h"

namespace kez {

std::optional<ArcLengths> divide_circle(Vec2 centre, Vec2 p, Vec2 q) noexcept {
  const float r = distance(centre, p);
  if (r <= tolerance || distance(p, q) <= tolerance) return std::nullopt;
  const float arc = vertex_angle(centre, p, q) * r;
  return ArcLengths{arc, 2 * pi * r - arc};
}

namespace {

// The sum of term(p, q) over the edges from p to q, as Green's theorem makes it of an area
// integral.
template <typename Term>
float sum_over_edges(std::span<const float> xs, std::span<const float> ys, Term term) noexcept {
  if (xs.empty()) return 0;
  const float* const x = xs.data();
  const float* const y = ys.data();
  return sum(xs.size() - 1, [=](std::size_t i) {
    return term(Vec2{x[i], y[i]}, Vec2{x[i + 1], y[i + 1]});
  });
}

}  // namespace

float polygon_area(std::span<float> xs, std::span<float> ys) noexcept {
  close_outline(xs, ys);
  return 0.5f * sum_over_edges(xs, ys, [](Vec2 p, Vec2 q) { return (q.y - p.y) * (q.x + p.x); });
}

FirstMoments polygon_first_moments(std::span<float> xs, std::span<float> ys) noexcept {
  close_outline(xs, ys);
  const auto about_x = [](Vec2 p, Vec2 q) { return (p.x - q.x) * ((q.y + p.y) * q.y + p.y * p.y); };
  const auto about_y = [](Vec2 p, Vec2 q) { return (q.y - p.y) * ((q.x + p.x) * q.x + p.x * p.x); };
  return {sum_over_edges(xs, ys, about_x) / 6, sum_over_edges(xs, ys, about_y) / 6};
}

SecondMoments polygon_second_moments(std::span<float> xs, std::span<float> ys) noexcept {
  close_outline(xs, ys);
  const auto about_x = [](Vec2 p, Vec2 q) {
    return (p.y * p.y + q.y * q.y) * (p.y + q.y) * (p.x - q.x);
  };
  const auto about_y = [](Vec2 p, Vec2 q) {
    return (q.y - p.y) * (p.x + q.x) * (p.x * p.x + q.x * q.x);
  };
  const auto product = [](Vec2 p, Vec2 q) {
    const float sx = p.x + q.x;
    return (q.y - p.y) * (sx * sx * (p.y + q.y) + 2 * (p.y * (p.x * p.x) + q.y * (q.x * q.x)));
  };
  return {sum_over_edges(xs, ys, about_x) / 12, sum_over_edges(xs, ys, about_y) / 12,
          sum_over_edges(xs, ys, product) / 24};
}

Segment circular_segment(Vec2 centre, Vec2 p, Vec2 q, Figure figure) noexcept {
  const bool is_complement = figure == Figure::complement;
  const float r = distance(centre, p);
  const float angle_at_centre = vertex_angle(centre, p, q);
  const float phi = is_complement ? 2 * pi - angle_at_centre : angle_at_centre;
  const float half_sine = std::sin(phi / 2);
  const float twice_unit_area = phi - std::sin(phi);

  // The centroid's distance from the centre, 4 r sin^3(phi/2) / (3 (phi - sin phi)), signed against
  // the side of the chord on which the centre lies.
  const float e = 4 * r * (half_sine * half_sine * half_sine) / twice_unit_area / -3.0f;
  const float outward = is_complement ? -e : e;
  const Line chord = line_through(p, q);
  const float norm = std::sqrt(chord.a * chord.a + chord.b * chord.b);
  const float to_chord = signed_distance(centre, chord);
  const float offset = outward * to_chord / std::fabs(to_chord);
  return {r * r * twice_unit_area * 0.5f,
          Vec2{chord.a / norm * offset, chord.b / norm * offset} + centre};
}

std::size_t points_used(Figure figure, std::int32_t n) noexcept {
  switch (figure) {
    case Figure::area_at_point:
      return 1;
    case Figure::polygon:
      return outline_size(n);
    case Figure::circle:
      return 2;
    case Figure::segment:
    case Figure::complement:
      return 3;
  }
  return 0;
}

namespace {

struct PlacedArea {
  float area;
  Vec2 centroid;
};

// All figures but the polygon, whose moments come without its centroid.
std::optional<PlacedArea> place_area(Figure figure, std::span<const float> xs,
                                     std::span<const float> ys, float stated) noexcept {
  const auto point = [&](std::size_t i) { return Vec2{xs[i], ys[i]}; };
  switch (figure) {
    case Figure::area_at_point:
      return PlacedArea{stated, point(0)};
    case Figure::circle: {
      const float r = distance(point(0), point(1));
      return PlacedArea{pi * r * r, point(0)};
    }
    case Figure::segment:
    case Figure::complement: {
      const Segment segment = circular_segment(point(0), point(1), point(2), figure);
      return PlacedArea{segment.area, segment.centroid};
    }
    case Figure::polygon:
      break;
  }
  return std::nullopt;
}

float area_of(Figure figure, std::span<float> xs, std::span<float> ys, float stated,
              float otherwise) noexcept {
  // A stated area needs no point, and the lists may be empty.
  if (figure == Figure::area_at_point) return stated;
  if (figure == Figure::polygon) return polygon_area(xs, ys);
  const auto placed = place_area(figure, xs, ys, stated);
  return placed ? placed->area : otherwise;
}

FirstMoments first_moments_of(Figure figure, std::span<float> xs, std::span<float> ys, float stated,
                              FirstMoments otherwise) noexcept {
  if (figure == Figure::polygon) return polygon_first_moments(xs, ys);
  const auto placed = place_area(figure, xs, ys, stated);
  if (!placed) return otherwise;
  return {placed->centroid.y * placed->area, placed->area * placed->centroid.x};
}

}  // namespace

float figure_area(Figure figure, std::span<float> xs, std::span<float> ys, float stated,
                  float factor, float otherwise) noexcept {
  return area_of(figure, xs, ys, stated, otherwise) * factor;
}

FirstMoments figure_first_moments(Figure figure, std::span<float> xs, std::span<float> ys,
                                  float stated, float factor, FirstMoments otherwise) noexcept {
  const FirstMoments moments = first_moments_of(figure, xs, ys, stated, otherwise);
  return {moments.x * factor, factor * moments.y};
}

}  // namespace kez
