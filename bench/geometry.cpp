// Single calls: lines, planes, circles, angles, panels.
#include <CGAL/Simple_cartesian.h>

#include <IntAna2d_AnaIntersection.hxx>
#include <cmath>
#include <gp_Circ2d.hxx>
#include <gp_Lin2d.hxx>
#include <numbers>

#include "empty.h"
#include "harness.h"

namespace bench {

namespace {

using Kernel = CGAL::Simple_cartesian<float>;
using Value = std::tuple<float>;
using Meeting = std::tuple<std::int32_t, float, float>;
using Crossings = std::tuple<std::int32_t, float, float, float, float>;
using Plane = std::tuple<float, float, float, float, std::int32_t>;
using Place = std::tuple<float, float, float, std::int32_t>;
using Parts = std::tuple<float, float>;

template <typename Result>
void store_point(const Result& result, Meeting& out) {
  if (!result) return;
  if (const auto* p = boost::get<Kernel::Point_2>(&*result)) out = {0, p->x(), p->y()};
}

void lines_in_the_plane() {
  const auto lines = random_inputs<6>(-3, 3);
  call<Meeting>("kezlni", lines, by_reference<kezlni>);
  call<Meeting>("cgal_line_line", lines, [](const Floats<6>& in, Meeting& out) {
    const auto& [a1, b1, c1, a2, b2, c2] = in;
    store_point(CGAL::intersection(Kernel::Line_2(a1, b1, c1), Kernel::Line_2(a2, b2, c2)), out);
  });

  const auto points = random_inputs<8>(-3, 3);
  call<Meeting>("kezln3_kezln3_kezlni", points, [](const Floats<8>& in, Meeting& out) {
    const auto& [x1, y1, x2, y2, x3, y3, x4, y4] = in;
    auto& [status, x, y] = out;
    float a1, b1, c1, a2, b2, c2;
    kezln3(&x1, &y1, &x2, &y2, &a1, &b1, &c1);
    kezln3(&x3, &y3, &x4, &y4, &a2, &b2, &c2);
    kezlni(&a1, &b1, &c1, &a2, &b2, &c2, &status, &x, &y);
  });
  call<Meeting>("cgal_four_points", points, [](const Floats<8>& in, Meeting& out) {
    const auto& [x1, y1, x2, y2, x3, y3, x4, y4] = in;
    const Kernel::Line_2 p(Kernel::Point_2(x1, y1), Kernel::Point_2(x2, y2));
    const Kernel::Line_2 q(Kernel::Point_2(x3, y3), Kernel::Point_2(x4, y4));
    store_point(CGAL::intersection(p, q), out);
  });
}

gp_Circ2d circle_of(float d, float e, float f) {
  const gp_Pnt2d centre(-d / 2, -e / 2);
  return {gp_Ax2d(centre, gp_Dir2d(1, 0)), std::sqrt((d * d + e * e) / 4 - f)};
}

void store_points(const IntAna2d_AnaIntersection& found, Crossings& out) {
  Floats<4> xy{};
  for (int i = 1; i <= found.NbPoints(); ++i) {
    const gp_Pnt2d& p = found.Point(i).Value();
    xy[2 * i - 2] = static_cast<float>(p.X());
    xy[2 * i - 1] = static_cast<float>(p.Y());
  }
  out = {found.NbPoints(), xy[0], xy[1], xy[2], xy[3]};
}

// Circles of radius about 3 near the origin, and lines through the middle of them: two points each.
void circles() {
  Random random;
  Inputs<Floats<6>> line_and_circle, circles;
  Inputs<std::pair<gp_Lin2d, gp_Circ2d>> cad_line_and_circle;
  Inputs<std::pair<gp_Circ2d, gp_Circ2d>> cad_circles;
  const auto unit = [&] { return random.between(-1.0f, 1.0f); };
  const auto minus_r2 = [&] { return random.between(-10.0f, -8.0f); };
  for (std::size_t k = 0; k < input_count; ++k) {
    const auto [a, b, c, d, e, f] =
        line_and_circle[k] = {1, 1 + unit(), unit(), unit(), unit(), minus_r2()};
    cad_line_and_circle[k] = {gp_Lin2d(a, b, c), circle_of(d, e, f)};
    const auto [d1, e1, f1, d2, e2, f2] =
        circles[k] = {3 + unit(), unit(), minus_r2(), -3 + unit(), unit(), minus_r2()};
    cad_circles[k] = {circle_of(d1, e1, f1), circle_of(d2, e2, f2)};
  }
  const auto cad = [](const auto& in, Crossings& out) {
    store_points(IntAna2d_AnaIntersection(in.first, in.second), out);
  };
  call<Crossings>("kezlci", line_and_circle, by_reference<kezlci>);
  call<Crossings>("cad_line_circle", cad_line_and_circle, cad);
  call<Crossings>("kezc12", circles, by_reference<kezc12>);
  call<Crossings>("cad_circle_circle", cad_circles, cad);
}

void planes() {
  const auto points = random_inputs<9>(-3, 3);
  call<Plane>("kezpl1", points, by_reference<kezpl1>);
  call<Plane>("cgal_plane", points, [](const Floats<9>& in, Plane& out) {
    const auto& [x1, y1, z1, x2, y2, z2, x3, y3, z3] = in;
    const Kernel::Plane_3 plane({x1, y1, z1}, {x2, y2, z2}, {x3, y3, z3});
    out = {plane.a(), plane.b(), plane.c(), plane.d(), 0};
  });

  // Positive coordinates: the line is never near parallel to the plane.
  const auto line_and_plane = random_inputs<10>(1, 3);
  call<Place>("kezpli", line_and_plane, by_reference<kezpli>);
  call<Place>("cgal_line_plane", line_and_plane, [](const Floats<10>& in, Place& out) {
    const auto& [x, y, z, u, v, w, a, b, c, d] = in;
    const Kernel::Line_3 line(Kernel::Point_3(x, y, z), Kernel::Vector_3(u, v, w));
    const auto found = CGAL::intersection(line, Kernel::Plane_3(a, b, c, d));
    if (!found) return;
    if (const auto* p = boost::get<Kernel::Point_3>(&*found)) out = {p->x(), p->y(), p->z(), 0};
  });
}

using PositionCode = std::tuple<std::int32_t>;

void cgal_point_segment(const Floats<9>& in, PositionCode& out) {
  const auto& [x1, y1, z1, x2, y2, z2, x, y, z] = in;
  const Kernel::Segment_3 segment({x1, y1, z1}, {x2, y2, z2});
  out = {CGAL::squared_distance(Kernel::Point_3(x, y, z), segment) <= 1.0e-10f ? 3 : 0};
}

// Points beside the segment, and points between the ends of one along the x axis.
void points_and_segments() {
  const auto off = random_inputs<9>(-3, 3);
  call<PositionCode>("kezpsl_off", off, by_reference<kezpsl>);
  call<PositionCode>("cgal_point_segment_off", off, cgal_point_segment);
  auto on = random_inputs<9>(1, 3);
  for (auto& [x1, y1, z1, x2, y2, z2, x, y, z] : on) {
    x1 = -x1;
    x -= 2;
    y1 = y2 = y;
    z1 = z2 = z;
  }
  call<PositionCode>("kezpsl_on", on, by_reference<kezpsl>);
  call<PositionCode>("cgal_point_segment_on", on, cgal_point_segment);
}

void angles() {
  const auto vectors = random_inputs<6>(-3, 3);
  call<Value>("kezphi1", vectors, by_reference<kezphi1>);
  call<Value>("cgal_angle", vectors, [](const Floats<6>& in, Value& out) {
    const auto& [ux, uy, uz, wx, wy, wz] = in;
    const float degrees = CGAL::approximate_angle(Kernel::Vector_3(ux, uy, uz),  //
                                                  Kernel::Vector_3(wx, wy, wz));
    out = {degrees * (std::numbers::pi_v<float> / 180)};
  });
}

// Slender panels of b / t = 40, fy = 355 N/mm2, with stress ratios from 1 to -3.
void panels() {
  Random random;
  Inputs<Floats<7>> panels;
  for (auto& panel : panels)
    panel = {
        400, 400, 10, std::sqrt(355.0f), std::sqrt(235.0f), 300, random.between(-900.0f, 300.0f)};
  call<Parts>("kezef2", panels, by_reference<kezef2>);
  call<Parts>("empty9", panels, by_reference<empty9>);
}

}  // namespace

void register_geometry() {
  const auto points = random_inputs<6>(-3, 3);
  call<Value>("kezpds", points, by_reference<kezpds>);
  call<Value>("empty7", points, by_reference<empty7>);
  lines_in_the_plane();
  circles();
  planes();
  points_and_segments();
  angles();
  panels();
}

}  // namespace bench
