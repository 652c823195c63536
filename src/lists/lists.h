// Lists of integers, and lists of reals or integers whose entries are only moved.
#pragma once

#include <cstdint>
#include <span>

#include "../frame/tables.h"

namespace kez {

// Writes the entries of a, then those of b, and returns their number.
std::int32_t join(std::span<const RawWord> a, std::span<const RawWord> b,
                  std::span<RawWord> joined);

// The last entry of the list is the room for the new one. A position outside 1 .. size changes
// nothing.
void insert(std::span<RawWord> list, std::int32_t position, RawWord value);

// These sort the list and leave in front the distinct values, or those that occur at least twice.
// They write the marker over all others and return the number of entries below it.
std::int32_t keep_distinct(std::span<std::int32_t> list);
std::int32_t keep_repeated(std::span<std::int32_t> list);

struct Comparison {
  std::int32_t common, differing;
};

// Writes the entries of a as often as they stand in b, and the entries of a and of b that do not
// stand in the other.
Comparison compare(std::span<const std::int32_t> a, std::span<const std::int32_t> b,
                   std::int32_t common[], std::int32_t differing[]);

}  // namespace kez
