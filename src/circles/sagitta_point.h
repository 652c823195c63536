// The point of a circle behind a point on a chord and a point on the chord's sagitta.
#pragma once

#include <cstdint>
#include <optional>

#include "guided_points.h"

namespace kez {

// The guide is the chord. The line runs from the point measured `l` along it through the point `h`
// above its midpoint, on the side that the sign of `sense` gives. Where that line misses the
// circle, the kept result is carried back in place of a crossing.
std::optional<GuidedPoint> point_over_sagitta(const Guide& chord, float l, std::int32_t sense,
                                              float h, Vec2& kept_result);

}  // namespace kez
