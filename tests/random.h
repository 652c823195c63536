// Seeded values for properties, biased to what geometry stumbles over.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include "frame/types.h"

namespace kez::test {

inline Vec2 polar(float radius, float angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

class Random {
 public:
  explicit Random(std::uint32_t seed) : engine_(seed) {}

  int integer(int low, int high) { return std::uniform_int_distribution(low, high)(engine_); }
  float real(float low, float high) { return std::uniform_real_distribution(low, high)(engine_); }

  // Often a small whole number, so that coincidences, ties and right angles are frequent.
  float coordinate() {
    return integer(0, 2) == 0 ? static_cast<float>(integer(-3, 3)) : real(-10, 10);
  }

  Vec2 point2() { return {coordinate(), coordinate()}; }
  Vec3 point3() { return {coordinate(), coordinate(), coordinate()}; }

  template <typename Draw>
  auto list(int n, Draw draw) {
    std::vector<decltype(draw())> values;
    for (int i = 0; i < n; ++i) values.push_back(draw());
    return values;
  }

 private:
  std::mt19937 engine_;
};

}  // namespace kez::test
