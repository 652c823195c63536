#include "transform.h"

#include "../frame/rotation.h"

namespace kez {

void translate(std::span<float> xs, std::span<float> ys, Vec2 origin) noexcept {
  for (float& x : xs) x -= origin.x;
  for (float& y : ys) y -= origin.y;
}

void rotate(Turn direction, std::span<float> xs, std::span<float> ys, float angle) noexcept {
  const Rotation forward = rotation_by(angle);
  turn(direction == Turn::clockwise ? inverse(forward) : forward, xs, ys);
}

}  // namespace kez
