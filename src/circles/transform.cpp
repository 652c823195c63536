#include "transform.h"

#include <cmath>

namespace kez {

void translate(std::span<float> xs, std::span<float> ys, Vec2 origin) noexcept {
  for (float& x : xs) x -= origin.x;
  for (float& y : ys) y -= origin.y;
}

void rotate(Turn turn, std::span<float> xs, std::span<float> ys, float angle) noexcept {
  // Turning back is turning by -angle, whose sine is exactly -sin(angle).
  const float s = turn == Turn::clockwise ? -std::sin(angle) : std::sin(angle);
  const float c = std::cos(angle);
  for (std::size_t i = 0; i < xs.size(); ++i) {
    const float x = xs[i], y = ys[i];
    xs[i] = c * x - s * y;
    ys[i] = s * x + c * y;
  }
}

}  // namespace kez
