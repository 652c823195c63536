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
float value_at(Plane plane, Vec3 p) {
  return plane.a * p.x + plane.d + plane.b * p.y + plane.c * p.z;
}

// Both planes have the slab on the same side. The values are distances only if the normals have
// unit length. A point counts as on a plane if the value is strictly below the tolerance.
SlabPosition relate_point_slab(Slab slab, Vec3 p) {
  const float s1 = value_at(slab.first, p), s2 = value_at(slab.second, p);
  const auto off_planes = s1 * s2 > 0 ? SlabPosition::between : SlabPosition::outside;
  const auto off_second = below_tolerance(std::fabs(s1)) ? SlabPosition::on_first : off_planes;
  return below_tolerance(std::fabs(s2)) ? SlabPosition::on_second : off_second;
}

bool on_face(std::int32_t code) {
  return code == code_of(SlabPosition::on_first) || code == code_of(SlabPosition::on_second);
}

bool between(std::int32_t code) {
  return code == code_of(SlabPosition::between);
}

}  // namespace

std::optional<Plane> relate_points_slab(Slab slab, const ConstSpacePoints& points,
                                        std::span<std::int32_t> positions) {
  std::optional<Plane> negated;
  switch (relate_planes(slab.first, slab.second)) {
    case PlaneRelation::parallel_same:
      negated = -slab.second;
      slab.second = *negated;
      break;
    case PlaneRelation::parallel_opposite:
      break;
    default:
      std::fill(positions.begin(), positions.end(), code_of(SlabPosition::unknown));
      return std::nullopt;
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    positions[i] = code_of(relate_point_slab(slab, points[i]));
  }
  return negated;
}

std::optional<std::int32_t> select_points(const BoxPositions& box, BoxSelection selection,
                                          std::span<std::int32_t> points) {
  const bool both = selection == BoxSelection::both;
  const bool faces = both || selection == BoxSelection::on_faces;
  const bool inside = both || selection == BoxSelection::inside;
  if (!faces && !inside) return std::nullopt;
  std::size_t count = 0;
  // The room ends the count if the host lets the points overlap the positions.
  const auto take_where = [&](auto selected) {
    for (std::size_t i = 0; i < points.size() && count < points.size(); ++i) {
      if (selected(i)) points[count++] = position_of(i);
    }
  };
  if (faces) {
    take_where([&](std::size_t i) {
      return std::any_of(box.begin(), box.end(), [i](auto slab) { return on_face(slab[i]); });
    });
  }
  if (inside) {
    take_where([&](std::size_t i) {
      return std::all_of(box.begin(), box.end(), [i](auto slab) { return between(slab[i]); });
    });
  }
  return static_cast<std::int32_t>(count);
}

}  // namespace kez
