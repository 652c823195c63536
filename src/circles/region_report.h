// Where a circle lies against a dividing line and the x axis, and the report of it.
#pragma once

#include <cstdint>
#include <cstdio>

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

// Writes findings to "OUTPUT.TXT" in the current directory, in Windows-1253. The file is replaced
// at the first finding and stays open. What cannot be written is left out without a word, and the
// next finding tries again.
class RegionReport {
 public:
  void add(const RegionFinding& finding) noexcept;
  void close() noexcept;

 private:
  std::FILE* open() noexcept;

  std::FILE* file_ = nullptr;
  bool begun_ = false;
  long end_ = 0;
};

}  // namespace kez
