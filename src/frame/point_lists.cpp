#include "point_lists.h"

namespace kez {

namespace {

void subtract(float origin, float list[], std::size_t size) {
  for (std::size_t i = 0; i < size; ++i) list[i] -= origin;
}

}  // namespace

void translate(const PlanePoints& points, Vec2 origin) {
  subtract(origin.x, points.xs(), points.size());
  subtract(origin.y, points.ys(), points.size());
}

void translate(const SpacePoints& points, Vec3 origin) {
  subtract(origin.x, points.xs(), points.size());
  subtract(origin.y, points.ys(), points.size());
  subtract(origin.z, points.zs(), points.size());
}

// A copy of the view, which no store into the lists can change.
void rotate_each(Rotation r, const PlanePoints& given) {
  const PlanePoints points = given;
  for (std::size_t i = 0; i < points.size(); ++i) points.put(i, rotate(r, points[i]));
}

}  // namespace kez
