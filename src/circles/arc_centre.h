// The centre of an arc between two points, by its radius or by its rise over the chord.
#pragma once

#include <cstdint>
#include <optional>

#include "../frame/types.h"

namespace kez {

// Deliberate: a nearly level chord has 0 although it has its two centres (kezcer2).
enum class CentreStatus : std::int32_t { none_or_level_chord = 0, one = 1, two = 2 };

struct ArcCentres {
  CentreStatus status;
  Vec2 first, second;
  std::optional<Vec2> chosen;
};

// The sign of `sense` chooses by the signed distance from the chord's line; 0 chooses the first.
// None if the points are the same, or if the radius is at most the tolerance or too short for a
// chord that is not level.
std::optional<ArcCentres> arc_centres(Vec2 p, Vec2 q, std::int32_t sense, float radius);

struct RisenArc {
  float radius;
  CentreStatus status;
  std::optional<Vec2> centre;
};

std::optional<RisenArc> arc_by_rise(Vec2 p, Vec2 q, std::int32_t sense, float rise);

}  // namespace kez
