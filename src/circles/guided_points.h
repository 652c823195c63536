// Points set out on a circle by measuring along a straight guide that starts on it.
#pragma once

#include <cstdint>
#include <optional>

#include "../frame/lines.h"
#include "../frame/types.h"
#include "local_frame.h"

namespace kez {

// `start` lies on the circle about `centre`; the guide leads from it to `end`.
struct Guide {
  Vec2 centre, start, end;
};

// The last two crossings with a circle. A line that misses the circle refreshes neither and one
// that touches it only the first; the others stay, and are used as if they were found now.
struct KeptCrossings {
  Vec2 first, second;
};

// The point measured `l` along the guide, carried to the circle along the ray from the centre or
// square to the guide. The sign of `sense` chooses the crossing. None if the guide, the circle, the
// measured part or the rest of the guide is too short.
std::optional<Vec2> carry_along_ray(const Guide& guide, std::int32_t sense, float l,
                                    KeptCrossings& kept);
std::optional<Vec2> carry_across(const Guide& guide, std::int32_t sense, float l,
                                 KeptCrossings& kept);

struct Opening {
  Vec2 first, second;
};

struct KeptOpening {
  KeptCrossings first, second;
};

// The edges of an opening of width w whose middle is measured `l` along the guide, both carried
// across.
std::optional<Opening> carry_opening_across(const Guide& guide, std::int32_t sense, float l,
                                            float w, KeptOpening& kept);

// A construction in the guide's frame: the result, and the guide after the way there and back.
struct GuidedPoint {
  Vec2 point;
  Guide guide;
};

// The point measured `l` along the guide, carried to the circle at the angle theta to the guide. If
// that line misses the circle, the kept result is carried back in place of a crossing.
std::optional<GuidedPoint> carry_at_angle(const Guide& guide, float l, float theta,
                                          Vec2& kept_result);

struct GuideMeeting {
  Meeting status;
  GuidedPoint result;
};

// The start rotated about the centre by dphi, and carried at the angle theta to the guide's line.
// For parallel and coinciding lines the kept meeting point is used. It was found in the frame of an
// earlier guide and counts as a point in the frame of this one.
std::optional<GuideMeeting> meet_guide(const Guide& guide, float dphi, float theta,
                                       Vec2& kept_meeting);

// The guide is the chord. The line runs from the point measured `l` along it through the point `h`
// above its midpoint, on the side that the sign of `sense` gives. If that line misses the circle,
// the kept result is carried back in place of a crossing.
std::optional<GuidedPoint> point_over_sagitta(const Guide& chord, float l, std::int32_t sense,
                                              float h, Vec2& kept_result);

}  // namespace kez
