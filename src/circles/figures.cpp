#include "figures.h"

#include <array>
#include <cmath>

#include "../frame/angles.h"
#include "../frame/four.h"
#include "../frame/lines.h"
#include "../frame/points.h"
#include "../frame/tolerance.h"

namespace kez {

std::optional<ArcLengths> divide_circle(Vec2 centre, Vec2 p, Vec2 q) {
  const float r = distance(centre, p);
  if (at_most_tolerance(r) || at_most_tolerance(distance(p, q))) return std::nullopt;
  const float arc = vertex_angle(centre, p, q) * r;
  return ArcLengths{arc, 2 * pi * r - arc};
}

namespace {

// The sums of terms(px, py, qx, qy) over the edges from p to q, as Green's theorem makes them of
// area integrals. Every fourth edge has its own partial sum, in a fixed order: every build rounds
// alike.
template <std::size_t count, typename Terms>
std::array<float, count> sum_over_edges(const ConstPlanePoints& outline, Terms terms) {
  std::array<float, count> sums{};
  if (outline.size() == 0) return sums;
  const float *const xs = outline.xs(), *const ys = outline.ys();
  const std::size_t n = outline.size() - 1;
  const auto add = [](auto& to, const auto& of) {
    for (std::size_t k = 0; k < count; ++k) to[k] += of[k];
  };

  std::array<Four<float>, count> partial{};
  std::size_t i = 0;
  for (; i + 4 <= n; i += 4) {
    add(partial,
        terms(four_from(xs + i), four_from(ys + i), four_ends(xs, i, n), four_ends(ys, i, n)));
  }
  for (; i < n; ++i) {
    const std::size_t next = i + 1 < n ? i + 1 : 0;  // for the same reason as in four_ends
    add(sums, terms(xs[i], ys[i], xs[next], ys[next]));
  }
  for (std::size_t k = 0; k < count; ++k) {
    const Four<float> four = partial[k];
    sums[k] += (four[0] + four[2]) + (four[1] + four[3]);
  }
  return sums;
}

// What a circular segment or its complement takes of the circle.
struct Sector {
  float r, phi;

  // Of a circle of radius 1.
  float twice_unit_area() const { return phi - std::sin(phi); }
  float area() const { return r * r * twice_unit_area() * 0.5f; }
};

Sector sector(Vec2 centre, Vec2 p, Vec2 q, Figure figure) {
  const float phi = vertex_angle(centre, p, q);
  return {distance(centre, p), figure == Figure::complement ? 2 * pi - phi : phi};
}

// All figures except the polygon, whose moments come without its centroid.
std::optional<PlacedArea> place_area(Figure figure, const ConstPlanePoints& points, float stated) {
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

float area_of(Figure figure, const PlanePoints& points, float stated, float otherwise) {
  // A stated area needs no point: a host may pass lists that have none.
  if (figure == Figure::area_at_point) return stated;
  if (figure == Figure::polygon) return polygon_area(points);
  // Without the centroid: a segment without area has none, and the division for it would raise an
  // exception.
  if (figure == Figure::segment || figure == Figure::complement) {
    return sector(points[0], points[1], points[2], figure).area();
  }
  const auto placed = place_area(figure, points, stated);
  return placed ? placed->area : otherwise;
}

FirstMoments first_moments_of(Figure figure, const PlanePoints& points, float stated,
                              FirstMoments otherwise) {
  if (figure == Figure::polygon) return polygon_first_moments(points);
  const auto placed = place_area(figure, points, stated);
  if (!placed) return otherwise;
  return {placed->centroid.y * placed->area, placed->area * placed->centroid.x};
}

}  // namespace

float polygon_area(const PlanePoints& outline) {
  close_outline(outline);
  const auto terms = [](auto px, auto py, auto qx, auto qy) {
    return std::array{(qy - py) * (qx + px)};
  };
  return 0.5f * sum_over_edges<1>(outline, terms)[0];
}

FirstMoments polygon_first_moments(const PlanePoints& outline) {
  close_outline(outline);
  const auto terms = [](auto px, auto py, auto qx, auto qy) {
    return std::array{(px - qx) * ((qy + py) * qy + py * py),
                      (qy - py) * ((qx + px) * qx + px * px)};
  };
  const auto [about_x, about_y] = sum_over_edges<2>(outline, terms);
  return {about_x / 6, about_y / 6};
}

SecondMoments polygon_second_moments(const PlanePoints& outline) {
  close_outline(outline);
  const auto terms = [](auto px, auto py, auto qx, auto qy) {
    const auto dy = qy - py, sx = px + qx, sy = py + qy, px2 = px * px, qx2 = qx * qx;
    return std::array{(py * py + qy * qy) * sy * (px - qx), dy * sx * (px2 + qx2),
                      dy * (sx * sx * sy + 2.0f * (py * px2 + qy * qx2))};
  };
  const auto [about_x, about_y, product] = sum_over_edges<3>(outline, terms);
  return {about_x / 12, about_y / 12, product / 24};
}

PlacedArea circular_segment(Vec2 centre, Vec2 p, Vec2 q, Figure figure) {
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

std::size_t points_used(Figure figure, std::int32_t n) {
  switch (figure) {
    case Figure::area_at_point:
      return 1;
    case Figure::polygon:
      return size_with_place(n);
    case Figure::circle:
      return 2;
    case Figure::segment:
    case Figure::complement:
      return 3;
  }
  return 0;
}

float figure_area(Figure figure, const PlanePoints& points, float stated, float factor,
                  float otherwise) {
  return area_of(figure, points, stated, otherwise) * factor;
}

FirstMoments figure_first_moments(Figure figure, const PlanePoints& points, float stated,
                                  float factor, FirstMoments otherwise) {
  const FirstMoments moments = first_moments_of(figure, points, stated, otherwise);
  return {moments.x * factor, factor * moments.y};
}

}  // namespace kez
