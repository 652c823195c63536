#include "point_lists.h"

#include <span>

namespace kez {

namespace {

void subtract(float origin, std::span<float> list) {
  for (float& x : list) x -= origin;
}

}  // namespace

void translate(const PlanePoints& points, Vec2 origin) {
  subtract(origin.x, {points.xs(), points.size()});
  subtract(origin.y, {points.ys(), points.size()});
}

void translate(const SpacePoints& points, Vec3 origin) {
  translate(points.xy(), {origin.x, origin.y});
  subtract(origin.z, {points.zs(), points.size()});
}

// A copy of the view, which no store into the lists can change.
void rotate_each(Rotation r, const PlanePoints& given) {
  const PlanePoints points = given;
  for (std::size_t i = 0; i < points.size(); ++i) points.put(i, rotate(r, points[i]));
}

}  // namespace kez
