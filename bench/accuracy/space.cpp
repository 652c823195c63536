// Ordinary calls of routines on lines, planes and axes in space.
#include <array>

#include "measure.h"

namespace accuracy {
namespace {

// Three points that make a sound triangle, whose plane is not upright: kezaxe turns the normal up.
struct Triangle {
  Point p1, p2, p3;

  explicit Triangle(Site& site) {
    do p1 = site.point(), p2 = site.point(), p3 = site.point();
    while (length(u()) < 100 || length(w()) < 100 || sine() < 0.2 || std::fabs(normal().y) < 0.01);
  }
  Vec u() const { return Vec(p2) - Vec(p1); }
  Vec w() const { return Vec(p3) - Vec(p1); }
  Vec normal() const { return unit(cross(u(), w())); }
  double sine() const { return length(cross(u(), w())) / length(u()) / length(w()); }
};

struct Plane {
  float a, b, c, d;
  std::int32_t status;

  explicit Plane(const Triangle& t) {
    call<kezpl1>(t.p1.x, t.p1.y, t.p1.z, t.p2.x, t.p2.y, t.p2.z, t.p3.x, t.p3.y, t.p3.z, a, b, c, d,
                 status);
  }
  Vec normal() const { return {a, b, c}; }
  double off(Vec p) const { return std::fabs(dot(normal(), p) + d) / length(normal()); }
};

struct Axes {
  std::array<float, 9> m;

  explicit Axes(const Triangle& t) {
    std::int32_t status;
    call<kezaxe>(t.p1.x, t.p1.y, t.p1.z, t.p2.x, t.p2.y, t.p2.z, t.p3.x, t.p3.y, t.p3.z, m[0], m[1],
                 m[2], m[3], m[4], m[5], m[6], m[7], m[8], status);
  }
  Vec axis(std::size_t i) const { return {m[3 * i], m[3 * i + 1], m[3 * i + 2]}; }
};

// Upwards, as kezaxe has it: towards larger y.
Vec upwards(Vec normal) {
  return normal.y < 0 ? -1 * normal : normal;
}

void planes() {
  ordinary("kezpl1", "plane through three points: off the points", "mm", [](Site& site) {
    const Triangle t(site);
    const Plane plane(t);
    if (plane.status != 0) return no_result;
    return Deviation{std::max({plane.off(t.p1), plane.off(t.p2), plane.off(t.p3)})};
  });
  ordinary("kezpl7", "direction of the normal of a turned plane", "rad", [](Site& site) {
    const Triangle t(site);
    const auto phi = static_cast<float>(site.random.between(-3, 3));
    Plane plane(t);
    call<kezpl7>(t.p1.x, t.p1.y, t.p1.z, t.p2.x, t.p2.y, t.p2.z, t.p3.x, t.p3.y, t.p3.z, phi,
                 plane.a, plane.b, plane.c, plane.d, plane.status);
    if (plane.status != 0) return no_result;
    const Vec z = upwards(t.normal()), y = cross(z, unit(t.u()));
    return Deviation{angle(plane.normal(), std::cos(phi) * z - std::sin(phi) * y)};
  });
  ordinary("kezpld", "distance from a plane by `kezpl1`", "mm", [](Site& site) {
    const Triangle t(site);
    const Point p = site.point();
    const Plane plane(t);
    float d;
    call<kezpld>(p.x, p.y, p.z, plane.a, plane.b, plane.c, plane.d, d);
    return off(d, dot(Vec(p) - t.p1, t.normal()));
  });
  ordinary("kezpli", "crossing of a line and a plane by `kezpl1`", "mm", [](Site& site) {
    const Triangle t(site);
    const Point p = site.point();
    Point u;
    do u = Point(site.in_figure());
    while (std::fabs(dot(unit(u), t.normal())) < 0.2);
    const Plane plane(t);
    Point found;
    std::int32_t status;
    call<kezpli>(p.x, p.y, p.z, u.x, u.y, u.z, plane.a, plane.b, plane.c, plane.d, found.x, found.y,
                 found.z, status);
    const Vec truth = Vec(p) + dot(Vec(t.p1) - Vec(p), t.normal()) / dot(u, t.normal()) * Vec(u);
    return status == 0 ? off(found, truth) : no_result;
  });
}

void distances() {
  ordinary("kez3lds", "distance from a line in space", "mm", [](Site& site) {
    const Triangle t(site);
    float d;
    call<kez3lds>(t.p1.x, t.p1.y, t.p1.z, t.p2.x, t.p2.y, t.p2.z, t.p3.x, t.p3.y, t.p3.z, d);
    return off(std::fabs(d), distance_from_line(t.p3, t.p1, t.p2));
  });
}

void axes() {
  ordinary("kezaxe", "directions of the axes", "rad", [](Site& site) {
    const Triangle t(site);
    const Axes found(t);
    const Vec x = unit(t.u()), z = upwards(t.normal());
    return Deviation{std::max(
        {angle(found.axis(0), x), angle(found.axis(1), cross(z, x)), angle(found.axis(2), z)})};
  });
  ordinary("keztrn", "point carried to the axes by `kezaxe`", "mm", [](Site& site) {
    const Triangle t(site);
    const Axes f(t);
    const Point p = site.point();
    float q[3] = {p.x, p.y, p.z};
    const std::int32_t mode = 2;
    call<keztrn>(&q[0], f.m[0], f.m[1], f.m[2], f.m[3], f.m[4], f.m[5], f.m[6], f.m[7], f.m[8],
                 mode);
    const Vec x = unit(t.u()), z = upwards(t.normal());
    return off(Vec{q[0], q[1], q[2]}, Vec{dot(p, x), dot(p, cross(z, x)), dot(p, z)});
  });
  ordinary("kezptr", "point after a move and three turns", "mm", [](Site& site) {
    const Point p = site.point(), move(site.in_figure());
    const auto a = static_cast<float>(site.random.between(0.1, 3));
    Point q = p;
    const std::int32_t n = 1;
    call<kezptr>(&q.x, &q.y, &q.z, n, move.x, move.y, move.z, a, a, a);
    Vec v = Vec(p) + Vec(move);
    const double c = std::cos(a), s = std::sin(a);
    v = {v.x, c * v.y - s * v.z, s * v.y + c * v.z};
    v = {c * v.x - s * v.z, v.y, s * v.x + c * v.z};
    v = {c * v.x - s * v.y, s * v.x + c * v.y, v.z};
    return off(q, v);
  });
  ordinary("kez3tra", "point after a move of the origin in space", "mm", [](Site& site) {
    const Point p = site.point(), o = site.point();
    Point q = p;
    const std::int32_t n = 1;
    call<kez3tra>(&q.x, &q.y, &q.z, n, o.x, o.y, o.z);
    return off(q, Vec(p) - Vec(o));
  });
}

}  // namespace

void measure_space() {
  planes();
  distances();
  axes();
}

}  // namespace accuracy
