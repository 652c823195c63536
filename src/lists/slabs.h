// Points in space against slabs between two parallel planes, and against a box of three slabs.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

struct Slab {
  Plane first, second;
};

enum class SlabPosition : std::int32_t {
  on_first = 1,
  on_second = 2,
  between = 3,
  outside = 4,
  unknown = 100,
};

// Writes the position of each point; unknown unless the planes are parallel and distinct. Returns
// the second plane if it had to be negated: the two normals then point to opposite sides.
std::optional<Plane> relate_points_slab(Slab slab, const ConstSpacePoints& points,
                                        std::span<std::int32_t> positions);

// The positions of the same points against the slabs of a box.
using BoxPositions = std::array<std::span<const std::int32_t>, 3>;

enum class BoxSelection : std::int32_t { on_faces = 1, inside = 2, both = 3 };

// Writes the points on one of the six planes, then those between the planes of all slabs, as far as
// they are selected, and returns their number; none for any other number as the selection. All
// lists have an entry for each point.
std::optional<std::int32_t> select_points(const BoxPositions& box, BoxSelection selection,
                                          std::span<std::int32_t> points);

}  // namespace kez
