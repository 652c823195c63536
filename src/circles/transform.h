// Moving and turning point lists in place. The circle constructions use them to work in a frame of
// their own and to carry the result back.
#pragma once

#include <cstdint>
#include <span>

#include "../frame/types.h"

namespace kez {

// The origin moves to `origin`; to move back, translate by its negative.
void translate(std::span<float> xs, std::span<float> ys, Vec2 origin) noexcept;

enum class Turn : std::int32_t { counter_clockwise = 0, clockwise = 1 };

void rotate(Turn turn, std::span<float> xs, std::span<float> ys, float angle) noexcept;

}  // namespace kez
