// What the header says of the accuracy of areas and moments.
#include "shapes.h"

namespace accuracy {
namespace {

struct Errors {
  double area, centroid, central;
};

// Of an I section some depths from the origin, or moved back from up to 100 depths.
Errors errors(Random& random, int depths) {
  const bool centred = depths == 0;
  ISection section = ISection::away(random, centred ? random.between(0, 100) : depths);
  if (centred) section.centre();
  const Moments found = section.by_library(), exact = section.exact();
  const Vec off = found.centroid - exact.centroid;
  return {std::fabs(found.area / exact.area - 1), largest(off) / section.depth(),
          std::fabs(found.central / exact.central - 1)};
}

void outline(const std::string& routine, double Errors::*error, std::initializer_list<int> away) {
  for (const int depths : away) {
    const std::string where = depths == 0 ? "middle" : std::to_string(depths);
    measure(routine + " " + where, 100'000,
            [=](Random& random) { return errors(random, depths).*error; });
  }
}

struct Segment {
  float area;
  Point centroid;
  double radius, angle_;

  Segment(Random& random, double phi) {
    const double r = random.magnitude(1, 1e4), start = random.angle();
    const Point p(polar(r, start)), q(polar(r, start + phi * random.between(0.95, 1.05)));
    const std::int32_t kind = 4;
    call<kezacp>(0.0f, 0.0f, p.x, p.y, q.x, q.y, kind, area, centroid.x, centroid.y);
    radius = length(p);
    angle_ = angle(p, q);
  }
  double area_error() const {
    return std::fabs(area / (radius * radius * (angle_ - std::sin(angle_)) / 2) - 1);
  }
  double centroid_error() const {
    const double half = std::sin(angle_ / 2);
    const double truth = 4 * half * half * half / (3 * (angle_ - std::sin(angle_)));
    return std::fabs(length(centroid) / radius - truth);
  }
};

}  // namespace

void claims_of_outlines() {
  outline("kezapl", &Errors::area, {10, 100, 0});
  outline("kezspl", &Errors::centroid, {10, 100, 0});
  outline("kezipl", &Errors::central, {3, 10, 30, 0});
  for (const std::string name : {"0.03", "0.01"}) {
    const double phi = std::stod(name);
    const std::string key = "kezacp " + name;
    measure(key + " area", 200'000,
            [phi](Random& random) { return Segment(random, phi).area_error(); });
    measure(key + " centroid", 200'000,
            [phi](Random& random) { return Segment(random, phi).centroid_error(); });
  }
}

}  // namespace accuracy
