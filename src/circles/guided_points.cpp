#include "guided_points.h"

#include <cmath>

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/points.h"
#include "../frame/quiet.h"
#include "../frame/tolerance.h"
#include "circle.h"
#include "directions.h"

namespace kez {

namespace {

// The shortest length that can be measured on site, in the caller's units. It is not the tolerance.
constexpr float clearance = 0.001f;

Vec2 measured_point(const Guide& guide, float t) {
  // A guide longer than the clearance has no coinciding ends.
  return point_along(guide.start, guide.end, t).value_or(Vec2{});
}

Line across_guide(const Guide& guide, Vec2 p) {
  const Line along = line_through(guide.start, guide.end);
  return line_in_direction(p, {along.a, along.b});
}

void refresh(KeptCrossings& kept, const Crossings& found) {
  if (found.count >= 1) kept.first = found.first;
  if (found.count == 2) kept.second = found.second;
}

// Deliberate: whatever the number of crossings, two are used, kept ones if need be (kezcer6).
Vec2 cross_circle(const Guide& guide, float radius, Line line, std::int32_t sense,
                  KeptCrossings& kept) {
  refresh(kept, intersect_line_circle(line, circle_about(guide.centre, radius)));
  const float side = cross(guide.start - guide.centre, kept.first - guide.centre);
  return std::isless(static_cast<float>(sense) * side, 0.0f) ? kept.first : kept.second;
}

// States what is refused, because not-a-number must pass.
bool can_measure(float radius, float d, float l) {
  return !(radius <= clearance || d <= clearance || l <= clearance || d - l <= clearance);
}

}  // namespace

std::optional<Vec2> carry_along_ray(const Guide& guide, std::int32_t sense, float l,
                                    KeptCrossings& kept) {
  const float radius = distance(guide.start, guide.centre), d = distance(guide.end, guide.start);
  // Deliberate: a length equal to the diameter is refused whatever the guide's direction (kezcer6).
  if (!can_measure(radius, d, l) || std::fabs(l - radius - radius) < clearance) return std::nullopt;
  const Line ray = line_through(guide.centre, measured_point(guide, l / d));
  return cross_circle(guide, radius, ray, sense, kept);
}

std::optional<Vec2> carry_across(const Guide& guide, std::int32_t sense, float l,
                                 KeptCrossings& kept) {
  const float radius = distance(guide.start, guide.centre), d = distance(guide.end, guide.start);
  if (!can_measure(radius, d, l)) return std::nullopt;
  return cross_circle(guide, radius, across_guide(guide, measured_point(guide, l / d)), sense,
                      kept);
}

std::optional<Opening> carry_opening_across(const Guide& guide, std::int32_t sense, float l,
                                            float w, KeptOpening& kept) {
  const float radius = distance(guide.start, guide.centre), d = distance(guide.end, guide.start);
  if (!can_measure(radius, d, l) || w <= clearance) return std::nullopt;
  // Strict, unlike the others: an opening may come as near to an end as the clearance.
  const float half = w * 0.5f;
  if (l - half < clearance || d - l - half < clearance) return std::nullopt;
  const Line before = across_guide(guide, measured_point(guide, (l - half) / d));
  const Line after = across_guide(guide, measured_point(guide, (half + l) / d));
  return Opening{cross_circle(guide, radius, before, sense, kept.first),
                 cross_circle(guide, radius, after, sense, kept.second)};
}

namespace {

bool has_frame(const Guide& guide) {
  return !(at_most_tolerance(distance(guide.start, guide.centre)) ||
           at_most_tolerance(distance(guide.end, guide.start)));
}

// The start becomes the origin, and the end comes to the positive x axis. Not by direction_angle:
// that has no sign within the tolerance of the axis, and here the sign counts however little the
// guide falls.
LocalFrame frame_of(const Guide& guide) {
  const Vec2 v = guide.end - guide.start;
  const float angle = vertex_angle(Vec2{0, 0}, {1, 0}, v);
  return {guide.start, v.y < 0 ? -angle : angle};
}

Guide to_local(const LocalFrame& frame, const Guide& guide) {
  return {frame.to_local(guide.centre), frame.to_local(guide.start), frame.to_local(guide.end)};
}

Guide to_global(const LocalFrame& frame, const Guide& guide) {
  return {frame.to_global(guide.centre), frame.to_global(guide.start), frame.to_global(guide.end)};
}

// What was found in the frame, carried back with the guide: without crossings the kept result.
GuidedPoint carry_back(const LocalFrame& frame, const Guide& local, const Crossings& found,
                       Vec2 beside, bool (*takes_first)(float), Vec2& kept_result) {
  Vec2 result = kept_result;
  if (found.count == 2) {
    // Positive if the first crossing and the point beside the guide lie on one side of it.
    const Line along = line_through(local.start, local.end);
    const float sides = signed_distance(found.first, along) * signed_distance(beside, along);
    result = takes_first(sides) ? found.first : found.second;
  }
  kept_result = frame.to_global(result);
  return {kept_result, to_global(frame, local)};
}

}  // namespace

std::optional<GuidedPoint> carry_at_angle(const Guide& guide, float l, float theta,
                                          Vec2& kept_result) {
  if (!has_frame(guide)) return std::nullopt;
  const auto measured = point_along(guide.start, guide.end, l / distance(guide.end, guide.start));
  if (!measured) return std::nullopt;

  const LocalFrame frame = frame_of(guide);
  const Guide local = to_local(frame, guide);
  const Line line = line_at_angle(frame.to_local(*measured), theta);
  const float radius = distance(guide.start, guide.centre);
  const Crossings found = intersect_line_circle(line, circle_about(local.centre, radius));
  if (found.count == 1) return std::nullopt;

  // The second if the first lies on the centre's side of the guide.
  return carry_back(frame, local, found, local.centre, at_most_tolerance, kept_result);
}

std::optional<GuideMeeting> meet_guide(const Guide& guide, float dphi, float theta,
                                       Vec2& kept_meeting) {
  if (!has_frame(guide)) return std::nullopt;
  // The rotated point exists because the radius is longer than the tolerance.
  const Vec2 rotated = rotate_about(guide.centre, guide.start, dphi).point.value_or(guide.start);

  const LocalFrame frame = frame_of(guide);
  const Guide local = to_local(frame, guide);
  const Line line = line_at_angle(frame.to_local(rotated), theta);
  const LineMeeting meeting = intersect_lines(line, line_through(local.start, local.end));
  kept_meeting = meeting.point_or(kept_meeting);

  // Deliberate: if the point is on the guide's line but at neither end, the status is 0 however the
  // lines lie (kezcer10).
  const Position position = position_on_segment(Segment{local.start, local.end}, kept_meeting);
  const bool on_line = position == Position::between || position == Position::before_first ||
                       position == Position::beyond_second;
  return GuideMeeting{on_line ? Meeting::one_point : meeting.status,
                      {frame.to_global(kept_meeting), to_global(frame, local)}};
}

namespace {

// The first if the ends coincide.
Vec2 point_between(Vec2 p, Vec2 q, float t) {
  return point_along(p, q, t).value_or(p);
}

// The point at the height h over the chord's midpoint, towards the middle of the arc.
Vec2 raised_point(const Guide& chord, std::int32_t sense, float h) {
  const Vec2 foot = midpoint(chord.start, chord.end);
  const float phi = vertex_angle(chord.centre, chord.start, chord.end);
  const float half_arc = static_cast<float>(sense) * phi * -0.5f;
  const Vec2 crown = rotate_about(chord.centre, chord.start, half_arc).point.value_or(chord.start);
  return point_between(foot, crown, quiet::divide(h, distance(foot, crown)));
}

}  // namespace

std::optional<GuidedPoint> point_over_sagitta(const Guide& chord, float l, std::int32_t sense,
                                              float h, Vec2& kept_result) {
  if (l < 0 || at_most_tolerance(h)) return std::nullopt;
  const float radius = distance(chord.start, chord.centre), d = distance(chord.end, chord.start);
  if (at_most_tolerance(radius) || at_most_tolerance(d) || at_most_tolerance(d - l))
    return std::nullopt;

  const LocalFrame frame(chord.start, direction_angle(chord.end - chord.start));
  const Guide local = to_local(frame, chord);
  const Vec2 measured = frame.to_local(point_between(chord.start, chord.end, l / d));
  const Vec2 raised = frame.to_local(raised_point(chord, sense, h));
  const Crossings found =
      intersect_line_circle(line_through(measured, raised), circle_about(local.centre, radius));
  if (found.count == 1) return std::nullopt;

  // The crossing on the raised point's side of the chord; within the tolerance, the second.
  return carry_back(frame, local, found, raised, above_tolerance, kept_result);
}

}  // namespace kez
