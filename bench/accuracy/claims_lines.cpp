// What the header says of the accuracy of lines and angles.
#include "measure.h"

namespace accuracy {
namespace {

// How far the line through two points a distance of about 1 apart is off them, in that distance.
double line_off_points(Random& random, double away) {
  const Vec p = polar(away, random.angle());
  const Point p1(p), p2(p1 + polar(1, random.angle()));
  float a, b, c;
  call<kezln3>(p1.x, p1.y, p2.x, p2.y, a, b, c);
  const auto value = [&](Vec q) {
    return std::fabs(double{a} * q.x + double{b} * q.y + double{c});
  };
  return std::max(value(p1), value(p2)) / std::hypot(a, b) / length(Vec(p2) - p1);
}

void lines() {
  for (const int away : {100, 1000})
    measure("kezln3 " + std::to_string(away), 500'000,
            [away](Random& random) { return line_off_points(random, away); });
  measure("kezlds", 1'000'000, [](Random& random) {
    const double phi = random.angle();
    const Point normal(polar(random.magnitude(1e-10, 1e10), phi));
    const Point p(polar(random.between(0, 1), phi));
    float d;
    call<kezlds>(p.x, p.y, normal.x, normal.y, 0.0f, d);
    const double truth = dot(p, unit(normal));
    return truth > 0.01 ? std::fabs(d - truth) / truth : -1;
  });
}

// A position that should be 0, in heights: of the foot of P0 from P1, or of that of P3 from P2.
double foot(Random& random, bool of_p3) {
  const double l = random.magnitude(0.1, 10), h = random.sign();
  const Point p1({random.between(-1, 1), random.between(-1, 1)});
  const Point p2(p1 + polar(l, random.angle()));
  const Vec up = h * unit(left_of(Vec(p2) - p1));
  const Point p0(p1 + up), p3(p2 + up);
  float h0, a0, h3, a3, length12;
  call<kezhin>(p0.x, p0.y, 0.0f, p1.x, p1.y, 0.0f, p2.x, p2.y, 0.0f, p3.x, p3.y, 0.0f, h0, a0, h3,
               a3, length12);
  return of_p3 ? std::fabs(a3 - length12) / h3 : a0 / h0;
}

// Two vectors at an angle, each of any length from 1 to 1000.
struct Ray2 {
  Point u, w;

  Ray2(Random& random, double phi) {
    const double direction = random.angle();
    u = Point(polar(random.magnitude(1, 1000), direction));
    w = Point(polar(random.magnitude(1, 1000), direction + phi));
  }
  float found() const {
    float phi;
    call<kezphi>(0.0f, 0.0f, u.x, u.y, w.x, w.y, phi);
    return phi;
  }
};

double angle_by_keztrg(const Ray2& rays) {
  float c, s;
  std::int32_t status;
  call<keztrg>(0.0f, 0.0f, 0.0f, rays.u.x, rays.u.y, 0.0f, 0.0f, 0.0f, 0.0f, rays.w.x, rays.w.y,
               0.0f, c, s, status);
  return std::atan2(double{s}, double{c});
}

// The angle that kezphi finds for one below 0.0003.
double small_angle(Random& random) {
  return Ray2(random, random.between(0, 3e-4)).found();
}

double any_angle(Random& random) {
  const double phi = random.magnitude(1e-3, pi / 2);
  return random.coin() ? phi : pi - phi;
}

void angles() {
  measure("angle below 0.0003", 1'000'000, small_angle);
  share("angle below 0.0003 is 0 or 0.00035", 100'000, [](Random& random) {
    const double phi = small_angle(random);
    return phi == 0 || std::fabs(phi - 0.00035) < 0.00001;
  });
  measure("angle from 0.001", 1'000'000, [](Random& random) {
    const Ray2 rays(random, any_angle(random));
    const double phi = angle(rays.u, rays.w);
    return std::fabs(rays.found() - phi) * std::min(phi, pi - phi);
  });
  measure("keztrg", 1'000'000, [](Random& random) {
    const Ray2 rays(random, random.magnitude(1e-6, 3));
    return std::fabs(angle_by_keztrg(rays) - angle(rays.u, rays.w));
  });
  measure("kezaxph", 1'000'000, [](Random& random) {
    const double off_axis = random.between(-1e-3, 1e-3) + (random.coin() ? pi : 0);
    const Point v(polar(random.magnitude(1, 1e4), off_axis));
    float phi;
    call<kezaxph>(v.x, v.y, phi);
    const double truth = std::atan2(double{v.y}, double{v.x});
    return std::fabs(std::remainder(phi - truth, 2 * pi));
  });
}

}  // namespace

void claims_of_lines() {
  lines();
  measure("kezhin a0", 1'000'000, [](Random& random) { return foot(random, false); });
  measure("kezhin a3", 1'000'000, [](Random& random) { return foot(random, true); });
  angles();
}

}  // namespace accuracy
