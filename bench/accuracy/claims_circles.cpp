// What the header says of the accuracy of circles, arcs and guides. Circles have the radius 1.
#include "measure.h"

namespace accuracy {
namespace {

double off_circle(Vec p, Vec centre) {
  return std::fabs(length(p - centre) - 1);
}

// How far the points of a line with a normal at an angle to the x axis are off the circle.
double line_and_circle(Random& random, double away, double normal_angle) {
  const Point centre(polar(away, random.angle()));
  const double beside = 0.5 * std::sqrt(random.between(0, 1));
  const Vec on_line = centre + polar(beside, random.angle());
  const Point normal(polar(1, normal_angle));
  float d, e, f;
  call<kezcer>(centre.x, centre.y, 1.0f, d, e, f);
  const auto c = static_cast<float>(-dot(normal, on_line));
  std::int32_t n;
  Point p, q;
  call<kezlci>(normal.x, normal.y, c, d, e, f, n, p.x, p.y, q.x, q.y);
  if (n == 0) return none;
  return n == 2 ? std::max(off_circle(p, centre), off_circle(q, centre)) : off_circle(p, centre);
}

void lines_and_circles() {
  measure("kezlci 1 in 100", 500'000,
          [](Random& random) { return line_and_circle(random, 0, pi / 2 - 0.01); });
  for (const int away : {100, 1000})
    measure("kezlci " + std::to_string(away), 500'000, [away](Random& random) {
      return line_and_circle(random, away, random.between(-pi / 4, pi / 4));
    });
}

// How far the centres of arcs over a chord of some rise are off.
double centres(Random& random, double away, double rise) {
  const Vec middle = polar(away, random.angle());
  const Vec half = polar(random.between(0.25, 0.95), std::atan(rise));
  const Point p1(middle - half), p2(middle + half);
  const std::int32_t sense = 1;
  std::int32_t status;
  Point first, second, chosen;
  call<kezcer2>(p1.x, p1.y, p2.x, p2.y, sense, 1.0f, first.x, first.y, second.x, second.y, chosen.x,
                chosen.y, status);
  if (status == 0) return none;
  const Vec chord = Vec(p2) - Vec(p1), m = 0.5 * (Vec(p1) + Vec(p2));
  const double c = length(chord);
  const Vec to_right = -std::sqrt(1 - c * c / 4) / c * left_of(chord);
  return std::max(length(first - (m + to_right)), length(second - (m - to_right)));
}

void arcs() {
  measure("kezcer2 100 R, 1 in 10", 500'000,
          [](Random& random) { return centres(random, 100, 0.1); });
  measure("kezcer2 10 R, 1 in 100", 500'000,
          [](Random& random) { return centres(random, 10, 0.01); });
  measure("kezcer2 middle", 500'000,
          [](Random& random) { return centres(random, 0, random.magnitude(0.01, 1)); });
  measure("kezcer1", 1'000'000, [](Random& random) {
    const double half = random.magnitude(1e-2, 1e4) / 2;
    const Point p(polar(half, random.angle()));
    const double c = 2 * length(p);
    const auto f = static_cast<float>(c * random.magnitude(1e-3, 1e3));
    if (f < 1e-4f) return -1.0;
    const std::int32_t sense = 1;
    std::int32_t status;
    float r;
    Point centre;
    call<kezcer1>(-p.x, -p.y, p.x, p.y, sense, f, r, centre.x, centre.y, status);
    const double truth = (double{f} * f + c * c / 4) / (2 * f);
    return std::fabs(r - truth) / truth / std::max(c / f, f / c);
  });
  measure("kezarc1", 1'000'000, [](Random& random) {
    const double start = random.angle(), phi = random.between(0, 3e-4) + (random.coin() ? pi : 0);
    const double r = random.magnitude(1, 1000);
    const Point p(polar(r, start)), q(polar(r, start + phi));
    float s1, s2;
    std::int32_t status;
    call<kezarc1>(0.0f, 0.0f, p.x, p.y, q.x, q.y, s1, s2, status);
    return status == 1 ? std::fabs(s1 / length(p) - angle(p, q)) : -1;
  });
}

// A guide in some direction across a circle, and a length along it.
struct Guide {
  Point centre, p1, p2;
  float d, along;

  Guide(Random& random, double away, double direction) {
    centre = Point(polar(away, random.angle()));
    const double half = random.between(0.3, 1.2);  // of the angle outside the guide's chord
    const double at = pi + direction - random.sign() * half;
    p1 = Point(centre + polar(1, at));
    p2 = Point(p1 + polar(2 * std::cos(half), direction));
    d = static_cast<float>(length(Vec(p2) - p1));
    along = static_cast<float>(d * random.between(0.25, 0.75));
  }
  double radius() const { return length(Vec(p1) - centre); }
  double off_circle(Vec p) const { return std::fabs(length(p - centre) - radius()) / radius(); }
};

double at_angle_to_level_guide(Random& random) {
  Guide g(random, 0, random.between(-1e-3, 1e-3));
  const auto theta = static_cast<float>(random.between(pi / 4, 3 * pi / 4));
  const Vec guide = Vec(g.p2) - g.p1, start = Vec(g.p1) + g.along / length(guide) * guide;
  Point c = g.centre, p1 = g.p1, p2 = g.p2, p;
  std::int32_t status;
  call<kezcer4>(c.x, c.y, p1.x, p1.y, p2.x, p2.y, g.along, theta, p.x, p.y, status);
  if (status != 1 || length(p - start) < 0.2) return -1;
  const double found = angle(turned(guide, theta), p - start);
  return std::min(found, pi - found);
}

void guides() {
  measure("kezcer4 level", 500'000, at_angle_to_level_guide);
  measure("kezcer4 100", 500'000, [](Random& random) {
    Guide g(random, 100, random.between(-pi / 4, pi / 4));
    const auto theta = static_cast<float>(random.between(pi / 4, 3 * pi / 4));
    const Guide given = g;
    Point p;
    std::int32_t status;
    call<kezcer4>(g.centre.x, g.centre.y, g.p1.x, g.p1.y, g.p2.x, g.p2.y, g.along, theta, p.x, p.y,
                  status);
    return status == 1 ? given.off_circle(p) : -1;
  });
  measure("kezcer5 100", 500'000, [](Random& random) {
    Guide g(random, 100, random.between(-pi / 4, pi / 4));
    const Guide given = g;
    const std::int32_t sense = random.sign();
    Point p;
    std::int32_t status;
    call<kezcer5>(g.centre.x, g.centre.y, g.p1.x, g.p1.y, g.p2.x, g.p2.y, g.along, sense, g.d / 2,
                  p.x, p.y, status);
    return status == 1 ? given.off_circle(p) : -1;
  });
}

}  // namespace

void claims_of_circles() {
  lines_and_circles();
  arcs();
  guides();
}

}  // namespace accuracy
