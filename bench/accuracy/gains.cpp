// What cures gain, other than to move the figure to the origin: measured before and after.
#include <cstdio>

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

// The crossing of the lines P1 P2 and P3 P4, with the origin where it is and moved to P1.
void example() {
  const float xs[] = {81'234.5f, 82'345.75f, 81'300.25f, 82'200.5f};
  const float ys[] = {45'678.25f, 46'123.5f, 46'400.75f, 45'600.5f};
  const std::int32_t all = 4, one = 1;
  const auto show = [](const char* row, Vec p) {
    std::printf("example\t%s\t%.9g\t%.9g\n", row, p.x, p.y);
  };
  const auto lines_cross = [](const float* x, const float* y) {
    const auto at = [&](int i) { return Point({x[i], y[i]}); };
    const PlaneLine g(at(0), at(1), false), h(at(2), at(3), false);
    Point p;
    std::int32_t status;
    call<kezlni>(g.a, g.b, g.c, h.a, h.b, h.c, status, p.x, p.y);
    return p;
  };
  const auto at = [&](int i) { return Vec{xs[i], ys[i]}; };
  show("exactly", crossing(at(0), at(1) - at(0), at(2), at(3) - at(2)));
  show("as it is", lines_cross(xs, ys));
  float x[] = {xs[0], xs[1], xs[2], xs[3]}, y[] = {ys[0], ys[1], ys[2], ys[3]};
  call<keztra>(&x[0], &y[0], all, xs[0], ys[0]);
  Point p = lines_cross(x, y);
  show("with P1 as the origin", p);
  call<keztra>(&p.x, &p.y, one, -xs[0], -ys[0]);
  show("moved back", p);
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
  example();
}

}  // namespace accuracy
