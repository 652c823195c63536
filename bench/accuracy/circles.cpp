// Ordinary calls of routines on circles, arcs, guides and outlines.
#include "measure.h"
#include "shapes.h"

namespace accuracy {
namespace {

// The worse of two points that may be found in any order.
Deviation off(Point p, Point q, Vec truth1, Vec truth2) {
  const double same = std::max(length(p - truth1), length(q - truth2));
  const double other = std::max(length(p - truth2), length(q - truth1));
  return {std::min(same, other)};
}

// Two points of a circle about a centre of which neither is near the other or opposite to it.
struct Arc {
  Point centre, p1, p2;

  explicit Arc(Site& site) {
    const double r = site.random.between(100, Site::size / 2), phi = site.random.angle();
    const double turn = site.random.sign() * site.random.between(0.5, 2.5);
    centre = site.placed_flat(site.middle);
    p1 = site.placed_flat(site.middle + polar(r, phi));
    p2 = site.placed_flat(site.middle + polar(r, phi + turn));
  }
  // Nearly level lines lose accuracy: kezlci says so, and how to avoid it.
  static bool level(Vec u) { return std::fabs(u.y) < 0.1 * length(u); }
  Vec chord() const { return Vec(p2) - Vec(p1); }
  double radius() const { return length(Vec(p1) - Vec(centre)); }
};

// The point of the arc's circle on the line through p along u, on the side to which u points.
Vec on_circle(const Arc& arc, Vec p, Vec u) {
  const Vec e = unit(u), w = p - Vec(arc.centre);
  const double s = dot(w, e), r = arc.radius();
  return p + (std::sqrt(s * s + r * r - dot(w, w)) - s) * e;
}

// Of the two points on the line through p along u that a guide's sense chooses between.
double nearer(Point found, const Arc& arc, Vec p, Vec u) {
  return std::min(length(found - on_circle(arc, p, u)), length(found - on_circle(arc, p, -1 * u)));
}

void crossings() {
  ordinary("kezlci", "points of a line by `kezln3` on a circle by `kezcer`", "mm", [](Site& site) {
    const Arc arc(site);
    const auto r = static_cast<float>(arc.radius());
    if (Arc::level(arc.chord())) return not_counted;
    float a, b, c, d, e, f;
    call<kezln3>(arc.p1.x, arc.p1.y, arc.p2.x, arc.p2.y, a, b, c);
    call<kezcer>(arc.centre.x, arc.centre.y, r, d, e, f);
    std::int32_t n;
    Point p, q;
    call<kezlci>(a, b, c, d, e, f, n, p.x, p.y, q.x, q.y);
    const Vec m = 0.5 * (Vec(arc.p1) + Vec(arc.p2));
    return n == 2 ? off(p, q, on_circle(arc, m, arc.chord()), on_circle(arc, m, -1 * arc.chord()))
                  : no_result;
  });
  ordinary("kezc12", "points common to two circles by `kezcer`", "mm", [](Site& site) {
    const Arc arc(site);
    const auto r = static_cast<float>(arc.radius());
    const Vec apart = Vec(arc.p1) - Vec(arc.centre);
    const double d = length(apart);
    if (Arc::level(left_of(apart))) return not_counted;
    float d1, e1, f1, d2, e2, f2;
    call<kezcer>(arc.centre.x, arc.centre.y, r, d1, e1, f1);
    call<kezcer>(arc.p1.x, arc.p1.y, r, d2, e2, f2);
    std::int32_t n;
    Point p, q;
    call<kezc12>(d1, e1, f1, d2, e2, f2, n, p.x, p.y, q.x, q.y);
    const Vec m = 0.5 * (Vec(arc.centre) + Vec(arc.p1));
    const Vec h = std::sqrt(double{r} * r - d * d / 4) / d * left_of(apart);
    return n == 2 ? off(p, q, m + h, m - h) : no_result;
  });
}

void arcs() {
  ordinary("kezcer2", "centres of the arcs of a radius", "mm", [](Site& site) {
    const Arc arc(site);
    const auto r = static_cast<float>(arc.radius());
    if (Arc::level(arc.chord())) return not_counted;
    std::int32_t status;
    const std::int32_t sense = 1;
    Point p, q, chosen;
    call<kezcer2>(arc.p1.x, arc.p1.y, arc.p2.x, arc.p2.y, sense, r, p.x, p.y, q.x, q.y, chosen.x,
                  chosen.y, status);
    const double c = length(arc.chord());
    const Vec m = 0.5 * (Vec(arc.p1) + Vec(arc.p2));
    const Vec h = std::sqrt(double{r} * r - c * c / 4) / c * left_of(arc.chord());
    return status == 2 ? off(p, q, m + h, m - h) : no_result;
  });
  ordinary("kezcer1", "radius of an arc by its rise", "mm", [](Site& site) {
    const Arc arc(site);
    const double c = length(arc.chord());
    const auto rise = static_cast<float>(c * site.random.between(0.1, 0.5));
    std::int32_t status;
    const std::int32_t sense = 1;
    float r = 0;
    Point centre;
    call<kezcer1>(arc.p1.x, arc.p1.y, arc.p2.x, arc.p2.y, sense, rise, r, centre.x, centre.y,
                  status);
    return accuracy::off(r, (double{rise} * rise + c * c / 4) / (2 * rise));
  });
  ordinary("kezarc1", "length of an arc", "mm", [](Site& site) {
    const Arc arc(site);
    float s1, s2;
    std::int32_t status;
    call<kezarc1>(arc.centre.x, arc.centre.y, arc.p1.x, arc.p1.y, arc.p2.x, arc.p2.y, s1, s2,
                  status);
    return accuracy::off(s1,
                         arc.radius() * angle(Vec(arc.p1) - arc.centre, Vec(arc.p2) - arc.centre));
  });
  ordinary("kezacp", "area of a circular segment", "mm^2", [](Site& site) {
    const Arc arc(site);
    float area;
    Point s;
    const std::int32_t kind = 4;
    call<kezacp>(arc.centre.x, arc.centre.y, arc.p1.x, arc.p1.y, arc.p2.x, arc.p2.y, kind, area,
                 s.x, s.y);
    const double phi = angle(Vec(arc.p1) - arc.centre, Vec(arc.p2) - arc.centre);
    return accuracy::off(area, arc.radius() * arc.radius() * (phi - std::sin(phi)) / 2);
  });
}

void guides() {
  ordinary("kezcer6", "point of a circle by a ray and a guide", "mm", [](Site& site) {
    const Arc arc(site);
    const double t = site.random.between(0.2, 0.8), d = length(arc.chord());
    const auto l = static_cast<float>(t * d);
    const std::int32_t sense = site.random.sign();
    std::int32_t status;
    Point p;
    call<kezcer6>(arc.centre.x, arc.centre.y, arc.p1.x, arc.p1.y, arc.p2.x, arc.p2.y, sense, l, p.x,
                  p.y, status);
    const Vec m = Vec(arc.p1) + l / d * arc.chord(), ray = m - Vec(arc.centre);
    if (Arc::level(ray)) return not_counted;
    return Deviation{status == 1 ? nearer(p, arc, m, ray) : none};
  });
  ordinary("kezcer8", "point of a circle across a guide", "mm", [](Site& site) {
    const Arc arc(site);
    const double t = site.random.between(0.2, 0.8), d = length(arc.chord());
    const auto l = static_cast<float>(t * d);
    const std::int32_t sense = site.random.sign();
    std::int32_t status;
    Point p;
    call<kezcer8>(arc.centre.x, arc.centre.y, arc.p1.x, arc.p1.y, arc.p2.x, arc.p2.y, sense, l, p.x,
                  p.y, status);
    const Vec m = Vec(arc.p1) + l / d * arc.chord(), across = left_of(arc.chord());
    if (Arc::level(across)) return not_counted;
    return Deviation{status == 1 ? nearer(p, arc, m, across) : none};
  });
  ordinary("kezcer4", "point of a circle at an angle to a guide", "mm", [](Site& site) {
    const Arc arc(site);
    const double t = site.random.between(0.2, 0.8), d = length(arc.chord());
    const auto l = static_cast<float>(t * d);
    const auto theta = static_cast<float>(site.random.between(0.5, 2.5));
    Point c = arc.centre, p1 = arc.p1, p2 = arc.p2, p;
    std::int32_t status;
    call<kezcer4>(c.x, c.y, p1.x, p1.y, p2.x, p2.y, l, theta, p.x, p.y, status);
    const Vec m = Vec(arc.p1) + l / d * arc.chord();
    return Deviation{status == 1 ? nearer(p, arc, m, turned(arc.chord(), theta)) : none};
  });
}

ISection section(Site& site) {
  ISection section(site.random, site.middle + 0.3 * site.in_figure());
  if (site.moved) section.centre();
  return section;
}

void outlines() {
  ordinary("kezapl", "area of an I section", "mm^2", [](Site& site) {
    ISection s = section(site);
    return accuracy::off(s.by_library().area, s.exact().area);
  });
  ordinary("kezspl", "centroid of an I section", "mm", [](Site& site) {
    ISection s = section(site);
    return accuracy::off(s.by_library().centroid, s.exact().centroid);
  });
  ordinary("kezipl", "Ix about the centroid of an I section", "of itself", [](Site& site) {
    ISection s = section(site);
    return Deviation{std::fabs(s.by_library().central / s.exact().central - 1)};
  });
}

}  // namespace

void measure_circles() {
  crossings();
  arcs();
  guides();
  outlines();
}

}  // namespace accuracy
