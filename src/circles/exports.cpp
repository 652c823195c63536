#include "../frame/arguments.h"
#include "arc_centre.h"
#include "circle.h"
#include "directions.h"
#include "figures.h"
#include "guided_points.h"
#include "local_frame.h"
#include "region_report.h"

using namespace kez;

namespace {

void store(const Crossings& crossings, float* x1, float* y1, float* x2, float* y2) {
  if (crossings.count >= 1) store(crossings.first, x1, y1);
  if (crossings.count == 2) store(crossings.second, x2, y2);
}

void store(const Crossings& crossings, int32_t* n, float* x1, float* y1, float* x2, float* y2) {
  store(crossings, x1, y1, x2, y2);
  *n = crossings.count;
}

void store(const Guide& guide, float* x0, float* y0, float* x1, float* y1, float* x2, float* y2) {
  store(guide.start, x1, y1);
  store(guide.end, x2, y2);
  store(guide.centre, x0, y0);
}

constinit RegionReport region_report;

// Runs when the library is unloaded. A report that is needed even later, while the process ends, is
// opened again.
[[gnu::destructor]] void close_report() {
  region_report.close();
}

}  // namespace

extern "C" {

void KEZ_CALL kezhin(const float* x0, const float* y0, const float* z0, const float* x1,
                     const float* y1, const float* z1, const float* x2, const float* y2,
                     const float* z2, const float* x3, const float* y3, const float* z3, float* h0,
                     float* a0, float* h3, float* a3, float* L) {
  store(drop_perpendiculars(load(x0, y0, z0), load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3)),
        h0, a0, h3, a3, L);
}

void KEZ_CALL kezaxph(const float* x, const float* y, float* phi) {
  *phi = direction_angle(load(x, y));
}

void KEZ_CALL kezapp(const float* x0, const float* y0, const float* x1, const float* y1,
                     const float* x2, const float* y2, const int32_t* n, const float X[],
                     const float Y[], int32_t flag[]) {
  relate_points_angle(load(x0, y0), load(x1, y1), load(x2, y2), points(X, Y, *n),
                      entries(flag, *n));
}

void KEZ_CALL kezcer(const float* xc, const float* yc, const float* r, float* D, float* E,
                     float* F) {
  store(circle_about(load(xc, yc), *r), D, E, F);
}

void KEZ_CALL kezlci(const float* a, const float* b, const float* c, const float* D, const float* E,
                     const float* F, int32_t* n, float* x1, float* y1, float* x2, float* y2) {
  store(intersect_line_circle(load<Line>(a, b, c), load<Circle>(D, E, F)), n, x1, y1, x2, y2);
}

void KEZ_CALL kezc12(const float* D1, const float* E1, const float* F1, const float* D2,
                     const float* E2, const float* F2, int32_t* n, float* x1, float* y1, float* x2,
                     float* y2) {
  store(intersect_circles(load<Circle>(D1, E1, F1), load<Circle>(D2, E2, F2)), n, x1, y1, x2, y2);
}

void KEZ_CALL kezcin(const float X[], const float Y[], const float* a, const float* b,
                     const float* c, int32_t* k, float* x2, float* y2, float* x3, float* y3) {
  const RegionFinding finding = classify_region({X[0], Y[0]}, {X[1], Y[1]}, load<Line>(a, b, c));
  store(finding.crossings, x2, y2, x3, y3);
  *k = code_of(finding.region);
  region_report.add(finding);
}

void KEZ_CALL kezcer2(const float* x1, const float* y1, const float* x2, const float* y2,
                      const int32_t* sense, const float* R, float* c1x, float* c1y, float* c2x,
                      float* c2y, float* cx, float* cy, int32_t* status) {
  const auto centres = arc_centres(load(x1, y1), load(x2, y2), *sense, *R);
  if (centres) {
    store(centres->first, c1x, c1y);
    store(centres->second, c2x, c2y);
    store(centres->chosen, cx, cy);
  }
  *status = centres ? code_of(centres->status) : 0;
}

void KEZ_CALL kezcer1(const float* x1, const float* y1, const float* x2, const float* y2,
                      const int32_t* sense, const float* f, float* R, float* cx, float* cy,
                      int32_t* status) {
  const auto arc = arc_by_rise(load(x1, y1), load(x2, y2), *sense, *f);
  if (arc) {
    *R = arc->radius;
    store(arc->centre, cx, cy);
  }
  *status = arc ? code_of(arc->status) : 0;
}

void KEZ_CALL kezarc1(const float* x0, const float* y0, const float* x1, const float* y1,
                      const float* x2, const float* y2, float* s1, float* s2, int32_t* status) {
  const auto arcs = divide_circle(load(x0, y0), load(x1, y1), load(x2, y2));
  store(arcs, s1, s2);
  *status = arcs.has_value();
}

void KEZ_CALL kezcer6(const float* x0, const float* y0, const float* x1, const float* y1,
                      const float* x2, const float* y2, const int32_t* sense, const float* L,
                      float* x, float* y, int32_t* status) {
  static KeptCrossings kept{};
  const Guide guide = {load(x0, y0), load(x1, y1), load(x2, y2)};
  const auto point = carry_along_ray(guide, *sense, *L, kept);
  store(point, x, y);
  *status = point.has_value();
}

void KEZ_CALL kezcer8(const float* x0, const float* y0, const float* x1, const float* y1,
                      const float* x2, const float* y2, const int32_t* sense, const float* L,
                      float* x, float* y, int32_t* status) {
  static KeptCrossings kept{};
  const Guide guide = {load(x0, y0), load(x1, y1), load(x2, y2)};
  const auto point = carry_across(guide, *sense, *L, kept);
  store(point, x, y);
  *status = point.has_value();
}

void KEZ_CALL kezcer9(const float* x0, const float* y0, const float* x1, const float* y1,
                      const float* x2, const float* y2, const int32_t* sense, const float* L,
                      const float* w, float* xa, float* ya, float* xb, float* yb, int32_t* status) {
  static KeptOpening kept{};
  const Guide guide = {load(x0, y0), load(x1, y1), load(x2, y2)};
  const auto opening = carry_opening_across(guide, *sense, *L, *w, kept);
  store(opening, xa, ya, xb, yb);
  *status = opening.has_value();
}

void KEZ_CALL kezcer4(float* x0, float* y0, float* x1, float* y1, float* x2, float* y2,
                      const float* L, const float* theta, float* x, float* y, int32_t* status) {
  static Vec2 kept_result{};
  const Guide guide = {load(x0, y0), load(x1, y1), load(x2, y2)};
  const auto found = carry_at_angle(guide, *L, *theta, kept_result);
  if (found) {
    store(found->point, x, y);
    store(found->guide, x0, y0, x1, y1, x2, y2);
  }
  *status = found.has_value();
}

void KEZ_CALL kezcer10(float* x0, float* y0, float* x1, float* y1, float* x2, float* y2,
                       const float* dphi, const float* theta, float* x, float* y, int32_t* status) {
  static Vec2 kept_meeting{};
  const Guide guide = {load(x0, y0), load(x1, y1), load(x2, y2)};
  const auto meeting = meet_guide(guide, *dphi, *theta, kept_meeting);
  if (meeting) {
    store(meeting->result.point, x, y);
    store(meeting->result.guide, x0, y0, x1, y1, x2, y2);
  }
  *status = meeting ? code_of(meeting->status) : 0;
}

void KEZ_CALL kezcer5(float* x0, float* y0, float* x1, float* y1, float* x2, float* y2,
                      const float* L, const int32_t* sense, const float* h, float* x, float* y,
                      int32_t* status) {
  static Vec2 kept_result{};
  const Guide chord = {load(x0, y0), load(x1, y1), load(x2, y2)};
  const auto found = point_over_sagitta(chord, *L, *sense, *h, kept_result);
  if (found) {
    store(found->guide, x0, y0, x1, y1, x2, y2);
    store(found->point, x, y);
  }
  *status = found.has_value();
}

void KEZ_CALL keztra(float X[], float Y[], const int32_t* n, const float* tx, const float* ty) {
  const Vec2 origin = load(tx, ty);
  translate(points(X, Y, *n), origin);
}

void KEZ_CALL kezrot(const int32_t* mode, float X[], float Y[], const int32_t* n,
                     const float* angle) {
  rotate_each(rotation_by(*angle, from_code<Sense>(*mode)), points(X, Y, *n));
}

void KEZ_CALL kezcer3(const float* x0, const float* y0, float* x, float* y, const float* dphi,
                      float* xo, float* yo, int32_t* status) {
  const RotatedPoint rotated = rotate_about(load(x0, y0), load(x, y), *dphi);
  store(rotated.point, xo, yo);
  store(rotated.given, x, y);
  *status = rotated.point.has_value();
}

void KEZ_CALL kezapl(float X[], float Y[], const int32_t* n, float* area) {
  *area = polygon_area(outline(X, Y, *n));
}

void KEZ_CALL kezair(float X[], float Y[], const int32_t* n, const int32_t* kind, const float* A0,
                     const float* factor, float* area) {
  const auto figure = from_code<Figure>(*kind);
  *area = figure_area(figure, {X, Y, points_used(figure, *n)}, *A0, *factor, *area);
}

void KEZ_CALL kezspl(float X[], float Y[], const int32_t* n, float* Sx, float* Sy) {
  store(polygon_first_moments(outline(X, Y, *n)), Sx, Sy);
}

void KEZ_CALL kezstm(float X[], float Y[], const int32_t* n, const int32_t* kind, const float* A0,
                     const float* factor, float* Sx, float* Sy) {
  const auto figure = from_code<Figure>(*kind);
  const PlanePoints used = {X, Y, points_used(figure, *n)};
  store(figure_first_moments(figure, used, *A0, *factor, {*Sx, *Sy}), Sx, Sy);
}

void KEZ_CALL kezipl(float X[], float Y[], const int32_t* n, float* Ix, float* Iy, float* Ixy) {
  store(polygon_second_moments(outline(X, Y, *n)), Ix, Iy, Ixy);
}

void KEZ_CALL kezacp(const float* x0, const float* y0, const float* x1, const float* y1,
                     const float* x2, const float* y2, const int32_t* kind, float* area, float* xs,
                     float* ys) {
  store(circular_segment(load(x0, y0), load(x1, y1), load(x2, y2), from_code<Figure>(*kind)), area,
        xs, ys);
}

void KEZ_CALL kezcnv(float X[], float Y[], const int32_t* n, int32_t* flag) {
  *flag = code_of(classify_outline(outline(X, Y, *n)));
}

}  // extern "C"
