#include "line_intersections.h"

#include "../frame/tolerance.h"

namespace kez {

// Cramer's rule. The tests are on the determinants as they are: normalising the coefficients would
// change which lines of a host count as parallel.
LineMeeting intersect(Line p, Line q) noexcept {
  const float det = p.a * q.b - q.a * p.b;
  const float dx = p.b * q.c - q.b * p.c;
  const float dy = q.a * p.c - p.a * q.c;
  if (non_zero(det)) return {Meeting::one_point, {dx / det, dy / det}};
  if (non_zero(dx) || non_zero(dy)) return {Meeting::parallel, {}};
  return {Meeting::coincident, {}};
}

}  // namespace kez
