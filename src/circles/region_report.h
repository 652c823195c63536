// Where a circle lies against a dividing line and the x axis, and the report of it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

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
RegionFinding find_region(Vec2 centre, Vec2 p, Line line) noexcept;

// The records of one finding, and how much of them is written.
class Records {
 public:
  Records() = default;
  explicit Records(const RegionFinding& finding) noexcept;

  // Writes what is left of them, and returns whether nothing is.
  bool write(std::FILE* file) noexcept;

 private:
  void put(std::string_view text) noexcept;
  void put(std::string_view label, float value) noexcept;

  std::array<char, 256> text_{};  // the longest take fewer than 200
  std::size_t written_ = 0, end_ = 0;
};

// Writes findings to "OUTPUT.TXT" in the current directory, in Windows-1253. The file is replaced
// at the first finding and stays open. Records that cannot be written wait, without a word, for the
// next finding; while they wait, further ones are left out.
class RegionReport {
 public:
  void add(const RegionFinding& finding) noexcept;
  void close() noexcept;

 private:
  std::FILE* open() noexcept;

  std::FILE* file_ = nullptr;
  bool begun_ = false;
  Records waiting_;
};

}  // namespace kez
