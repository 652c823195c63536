#include "region.h"

#include "../frame/points.h"

namespace kez {

RegionFinding find_region(Vec2 centre, Vec2 p, Line line) {
  const Crossings crossings =
      intersect_line_circle(line, circle_about(centre, distance(centre, p)));
  // A centre on the axis counts as negative where the line misses and as positive where it cuts.
  if (crossings.count == 2) {
    return {centre.y < 0 ? Region::segment_in_positive : Region::complement_in_positive, crossings};
  }
  return {centre.y > 0 ? Region::circle_in_positive : Region::circle_in_negative, crossings};
}

}  // namespace kez
