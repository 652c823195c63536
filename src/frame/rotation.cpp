#include "rotation.h"

#include <cstddef>

namespace kez {

// A copy of the view, which no store into the lists can change.
void rotate_each(Rotation r, const PlanePoints& given) {
  const PlanePoints points = given;
  for (std::size_t i = 0; i < points.size(); ++i) points.put(i, rotate(r, points[i]));
}

}  // namespace kez
