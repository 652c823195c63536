// Moving and turning points. The circle constructions use them to work in a frame of their own and
// to carry the result back.
#pragma once

#include <optional>
#include <span>

#include "../frame/rotation.h"
#include "../frame/types.h"

namespace kez {

// The origin moves to `origin`; to move back, translate by its negative.
void translate(std::span<float> xs, std::span<float> ys, Vec2 origin) noexcept;

// The frame about `origin` whose x axis stands at `angle` to the global one.
class LocalFrame {
 public:
  LocalFrame(Vec2 origin, float angle) noexcept : origin_(origin), turn_(rotation_by(angle)) {}

  Vec2 to_local(Vec2 p) const noexcept { return turned(inverse(turn_), p - origin_); }
  Vec2 to_global(Vec2 p) const noexcept { return turned(turn_, p) + origin_; }

 private:
  Vec2 origin_;
  Rotation turn_;
};

struct TurnedPoint {
  std::optional<Vec2> point;  // none where the given one lies within the tolerance of the centre
  // What the caller's variables hold afterwards: the given point carried to the centre and back, or
  // where there is no turned one, only to the centre. Hosts see both, so both are kept.
  Vec2 given;
};

TurnedPoint turn_about(Vec2 centre, Vec2 p, float angle) noexcept;

}  // namespace kez
