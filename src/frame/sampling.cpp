#include "sampling.h"

#include <cstdlib>

#include "numbers.h"
#include "points.h"
#include "quiet.h"

namespace kez {

Division divide(float length, float wanted_step) {
  if (!(wanted_step > 0.001f)) return {0, 0, 1};
  // The slack of one part in a thousand keeps a length that exceeds a multiple of the step by
  // rounding from getting one more segment.
  constexpr float slack = 1.001f;
  const std::int32_t segments = successor(truncate(length / wanted_step / slack));
  return {length / static_cast<float>(segments), segments, successor(segments)};
}

void sample_segment(Segment<Vec3> segment, float step, const SpacePoints& points, Vec3& interior) {
  const auto [first, last] = segment;
  const std::size_t n = points.size();
  if (n == 0) return;
  points.put(0, first);
  points.put(n - 1, last);

  const float length = distance(first, last);
  for (std::size_t i = 1; i + 1 < n; ++i) {
    const float t = quiet::divide(static_cast<float>(i) * step, length);
    interior = point_along(first, last, t).value_or(interior);
    points.put(i, interior);
  }
}

float integrate(std::span<const float> samples, float a, float b) {
  if (samples.empty()) return 0;
  const std::size_t n = samples.size();
  const float h = quiet::divide(b - a, static_cast<float>(n - 1));
  float total = (samples.front() + samples.back()) * 0.5f;
  if (n >= 4) total += sum(n - 3, [&](std::size_t i) { return samples[i + 1]; });
  return h * total;
}

AlternateRuns split_alternately(std::int32_t i1, std::int32_t i2, std::int32_t max) {
  if (i1 < 1 || i2 < 1 || i1 > max || i2 > max) return {};
  // A run of one index counts as falling: its second member is not used, and must not overflow.
  const std::int32_t direction = i1 < i2 ? 1 : -1;
  const std::int32_t even_count = (std::abs(i2 - i1) + 1) / 2;
  const std::int32_t odd_count = std::abs(i2 - i1) / 2 + 1;
  return {{i1, 2 * direction, odd_count}, {i1 + direction, 2 * direction, even_count}};
}

void write(Run run, std::span<std::int32_t> list) {
  for (std::int32_t i = 0; i < run.count; ++i)
    list[static_cast<std::size_t>(i)] = run.first + i * run.step;
}

}  // namespace kez
