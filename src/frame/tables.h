// Search, reversal, selection and blocks in the caller's tables. Positions are 1-based, 0 is
// none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace kez {

// The first i with x(i) <= v < x(i + 1), whether or not the table ascends.
std::int32_t find_interval(std::span<const float> x, float v);

enum class Match : std::int32_t { none = 0, entry = 1, interval = 2 };

struct Place {
  Match match;
  std::int32_t position;
};

// The first entry equal to v, else the first interval with v strictly inside.
Place find_place(std::span<const float> x, float v);

// An entry of a list of reals or integers, which is only moved. Bytes may alias the caller's reals
// as well as integers.
struct RawWord {
  std::byte bytes[4];
};

void reverse(std::span<RawWord> x);

// Writes the positions of v, ascending, and returns their number.
std::int32_t select(std::span<const std::int32_t> table, std::int32_t v,
                    std::span<std::int32_t> positions);

struct RangeEntries {
  std::int32_t count;
  float below, above;  // from the range's ends to its first and last entry
};

// The entries inside. If there are none, the two that enclose the range, with distances of 0.
std::optional<RangeEntries> find_range(std::span<const float> x, float low, float high,
                                       std::span<std::int32_t> positions);

// One contour of an outline whose contours stand one after another in one array.
struct Block {
  std::int32_t offset, count;  // entries before it, and its own
};

// The block of the last count. None if it is empty, or if the counts lead out of the array.
std::optional<Block> last_block(std::span<const std::int32_t> counts);

}  // namespace kez
