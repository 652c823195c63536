#include "range_lookup.h"

#include <cmath>
#include <cstddef>

#include "../frame/numbers.h"

namespace kez {

std::optional<RangeEntries> find_range(std::span<const float> x, float low, float high,
                                       std::int32_t positions[]) {
  std::size_t count = 0, first = 0, last = 0;
  for (std::size_t i = 0; i < x.size(); ++i) {
    if (!(low <= x[i] && x[i] <= high)) continue;
    if (count == 0) first = i;
    last = i;
    positions[count++] = position_of(i);
  }
  if (count > 0) {
    return RangeEntries{static_cast<std::int32_t>(count), std::fabs(x[first] - low),
                        std::fabs(high - x[last])};
  }

  std::optional<RangeEntries> enclosing;
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    if (!(low > x[i] && x[i + 1] > low && x[i + 1] > high)) continue;
    positions[0] = position_of(i);
    positions[1] = positions[0] + 1;
    enclosing = {2, 0, 0};
  }
  return enclosing;
}

}  // namespace kez
