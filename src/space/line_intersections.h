// Lines against lines.
#pragma once

#include <cstdint>

#include "../frame/types.h"

namespace kez {

enum class Meeting : std::int32_t { one_point = 0, coincident = 1, parallel = 2 };

struct LineMeeting {
  Meeting status;
  Vec2 point;  // only where there is one
};

LineMeeting intersect(Line p, Line q) noexcept;

}  // namespace kez
