#include "figures.h"

#include <cmath>

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/numbers.h"
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
float sum_over_edges(const ConstPlanePoints& outline, Term term) noexcept {
  if (outline.size() == 0) return 0;
  // A copy of the view stays in registers: seen through a reference, it is loaded in every step.
  return sum(outline.size() - 1,
             [=, points = outline](std::size_t i) { return term(points[i], points[i + 1]); });
}

}  // namespace

float polygon_area(const PlanePoints& outline) noexcept {
  close_outline(outline);
  return 0.5f * sum_over_edges(outline, [](Vec2 p, Vec2 q) { return (q.y - p.y) * (q.x + p.x); });
}

FirstMoments polygon_first_moments(const PlanePoints& outline) noexcept {
  close_outline(outline);
  const auto about_x = [](Vec2 p, Vec2 q) { return (p.x - q.x) * ((q.y + p.y) * q.y + p.y * p.y); };
  const auto about_y = [](Vec2 p, Vec2 q) { return (q.y - p.y) * ((q.x + p.x) * q.x + p.x * p.x); };
  return {sum_over_edges(outline, about_x) / 6, sum_over_edges(outline, about_y) / 6};
}

SecondMoments polygon_second_moments(const PlanePoints& outline) noexcept {
  close_outline(outline);
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
  return {sum_over_edges(outline, about_x) / 12, sum_over_edges(outline, about_y) / 12,
          sum_over_edges(outline, product) / 24};
}

namespace {

// What a circular segment or its complement takes of the circle.
struct Sector {
  float r, phi;

  // Of a circle of radius 1.
  float twice_unit_area() const noexcept { return phi - std::sin(phi); }
  float area() const noexcept { return r * r * twice_unit_area() * 0.5f; }
};

Sector sector(Vec2 centre, Vec2 p, Vec2 q, Figure figure) noexcept {
  const float phi = vertex_angle(centre, p, q);
  return {distance(centre, p), figure == Figure::complement ? 2 * pi - phi : phi};
}

}  // namespace

PlacedArea circular_segment(Vec2 centre, Vec2 p, Vec2 q, Figure figure) noexcept {
  const Sector part = sector(centre, p, q, figure);
  const float half_sine = std::sin(part.phi / 2);

  // The centroid's distance from the centre, 4 r sin^3(phi/2) / (3 (phi - sin phi)), signed against
  // the side of the chord on which the centre lies.
  const float e = 4 * part.r * (half_sine * half_sine * half_sine) / part.twice_unit_area() / -3.0f;
  const float outward = figure == Figure::complement ? -e : e;
  const Line chord = line_through(p, q);
  const float norm = std::sqrt(chord.a * chord.a + chord.b * chord.b);
  const float to_chord = signed_distance(centre, chord);
  const float offset = outward * to_chord / std::fabs(to_chord);
  return {part.area(), Vec2{chord.a / norm * offset, chord.b / norm * offset} + centre};
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

// All figures but the polygon, whose moments come without its centroid.
std::optional<PlacedArea> place_area(Figure figure, const ConstPlanePoints& points,
                                     float stated) noexcept {
  switch (figure) {
    case Figure::area_at_point:
      return PlacedArea{stated, points[0]};
    case Figure::circle: {
      const float r = distance(points[0], points[1]);
      return PlacedArea{pi * r * r, points[0]};
    }
    case Figure::segment:
    case Figure::complement:
      return circular_segment(points[0], points[1], points[2], figure);
    case Figure::polygon:
      break;
  }
  return std::nullopt;
}

float area_of(Figure figure, const PlanePoints& points, float stated, float otherwise) noexcept {
  // A stated area needs no point: a host may pass lists that have none.
  if (figure == Figure::area_at_point) return stated;
  if (figure == Figure::polygon) return polygon_area(points);
  // Without the centroid: a segment of no area has none, and dividing for it would raise.
  if (figure == Figure::segment || figure == Figure::complement) {
    return sector(points[0], points[1], points[2], figure).area();
  }
  const auto placed = place_area(figure, points, stated);
  return placed ? placed->area : otherwise;
}

FirstMoments first_moments_of(Figure figure, const PlanePoints& points, float stated,
                              FirstMoments otherwise) noexcept {
  if (figure == Figure::polygon) return polygon_first_moments(points);
  const auto placed = place_area(figure, points, stated);
  if (!placed) return otherwise;
  return {placed->centroid.y * placed->area, placed->area * placed->centroid.x};
}

}  // namespace

float figure_area(Figure figure, const PlanePoints& points, float stated, float factor,
                  float otherwise) noexcept {
  return area_of(figure, points, stated, otherwise) * factor;
}

FirstMoments figure_first_moments(Figure figure, const PlanePoints& points, float stated,
                                  float factor, FirstMoments otherwise) noexcept {
  const FirstMoments moments = first_moments_of(figure, points, stated, otherwise);
  return {moments.x * factor, factor * moments.y};
}

}  // namespace kez
