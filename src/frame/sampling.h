// Evenly spaced points and samples, and runs of indexes.
#pragma once

#include <cstdint>
#include <span>

#include "point_lists.h"
#include "types.h"

namespace kez {

struct Division {
  float step;
  std::int32_t segments;
  std::int32_t points;
};

// Equal steps close to the wanted one; none if that is 0.001 or less.
Division divide(float length, float wanted_step);

// Points of a segment at multiples of the step, between its two ends. `interior` is the last point
// written between the ends of a segment. If the ends coincide, it stands for all of them.
void sample_segment(Segment<Vec3> segment, float step, const SpacePoints& points, Vec3& interior);

// The trapezoid rule. Deliberate: the last interior sample is left out (kezinr).
float integrate(std::span<const float> samples, float a, float b);

struct Run {
  std::int32_t first, step, count;
};

struct AlternateRuns {
  Run odd, even;
};

// The first, third, ... and the second, fourth, ... indexes from i1 to i2, empty if an end lies
// outside 1..max.
AlternateRuns split_alternately(std::int32_t i1, std::int32_t i2, std::int32_t max);

void write(Run run, std::span<std::int32_t> list);

}  // namespace kez
