// What cures gain, other than to move the figure to the origin: measured before and after.
#include "decisions.h"

namespace accuracy {
namespace {

template <typename Function>
void gain_of_share(const std::string& key, int calls, Function wrong) {
  for (const bool cured : {false, true})
    share(key + (cured ? " after" : " before"), calls,
          [&](Random& random) { return wrong(random, cured); });
}

template <typename Function>
void gain(const std::string& key, int calls, Function error) {
  for (const bool cured : {false, true})
    measure(key + (cured ? " after" : " before"), calls,
            [&](Random& random) { return error(random, cured); });
}

// A line across a circle of radius 1000 that rises 1 in 100: with x and y swapped it is steep.
double level_line(Random& random, bool swapped) {
  const double r = 1000;
  const Point normal(polar(1, pi / 2 - 0.01));
  const auto c = static_cast<float>(random.between(-r / 2, r / 2));
  const auto f = static_cast<float>(-r * r);
  std::int32_t n;
  Point p, q;
  if (swapped)
    call<kezlci>(normal.y, normal.x, c, 0.0f, 0.0f, f, n, p.y, p.x, q.y, q.x);
  else
    call<kezlci>(normal.x, normal.y, c, 0.0f, 0.0f, f, n, p.x, p.y, q.x, q.y);
  return n == 2 ? std::max(std::fabs(length(p) - r), std::fabs(length(q) - r)) : none;
}

double small_angle(Random& random, bool by_keztrg) {
  const double start = random.angle(), phi = random.magnitude(1e-3, 1e-2);
  const Point u(polar(1000, start)), w(polar(1000, start + phi));
  float c, s, found;
  std::int32_t status;
  call<kezphi>(0.0f, 0.0f, u.x, u.y, w.x, w.y, found);
  call<keztrg>(0.0f, 0.0f, 0.0f, u.x, u.y, 0.0f, 0.0f, 0.0f, 0.0f, w.x, w.y, 0.0f, c, s, status);
  return std::fabs((by_keztrg ? std::atan2(double{s}, double{c}) : found) - angle(u, w));
}

// A tangent of a circle of radius 1000 about the origin, through points beside that of contact.
bool tangent_does_not_touch(Random& random, bool cured) {
  const double r = cured ? 1000.0 / 1024 : 1000;  // a scale that rounds nothing
  const Vec at = polar(r, random.between(-pi / 4, pi / 4)), along = left_of(at);
  const PlaneLine line(Point(at - along), Point(at + along), cured);
  std::int32_t n;
  Point p, q;
  call<kezlci>(line.a, line.b, line.c, 0.0f, 0.0f, static_cast<float>(-r * r), n, p.x, p.y, q.x,
               q.y);
  return n != 1;
}

}  // namespace

void measure_gains() {
  constexpr int calls = 50'000;
  gain_of_share("parallel", calls, [](Random& random, bool cured) {
    return parallel_lines_cross(random, 1000, cured);
  });
  gain_of_share("ordered", calls, [](Random& random, bool cured) {
    return !are_ordered(parallel_pair(random, 1000), cured);
  });
  gain_of_share("tangent", calls, tangent_does_not_touch);
  gain_of_share("skew", calls, [](Random& random, bool cured) {
    return meeting_lines_are_skew(random, 1000, cured);
  });
  gain_of_share("plane", calls, [](Random& random, bool cured) {
    return point_of_plane_is_missed(random, 1000, cured);
  });
  gain("level", calls, level_line);
  gain("small", calls, small_angle);
}

}  // namespace accuracy
