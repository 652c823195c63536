#include "vertex_angle.h"

#include <algorithm>

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/numbers.h"
#include "../frame/tolerance.h"

namespace kez {

namespace {

bool foot_behind_vertex(Vec2 vertex, Vec2 p, Line ray, Vec2 point) {
  const LineMeeting foot = intersect_lines(ray, line_in_direction(point, {ray.a, ray.b}));
  return foot.status == Meeting::one_point &&
         position_on_segment(Segment{vertex, p}, foot.point) == Position::before_first;
}

}  // namespace

void locate_in_angle(Vec2 vertex, Vec2 p, Vec2 q, const ConstPlanePoints& points,
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
