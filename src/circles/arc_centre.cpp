#include "arc_centre.h"

#include <cmath>

#include "../frame/lines.h"
#include "../frame/points.h"
#include "../frame/quiet.h"
#include "../frame/tolerance.h"
#include "circle.h"

namespace kez {

namespace {

// The centres lie on the chord's perpendicular bisector 2 dx x + 2 dy y = k.
struct Bisector {
  float dx, dy, k;

  float y_at(float x) const { return (k - 2 * dx * x) / dy * 0.5f; }
};

ArcCentres centres_over_level_chord(Vec2 p, Bisector bisector, float radius) {
  const float x = bisector.k / bisector.dx * 0.5f;
  const float h = quiet::sqrt(radius * radius - (p.x - x) * (p.x - x));
  return {CentreStatus::none_or_level_chord, {x, p.y - h}, {x, p.y + h}, std::nullopt};
}

// (x - p.x)^2 + (y - p.y)^2 = radius^2 with y from the bisector.
Quadratic equation_of_centres(Vec2 p, Bisector bisector, float radius) {
  const auto [dx, dy, k] = bisector;
  const float slope = dx / dy;
  return {slope * slope + 1, -2 * p.x - dx * k / (dy * dy) + 2 * p.y * dx / dy,
          k * k / (dy * dy) * 0.25f - p.y * k / dy - radius * radius + p.x * p.x + p.y * p.y};
}

std::optional<ArcCentres> centres_over_chord(Vec2 p, Bisector bisector, float radius) {
  const Quadratic equation = equation_of_centres(p, bisector, radius);
  const float discriminant = equation.discriminant();
  // Below zero there is no centre, however near it is: unlike a line that touches a circle.
  if (discriminant < 0) return std::nullopt;
  const auto point_at = [bisector](float x) { return Vec2{x, bisector.y_at(x)}; };
  if (at_most_tolerance(discriminant)) {
    const Vec2 middle = point_at(equation.double_root());
    return ArcCentres{CentreStatus::one, middle, middle, std::nullopt};
  }
  const float s = std::sqrt(discriminant);
  return ArcCentres{CentreStatus::two, point_at(equation.first_root(s)),
                    point_at(equation.second_root(s)), std::nullopt};
}

// The second test overrides the first, and with centres that are not numbers neither holds.
std::optional<Vec2> choose(Line chord, Vec2 first, Vec2 second, float sense) {
  std::optional<Vec2> chosen;
  if (std::isgreaterequal(signed_distance(first, chord) * sense, 0.0f)) chosen = first;
  if (std::isgreater(signed_distance(second, chord) * sense, 0.0f)) chosen = second;
  return chosen;
}

}  // namespace

std::optional<ArcCentres> arc_centres(Vec2 p, Vec2 q, std::int32_t sense, float radius) {
  const Vec2 chord = q - p;
  if (is_exactly_zero(chord) || at_most_tolerance(radius)) return std::nullopt;
  const Bisector bisector = {chord.x, chord.y, -(p.x * p.x + p.y * p.y) + q.x * q.x + q.y * q.y};
  auto centres = below_tolerance(std::fabs(chord.y)) ? centres_over_level_chord(p, bisector, radius)
                                                     : centres_over_chord(p, bisector, radius);
  if (centres) {
    centres->chosen =
        choose(line_through(p, q), centres->first, centres->second, static_cast<float>(sense));
  }
  return centres;
}

std::optional<RisenArc> arc_by_rise(Vec2 p, Vec2 q, std::int32_t sense, float rise) {
  if (below_tolerance(rise)) return std::nullopt;
  // Centre, crown and an end of the arc make an isosceles triangle with the angle theta at the
  // crown, so that half the chord is radius sin(pi - 2 theta).
  const float chord = distance(p, q);
  const float theta = std::atan(chord / rise * 0.5f);
  const float radius = chord / std::sin(pi - 2 * theta) * 0.5f;
  const auto centres = arc_centres(p, q, sense, radius);
  if (!centres) return RisenArc{radius, CentreStatus::none_or_level_chord, std::nullopt};
  return RisenArc{radius, centres->status, centres->chosen};
}

}  // namespace kez
