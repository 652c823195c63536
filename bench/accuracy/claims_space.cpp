// What the header says of the accuracy of lines and planes in space.
#include "measure.h"

namespace accuracy {
namespace {

// The error of a distance from a line through two points a distance of 1 apart.
double distance_error(Random& random, double away) {
  const Vec at = away * random.direction();
  const Point p1(at), p2(at + random.direction()), p(at + random.in_box(1));
  std::int32_t status;
  float d;
  call<kez3lda>(p1.x, p1.y, p1.z, p2.x, p2.y, p2.z, p.x, p.y, p.z, status, d);
  const double error = std::fabs(std::fabs(d) - distance_from_line(p, p1, p2));
  return d != 0 ? error / length(Vec(p2) - p1) : -1;
}

// By how much the direction of a turned plane's normal is off.
double normal_error(Random& random, double away) {
  const Point p1(random.in_box(away)), p2(p1 + random.in_box(1000)), p3(p1 + random.in_box(1000));
  const Vec u = Vec(p2) - p1, w = Vec(p3) - p1;
  if (length(cross(u, w)) < 0.05 * length(u) * length(w)) return -1;
  const auto phi = static_cast<float>(random.between(-3, 3));
  float a, b, c, d;
  std::int32_t status;
  call<kezpl7>(p1.x, p1.y, p1.z, p2.x, p2.y, p2.z, p3.x, p3.y, p3.z, phi, a, b, c, d, status);
  Vec z = unit(cross(u, w));
  if (status != 0 || std::fabs(z.y) < 1e-3) return -1;
  if (z.y < 0) z = -1 * z;
  return angle({a, b, c}, std::cos(phi) * z - std::sin(phi) * cross(z, unit(u)));
}

}  // namespace

void claims_of_space() {
  for (const int away : {100, 1000})
    measure("kez3lda " + std::to_string(away), 200'000,
            [away](Random& random) { return distance_error(random, away); });
  for (const int away : {1000, 100'000, 0})
    measure("kezpl7 " + std::to_string(away), 200'000,
            [away](Random& random) { return normal_error(random, away); });
  measure("kezpld", 1'000'000, [](Random& random) {
    const double size = random.magnitude(1e-3, 1e3);
    const Point normal(size * random.direction());
    const auto d = static_cast<float>(random.between(0.1, 10));
    float found;
    call<kezpld>(0.0f, 0.0f, 0.0f, normal.x, normal.y, normal.z, d, found);
    return std::fabs(found / (d / length(normal)) - 1);
  });
}

}  // namespace accuracy
