#include "vertex_angle.h"

#include <algorithm>

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/numbers.h"
#include "../frame/tolerance.h"
#include "../space/line_intersections.h"

namespace kez {

namespace {

bool foot_behind_vertex(Vec2 vertex, Vec2 p, Line ray, Vec2 point) noexcept {
  const LineMeeting foot = intersect(ray, line_in_direction(point, {ray.a, ray.b}));
  return foot.status == Meeting::one_point &&
         position_on_segment(in_plane(vertex), in_plane(p), in_plane(foot.point)) ==
             Position::before_first;
}

}  // namespace

void classify_points(Vec2 vertex, Vec2 p, Vec2 q, std::span<const float> xs,
                     std::span<const float> ys, std::span<std::int32_t> flags) noexcept {
  if (equal(vertex_angle(vertex, p, q), 0)) {
    std::fill(flags.begin(), flags.end(), number(AngleClass::none));
    return;
  }
  const Line first_ray = line_through(vertex, p), second_ray = line_through(vertex, q);
  for (std::size_t i = 0; i < flags.size(); ++i) {
    const Vec2 point = {xs[i], ys[i]};
    const bool between_lines =
        signed_distance(point, first_ray) * signed_distance(point, second_ray) < 0;
    const bool second = between_lines || foot_behind_vertex(vertex, p, first_ray, point);
    flags[i] = number(second ? AngleClass::second : AngleClass::first);
  }
}

}  // namespace kez
