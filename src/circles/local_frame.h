// The frame in which a circle construction works, and the rotation of a point about a centre.
#pragma once

#include <optional>

#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

// The frame about `origin` whose x axis stands at `angle` to the global one.
class LocalFrame {
 public:
  LocalFrame(Vec2 origin, float angle) : origin_(origin), rotation_(rotation_by(angle)) {}

  Vec2 to_local(Vec2 p) const { return rotate(inverse(rotation_), p - origin_); }
  Vec2 to_global(Vec2 p) const { return rotate(rotation_, p) + origin_; }

 private:
  Vec2 origin_;
  Rotation rotation_;
};

struct RotatedPoint {
  std::optional<Vec2> point;  // none if the given one lies within the tolerance of the centre
  // Deliberate: what the caller's variables hold afterwards (kezcer3). It is the given point
  // carried to the centre and back, or only to the centre if there is no rotated point.
  Vec2 given;
};

RotatedPoint rotate_about(Vec2 centre, Vec2 p, float angle);

}  // namespace kez
