#include "slabs.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "../frame/angles.h"
#include "../frame/numbers.h"
#include "../frame/tolerance.h"

namespace kez {

namespace {

// In this order, which decides on which side of the tolerance a value rounds.
float value_at(Plane p, float x, float y, float z) noexcept {
  return p.a * x + p.d + p.b * y + p.c * z;
}

// Both planes have the slab on the same side. The values are no distances unless the normals are of
// unit length, and strictly below the tolerance counts as on the plane.
std::int32_t position(Slab slab, float x, float y, float z) noexcept {
  const float s1 = value_at(slab.first, x, y, z), s2 = value_at(slab.second, x, y, z);
  std::int32_t code = number(s1 * s2 > 0 ? SlabPosition::between : SlabPosition::outside);
  code = std::fabs(s1) < tolerance ? number(SlabPosition::on_first) : code;
  return std::fabs(s2) < tolerance ? number(SlabPosition::on_second) : code;
}

}  // namespace

std::optional<Plane> classify(Slab slab, SpacePoints points, std::int32_t positions[]) noexcept {
  const std::size_t n = points.xs.size();
  std::optional<Plane> turned;
  switch (relate_planes(slab.first, slab.second)) {
    case PlaneRelation::parallel_same:
      turned = {-slab.second.a, -slab.second.b, -slab.second.c, -slab.second.d};
      slab.second = *turned;
      break;
    case PlaneRelation::parallel_opposite:
      break;
    default:
      std::fill_n(positions, n, number(SlabPosition::unknown));
      return std::nullopt;
  }
  for (std::size_t i = 0; i < n; ++i) {
    positions[i] = position(slab, points.xs[i], points.ys[i], points.zs[i]);
  }
  return turned;
}

namespace {

bool on_face(std::int32_t code) noexcept {
  return code == number(SlabPosition::on_first) || code == number(SlabPosition::on_second);
}

bool between(std::int32_t code) noexcept {
  return code == number(SlabPosition::between);
}

}  // namespace

std::int32_t select_points(const BoxPositions& box, BoxSelection selection,
                           std::int32_t points[]) noexcept {
  std::int32_t count = 0;
  const auto take_where = [&](auto selected) {
    for (std::size_t i = 0; i < box[0].size(); ++i) {
      if (selected(i)) points[count++] = position_of(i);
    }
  };
  if (selection != BoxSelection::inside) {
    take_where([&](std::size_t i) {
      return std::any_of(box.begin(), box.end(), [i](auto slab) { return on_face(slab[i]); });
    });
  }
  if (selection != BoxSelection::on_faces) {
    take_where([&](std::size_t i) {
      return std::all_of(box.begin(), box.end(), [i](auto slab) { return between(slab[i]); });
    });
  }
  return count;
}

}  // namespace kez
