// Ordinary calls of routines on points, lines, angles and turns.
#include "measure.h"

namespace accuracy {
namespace {

// Whether vectors are of a length, and at an angle, that a host would pass.
bool sound(Vec u, Vec w) {
  const double phi = angle(u, w);
  return length(u) > 50 && length(w) > 50 && phi > 0.2 && phi < pi - 0.2;
}

struct Line {
  float a, b, c;

  Line(Point p, Point q) { call<kezln3>(p.x, p.y, q.x, q.y, a, b, c); }
  double off(Vec p) const {
    return std::fabs(double{a} * p.x + double{b} * p.y + double{c}) / std::hypot(a, b);
  }
};

// Four points of which the first two and the last two make sound vectors.
struct Four {
  Point p1, p2, p3, p4;

  Four(Site& site, Point (Site::*point)()) {
    do {
      p1 = (site.*point)(), p2 = (site.*point)(), p3 = (site.*point)(), p4 = (site.*point)();
    } while (!sound(u(), w()));
  }
  Vec u() const { return Vec(p2) - Vec(p1); }
  Vec w() const { return Vec(p4) - Vec(p3); }
};

void points() {
  ordinary("kezpds", "distance", "mm", [](Site& site) {
    const Point p = site.point(), q = site.point();
    float d;
    call<kezpds>(p.x, p.y, p.z, q.x, q.y, q.z, d);
    return off(d, length(Vec(q) - Vec(p)));
  });
  ordinary("kezmed", "midpoint", "mm", [](Site& site) {
    const Point p = site.point(), q = site.point();
    Point m;
    call<kezmed>(p.x, p.y, p.z, q.x, q.y, q.z, m.x, m.y, m.z);
    return off(m, 0.5 * (Vec(p) + Vec(q)));
  });
  ordinary("kez123", "point along a segment", "mm", [](Site& site) {
    const Point p = site.point(), q = site.point();
    const auto t = static_cast<float>(site.random.between(0, 1));
    Point m;
    std::int32_t same;
    call<kez123>(p.x, p.y, p.z, q.x, q.y, q.z, t, m.x, m.y, m.z, same);
    return off(m, Vec(p) + t * (Vec(q) - Vec(p)));
  });
  ordinary("kezpre", "cross product of vectors", "mm^2", [](Site& site) {
    const Four f(site, &Site::point);
    float c[3];
    call<kezpre>(f.p1.x, f.p1.y, f.p1.z, f.p2.x, f.p2.y, f.p2.z, f.p3.x, f.p3.y, f.p3.z, f.p4.x,
                 f.p4.y, f.p4.z, &c[0]);
    return off(Vec{c[0], c[1], c[2]}, cross(f.u(), f.w()));
  });
  ordinary("keznst", "middle one of points along a segment", "mm", [](Site& site) {
    const Point p = site.point(), q = site.point();
    const std::int32_t n = 11;
    const double d = length(Vec(q) - Vec(p));
    const auto step = static_cast<float>(d / 10);
    float x[11], y[11], z[11];
    call<keznst>(p.x, p.y, p.z, q.x, q.y, q.z, step, n, &x[0], &y[0], &z[0]);
    return off(Vec{x[5], y[5], z[5]}, Vec(p) + 5 * step / d * (Vec(q) - Vec(p)));
  });
}

void lines() {
  ordinary("kezln3", "line through two points: off the points", "mm", [](Site& site) {
    const Four f(site, &Site::flat);
    const Line line(f.p1, f.p2);
    return Deviation{std::max(line.off(f.p1), line.off(f.p2))};
  });
  ordinary("kezlds", "distance from a line by `kezln3`", "mm", [](Site& site) {
    const Four f(site, &Site::flat);
    const Line line(f.p1, f.p2);
    float d;
    call<kezlds>(f.p3.x, f.p3.y, line.a, line.b, line.c, d);
    return off(std::fabs(d), distance_from_line(f.p3, f.p1, f.p2));
  });
  ordinary("kezlni", "crossing of lines by `kezln3`", "mm", [](Site& site) {
    const Four f(site, &Site::flat);
    const Line g(f.p1, f.p2), h(f.p3, f.p4);
    std::int32_t status;
    Point p;
    call<kezlni>(g.a, g.b, g.c, h.a, h.b, h.c, status, p.x, p.y);
    return status == 0 ? off(p, crossing(f.p1, f.u(), f.p3, f.w())) : no_result;
  });
  ordinary("kezhin", "height over a line", "mm", [](Site& site) {
    const Four f(site, &Site::flat);
    float h0, a0, h3, a3, l;
    call<kezhin>(f.p3.x, f.p3.y, 0.0f, f.p1.x, f.p1.y, 0.0f, f.p2.x, f.p2.y, 0.0f, f.p4.x, f.p4.y,
                 0.0f, h0, a0, h3, a3, l);
    return off(h0, distance_from_line(f.p3, f.p1, f.p2));
  });
  ordinary("kezln5", "bisector: off the vertex", "mm", [](Site& site) {
    const Four f(site, &Site::flat);
    const Point q(Vec(f.p1) + f.w());
    Line line(f.p1, f.p2);
    call<kezln5>(f.p1.x, f.p1.y, f.p2.x, f.p2.y, q.x, q.y, line.a, line.b, line.c);
    return Deviation{line.off(f.p1)};
  });
}

void angles() {
  ordinary("kezphi", "angle at a vertex", "rad", [](Site& site) {
    const Four f(site, &Site::flat);
    const Point q(Vec(f.p1) + f.w());
    float phi;
    call<kezphi>(f.p1.x, f.p1.y, f.p2.x, f.p2.y, q.x, q.y, phi);
    return off(phi, angle(f.u(), Vec(q) - Vec(f.p1)));
  });
  ordinary("kezphi3", "angle at a vertex in space", "rad", [](Site& site) {
    const Four f(site, &Site::point);
    const Point q(Vec(f.p1) + f.w());
    float phi;
    call<kezphi3>(f.p1.x, f.p1.y, f.p1.z, f.p2.x, f.p2.y, f.p2.z, q.x, q.y, q.z, phi);
    return off(phi, angle(f.u(), Vec(q) - Vec(f.p1)));
  });
  ordinary("keztrg", "angle by its cosine and sine", "rad", [](Site& site) {
    const Four f(site, &Site::point);
    float c, s;
    std::int32_t status;
    call<keztrg>(f.p1.x, f.p1.y, f.p1.z, f.p2.x, f.p2.y, f.p2.z, f.p3.x, f.p3.y, f.p3.z, f.p4.x,
                 f.p4.y, f.p4.z, c, s, status);
    return off(std::atan2(double{s}, double{c}), angle(f.u(), f.w()));
  });
  ordinary("kezmov", "angle as it appears in the x-y plane", "rad", [](Site& site) {
    const Four f(site, &Site::flat);
    float ax, ay, az;
    call<kezmov>(f.p1.x, f.p1.y, 0.0f, f.p2.x, f.p2.y, 0.0f, f.p3.x, f.p3.y, 0.0f, f.p4.x, f.p4.y,
                 0.0f, ax, ay, az);
    return off(az, angle(f.u(), f.w()));
  });
}

void turns() {
  ordinary("keztra", "point after a move of the origin", "mm", [](Site& site) {
    const Point p = site.flat(), o = site.flat();
    Point q = p;
    const std::int32_t n = 1;
    call<keztra>(&q.x, &q.y, n, o.x, o.y);
    return off(q, Vec(p) - o);
  });
  ordinary("kezrot", "point after a turn about the origin", "mm", [](Site& site) {
    const Point p = site.flat();
    const auto phi = static_cast<float>(site.random.angle());
    Point q = p;
    const std::int32_t n = 1, mode = 2;
    call<kezrot>(mode, &q.x, &q.y, n, phi);
    return off(q, turned(p, phi));
  });
  ordinary("kezcer3", "point after a turn about a centre", "mm", [](Site& site) {
    const Point c = site.flat(), p = site.flat();
    const auto phi = static_cast<float>(site.random.angle());
    Point moved = p, q;
    std::int32_t status;
    call<kezcer3>(c.x, c.y, moved.x, moved.y, phi, q.x, q.y, status);
    return off(q, Vec(c) + turned(Vec(p) - Vec(c), phi));
  });
}

}  // namespace

void measure_plane() {
  points();
  lines();
  angles();
  turns();
}

}  // namespace accuracy
