// The entries of an ascending table that lie in a range. Positions are 1-based.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace kez {

struct RangeEntries {
  std::int32_t count;
  float below, above;  // from the range's ends to its first and last entry
};

// The entries inside; without any, the two that enclose the range, with distances of 0.
std::optional<RangeEntries> find_range(std::span<const float> x, float low, float high,
                                       std::int32_t positions[]);

}  // namespace kez
