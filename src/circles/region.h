// Where a circle lies against a dividing line and the x axis.
#pragma once

#include <cstdint>

#include "../frame/types.h"
#include "circle.h"

namespace kez {

enum class Region : std::int32_t {
  circle_in_positive = 1,
  circle_in_negative = 2,
  segment_in_positive = 3,
  complement_in_positive = 4,
};

struct RegionFinding {
  Region region;
  Crossings crossings;
};

// The circle about `centre` through p.
RegionFinding find_region(Vec2 centre, Vec2 p, Line line);

}  // namespace kez
