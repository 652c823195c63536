// What the header says of decisions that rounding spoils: how often they go wrong.
#include <vector>

#include "decisions.h"

namespace accuracy {
namespace {

void lines() {
  for (const int size : {10, 100})
    share("kezlni " + std::to_string(size), 100'000,
          [size](Random& random) { return parallel_lines_cross(random, size, false); });
  for (const int size : {3, 1000})
    share("kezpor " + std::to_string(size), 100'000,
          [size](Random& random) { return !are_ordered(parallel_pair(random, size), false); });
  share("kezpor divided", 100'000, [](Random& random) {
    return !are_ordered(close_pair(random, 1000, random.between(10, 100)), true);
  });
}

void space() {
  for (const int size : {2, 5, 10, 30})
    share("kezdirl " + std::to_string(size), 50'000,
          [size](Random& random) { return meeting_lines_are_skew(random, size, false); });
  for (const int size : {2, 10})
    share("kez3sp " + std::to_string(size), 50'000,
          [size](Random& random) { return coplanar_vectors_span(random, size); });
  for (const int size : {30, 300, 1000})
    share("kezptp1 " + std::to_string(size), 50'000,
          [size](Random& random) { return point_of_plane_is_missed(random, size, false); });
  share("kezpsl", 50'000, [](Random& random) {
    const double l = random.magnitude(1, 1000), beside = random.coin() ? 0.97 : 1.03;
    const Vec u = random.direction(), side = unit(cross(u, random.direction()));
    const Point p1{}, p2(l * u), p(l / 2 * u + beside * l / 900 * side);
    std::int32_t where;
    call<kezpsl>(p1.x, p1.y, p1.z, p2.x, p2.y, p2.z, p.x, p.y, p.z, where);
    return (where != 0) == (beside < 1);
  });
}

bool counts_as_not_convex(std::vector<Vec> vertices, double turn) {
  const auto n = static_cast<std::int32_t>(vertices.size());
  std::vector<float> x, y;
  for (const Vec v : vertices) {
    const Point p(turned(v, turn));
    x.push_back(p.x), y.push_back(p.y);
  }
  x.push_back(0), y.push_back(0);
  std::int32_t flag;
  call<kezcnv>(x.data(), y.data(), n, flag);
  return flag != 0;
}

void convex_outlines() {
  for (const int n : {14, 20, 30, 60})
    share("kezcnv " + std::to_string(n), 20'000, [n](Random& random) {
      const double r = random.between(10, 500), flat = random.between(0.3, 1);
      const double start = random.angle();
      std::vector<Vec> vertices;
      for (int i = 0; i < n; ++i) {
        const Vec v = polar(r, start + 2 * pi * (i + random.between(-0.3, 0.3)) / n);
        vertices.push_back({v.x, flat * v.y});
      }
      return counts_as_not_convex(vertices, 0);
    });
  share("kezcnv straight", 50'000, [](Random& random) {
    const double b = random.between(10, 500), h = random.between(10, 500);
    const double t = random.between(0.1, 0.9);
    return counts_as_not_convex({{0, 0}, {b * t, 0}, {b, 0}, {b, h}, {0, h}}, random.angle());
  });
}

// The relative error of the length of the x axis inside a zigzag of so many teeth.
double length_inside(Random& random, int teeth) {
  const double scale = random.between(0.5, 2);
  std::vector<float> x, y;
  double at = 0;
  const auto vertex = [&](double height) {
    x.push_back(static_cast<float>(at)), y.push_back(static_cast<float>(height));
    at += scale * random.between(0.1, 1);
  };
  for (int i = 0; i < teeth; ++i) vertex(-1), vertex(1);
  vertex(-1);
  double truth = 0;
  for (std::size_t i = 0; i + 2 < x.size(); i += 2) truth += (double{x[i + 2]} - x[i]) / 2;
  at /= 2;
  vertex(-5);
  const auto n = static_cast<std::int32_t>(x.size());
  x.push_back(0), y.push_back(0);
  std::vector<float> x1(2 * x.size()), y1(x1), x2(x1), y2(x1);
  std::int32_t n1, n2;
  float length_found;
  call<kezpin>(n, x.data(), y.data(), 0.0f, 1.0f, 0.0f, n1, x1.data(), y1.data(), n2, x2.data(),
               y2.data(), length_found);
  return std::fabs(length_found / truth - 1);
}

// The reduction factor of a stiffener whose full section has the slenderness 1.1.
double reduction_factor() {
  const float t = 2, a = 20, b = 50, z = 50, s = 200, e = 210'000, nu = 0.3f;
  const double ca = a * a / (2 * (a + b)), cb = b * b / (2 * (a + b));
  const double inertia =
      (a * a * a / 12 + (a / 2 - ca) * (a / 2 - ca) * a + ca * ca * b + b * t * t / 12) * t;
  const double arm = z - cb;
  const double spring = e * t * t * t / ((1 - nu * nu) * 4 * (s + arm) * arm * arm);
  const double critical = 2 * std::sqrt(e * inertia * spring) / ((a + b) * t);
  const auto fy = static_cast<float>(critical * 1.1 * 1.1);
  const std::int32_t n = 0;
  float chi, tred;
  call<kezchi>(t, b, z, a, s, fy, e, nu, n, chi, tred);
  return chi;
}

}  // namespace

void claims_of_decisions() {
  lines();
  space();
  convex_outlines();
  measure("kezpin 1000", 2'000, [](Random& random) { return length_inside(random, 1'000); });
  measure("kezpin 100000", 30, [](Random& random) { return length_inside(random, 100'000); });
  measure("kezchi", 1, [](Random&) { return reduction_factor(); });
}

}  // namespace accuracy
