#include "directions.h"

#include <algorithm>
#include <cmath>

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/numbers.h"
#include "../frame/points.h"
#include "../frame/tolerance.h"

namespace kez {

float direction_angle(Vec2 v) {
  const float phi = vertex_angle(Vec2{0, 0}, {1, 0}, v);
  return non_zero(v.y) ? phi * v.y / std::fabs(v.y) : phi;
}

// The angle at a vertex never exceeds pi, so the sum falls short of (n - 2) pi if a vertex is
// reflex. The tolerance does not grow with the number of vertices.
Convexity classify_outline(const PlanePoints& outline) {
  const std::size_t n = close_outline(outline);
  if (n == 0) return Convexity::not_convex;
  float sum = vertex_angle(outline[0], outline[n - 1], outline[1]);
  for (std::size_t i = 1; i < n; ++i) {
    sum += vertex_angle(outline[i], outline[i - 1], outline[i + 1]);
  }
  const float expected = static_cast<float>(static_cast<std::int32_t>(n) - 2) * pi;
  return equal(sum, expected) ? Convexity::convex : Convexity::not_convex;
}

Feet drop_perpendiculars(Vec3 before, Vec3 first, Vec3 second, Vec3 after) {
  const Line line = line_through({first.x, first.y}, {second.x, second.y});
  const auto height = [line](Vec3 p) { return std::fabs(signed_distance({p.x, p.y}, line)); };
  const auto leg = [](float hypotenuse, float other) {
    return std::sqrt(hypotenuse * hypotenuse - other * other);
  };
  const float h0 = height(before), h3 = height(after), l = distance(first, second);
  return {h0, leg(distance(before, first), h0), h3, l - leg(distance(second, after), h3), l};
}

namespace {

bool foot_behind_vertex(Vec2 vertex, Vec2 p, Line ray, Vec2 point) {
  const LineMeeting foot = intersect_lines(ray, line_in_direction(point, {ray.a, ray.b}));
  return foot.status == Meeting::one_point &&
         position_on_segment(Segment{vertex, p}, foot.point) == Position::before_first;
}

}  // namespace

void relate_points_angle(Vec2 vertex, Vec2 p, Vec2 q, const ConstPlanePoints& points,
                         std::span<std::int32_t> flags) {
  if (equal(vertex_angle(vertex, p, q), 0)) {
    std::fill(flags.begin(), flags.end(), code_of(AngleClass::none));
    return;
  }
  const Line first_ray = line_through(vertex, p), second_ray = line_through(vertex, q);
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Vec2 point = points[i];
    const bool between_lines =
        signed_distance(point, first_ray) * signed_distance(point, second_ray) < 0;
    const bool second = between_lines || foot_behind_vertex(vertex, p, first_ray, point);
    flags[i] = code_of(second ? AngleClass::second : AngleClass::first);
  }
}

}  // namespace kez
