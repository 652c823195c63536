#include "sagitta_point.h"

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/points.h"
#include "../frame/quiet.h"
#include "../frame/tolerance.h"
#include "circle.h"
#include "directions.h"

namespace kez {

namespace {

// Between ends that coincide, the first.
Vec2 point_between(Vec2 p, Vec2 q, float t) {
  return point_along(p, q, t).value_or(p);
}

// The point at the height h over the chord's midpoint, towards the middle of the arc.
Vec2 raised_point(const Guide& chord, std::int32_t sense, float h) {
  const Vec2 foot = midpoint(chord.start, chord.end);
  const float phi = vertex_angle(chord.centre, chord.start, chord.end);
  const float half_arc = static_cast<float>(sense) * phi * -0.5f;
  const Vec2 crown = rotate_about(chord.centre, chord.start, half_arc).point.value_or(chord.start);
  return point_between(foot, crown, quotient(h, distance(foot, crown)));
}

}  // namespace

std::optional<GuidedPoint> point_over_sagitta(const Guide& chord, float l, std::int32_t sense,
                                              float h, Vec2& kept_result) {
  if (l < 0 || h <= tolerance) return std::nullopt;
  const float radius = distance(chord.start, chord.centre), d = distance(chord.end, chord.start);
  if (radius <= tolerance || d <= tolerance || d - l <= tolerance) return std::nullopt;

  const LocalFrame frame(chord.start, direction_angle(chord.end - chord.start));
  const Guide local = to_local(frame, chord);
  const Vec2 measured = frame.to_local(point_between(chord.start, chord.end, l / d));
  const Vec2 raised = frame.to_local(raised_point(chord, sense, h));
  const Crossings found =
      intersect_line_circle(line_through(measured, raised), circle_about(local.centre, radius));
  if (found.count == 1) return std::nullopt;

  Vec2 result = kept_result;
  if (found.count == 2) {
    // The crossing on the raised point's side of the chord; within the tolerance, the second.
    const Line along = line_through(local.start, local.end);
    const float sides = signed_distance(found.first, along) * signed_distance(raised, along);
    result = sides > tolerance ? found.first : found.second;
  }
  kept_result = frame.to_global(result);
  return GuidedPoint{kept_result, to_global(frame, local)};
}

}  // namespace kez
