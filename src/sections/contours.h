// One contour of an outline whose contours stand one after another in one array.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace kez {

struct Block {
  std::int32_t offset, count;  // entries before it, and its own
};

// The block of the last count; none where it is empty, or where the counts lead out of the array.
std::optional<Block> last_block(std::span<const std::int32_t> counts);

}  // namespace kez
