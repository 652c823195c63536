#include "../frame/arguments.h"
#include "../frame/rotation.h"
#include "axis_systems.h"
#include "line_intersections.h"
#include "placement.h"
#include "planes.h"
#include "quadrilateral.h"

using namespace kez;

namespace {

constexpr int32_t local_to_global = 1;

void store(const AxisSystem& axes, float* m1, float* m2, float* m3, float* m4, float* m5, float* m6,
           float* m7, float* m8, float* m9) {
  store(axes.x, m1, m2, m3);
  store(axes.y, m4, m5, m6);
  store(axes.z, m7, m8, m9);
}

Corners load_corners(const float X[], const float Y[], const float Z[]) {
  Corners corners;
  for (std::size_t i = 0; i < corners.size(); ++i) corners[i] = load(&X[i], &Y[i], &Z[i]);
  return corners;
}

}  // namespace

extern "C" {

void KEZ_CALL kezlni(const float* a1, const float* b1, const float* c1, const float* a2,
                     const float* b2, const float* c2, int32_t* status, float* x, float* y) {
  const LineMeeting meeting = intersect(load_line(a1, b1, c1), load_line(a2, b2, c2));
  if (meeting.status == Meeting::one_point) store(meeting.point, x, y);
  *status = number(meeting.status);
}

void KEZ_CALL kezpsn(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, int32_t* code) {
  *code = number(classify(load_vector(x1, y1, z1, x2, y2, z2)));
}

void KEZ_CALL kezln6(const float* x0, const float* y0, const float* z0, const float* u,
                     const float* v, const float* w, const float* px, const float* py,
                     const float* pz, const float* tol, int32_t* code, int32_t* onLine) {
  const PointOnLine found = test_on_line(load(x0, y0, z0), load(u, v, w), load(px, py, pz), *tol);
  *code = number(found.direction);
  *onLine = found.on_line;
}

void KEZ_CALL kezln7(const float* a1, const float* b1, const float* c1, const float* d1,
                     const float* a2, const float* b2, const float* c2, const float* d2,
                     const float* px, const float* py, const float* pz, float* l, float* m,
                     const float* n, const float* tol, int32_t* code, int32_t* onLine) {
  static Vec3 line_point{};
  const PointOnMeetingLine found =
      test_on_meeting_line(load_plane(a1, b1, c1, d1), load_plane(a2, b2, c2, d2), *n,
                           load(px, py, pz), *tol, line_point);
  *l = found.l;
  *m = found.m;
  *code = number(found.direction);
  *onLine = found.on_line;
}

void KEZ_CALL kez3lni(float* x1, float* y1, float* z1, const float* dx1, const float* dy1,
                      const float* dz1, float* x2, float* y2, float* z2, const float* dx2,
                      const float* dy2, const float* dz2, int32_t* status, float* xi, float* yi,
                      float* zi) {
  const SpaceMeeting meeting = intersect(load(x1, y1, z1), load(dx1, dy1, dz1), load(x2, y2, z2),
                                         load(dx2, dy2, dz2), load(xi, yi));
  if (meeting.obstacle == Obstacle::none) {
    store(meeting.first, x1, y1, z1);
    store(meeting.second, x2, y2, z2);
    store(meeting.point, xi, yi, zi);
  }
  *status = number(meeting.obstacle);
}

void KEZ_CALL kezpl1(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, float* A, float* B, float* C, float* D, int32_t* status) {
  const PlaneOfPoints result = plane_through(load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3));
  store(result.plane, A, B, C, D);
  *status = number(result.third);
}

void KEZ_CALL kezpl2(const float* x0, const float* y0, const float* z0, const float* x1,
                     const float* y1, const float* z1, const float* x2, const float* y2,
                     const float* z2, const float* x3, const float* y3, const float* z3,
                     const float* x4, const float* y4, const float* z4, float* A, float* B,
                     float* C, float* D, int32_t* status) {
  const PlaneOfLines result = plane_parallel_to(
      load(x0, y0, z0), load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3), load(x4, y4, z4));
  store(result.plane, A, B, C, D);
  *status = number(result.obstacle);
}

void KEZ_CALL kezpl3(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x4, const float* y4, const float* z4, float* A,
                     float* B, float* C, float* D, int32_t* status) {
  const Vec3 p1 = load(x1, y1, z1);
  const PlaneOfLines result =
      plane_parallel_to(p1, p1, load(x2, y2, z2), load(x3, y3, z3), load(x4, y4, z4));
  store(result.plane, A, B, C, D);
  *status = number(result.obstacle);
}

void KEZ_CALL kezpl4(const float* x0, const float* y0, const float* z0, const float* x1,
                     const float* y1, const float* z1, const float* x2, const float* y2,
                     const float* z2, float* A, float* B, float* C, float* D, int32_t* status) {
  const auto plane = plane_perpendicular(load(x0, y0, z0), load(x1, y1, z1), load(x2, y2, z2));
  store(plane.value_or(Plane{}), A, B, C, D);
  *status = !plane;
}

void KEZ_CALL kezpl5(const float* p, const float* q, const float* r, float* A, float* B, float* C,
                     float* D, int32_t* status) {
  const auto plane = plane_of_intercepts(load(p, q, r));
  store(plane.value_or(Plane{}), A, B, C, D);
  *status = !plane;
}

void KEZ_CALL kezpl6(const float* x1, const float* y1, const float* z1, const float* dx1,
                     const float* dy1, const float* dz1, const float* x2, const float* y2,
                     const float* z2, const float* dx2, const float* dy2, const float* dz2,
                     float* A, float* B, float* C, float* D, int32_t* status) {
  const PlaneOfLines result = plane_through_lines(load(x1, y1, z1), load(dx1, dy1, dz1),
                                                  load(x2, y2, z2), load(dx2, dy2, dz2));
  if (result.obstacle == Obstacle::none) store(result.plane, A, B, C, D);
  *status = number(result.obstacle);
}

void KEZ_CALL kezplv(const float* ux, const float* uy, const float* uz, const float* wx,
                     const float* wy, const float* wz, const float*, const float*, int32_t* rel) {
  const auto relation = relate_through_origin(load(ux, uy, uz), load(wx, wy, wz));
  *rel = relation ? number(*relation) : -1;
}

void KEZ_CALL kezpld(const float* x, const float* y, const float* z, const float* A, const float* B,
                     const float* C, const float* D, float* dist) {
  *dist = signed_distance(load(x, y, z), load_plane(A, B, C, D));
}

void KEZ_CALL kezplp(const float* A, const float* B, const float* C, const float* D,
                     int32_t* code) {
  *code = number(classify(load_plane(A, B, C, D)));
}

void KEZ_CALL kezpli(const float* x0, const float* y0, const float* z0, const float* u,
                     const float* v, const float* w, const float* A, const float* B, const float* C,
                     const float* D, float* xi, float* yi, float* zi, int32_t* status) {
  const LinePlaneMeeting meeting =
      intersect(load(x0, y0, z0), load(u, v, w), load_plane(A, B, C, D));
  if (meeting.status == LinePlaneMeeting::Status::one_point) store(meeting.point, xi, yi, zi);
  *status = number(meeting.status);
}

void KEZ_CALL kezpsp(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x, const float* y, const float* z,
                     const float* tol, int32_t* status) {
  *status = number(
      in_plane_by_angle(load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3), load(x, y, z), *tol));
}

void KEZ_CALL kezpspg(const float* x, const float* y, const float* z, const float* A,
                      const float* B, const float* C, const float* D, const float* tol,
                      int32_t* status) {
  *status = number(in_plane_by_distance(load(x, y, z), load_plane(A, B, C, D), *tol));
}

void KEZ_CALL kezpnp(const float x[], const float y[], const float z[], const float* A,
                     const float* B, const float* C, float* D, const int32_t* n, int32_t* count,
                     int32_t idx[]) {
  const PlaneScan result =
      scan(table(x, *n), table(y, *n), table(z, *n), load_plane(A, B, C, D), idx);
  *D = result.sum;
  *count = result.count;
}

void KEZ_CALL kezaxe(const float* x0, const float* y0, const float* z0, const float* xa,
                     const float* ya, const float* za, const float* xb, const float* yb,
                     const float* zb, float* m1, float* m2, float* m3, float* m4, float* m5,
                     float* m6, float* m7, float* m8, float* m9, int32_t* status) {
  const PlacedAxes result = axes_through(load(x0, y0, z0), load(xa, ya, za), load(xb, yb, zb));
  store(result.axes, m1, m2, m3, m4, m5, m6, m7, m8, m9);
  *status = number(result.status);
}

void KEZ_CALL keztrn(float p[], const float* m1, const float* m2, const float* m3, const float* m4,
                     const float* m5, const float* m6, const float* m7, const float* m8,
                     const float* m9, const int32_t* mode) {
  const AxisSystem axes = {load(m1, m2, m3), load(m4, m5, m6), load(m7, m8, m9)};
  const Vec3 point = load(&p[0], &p[1], &p[2]);
  store(*mode == local_to_global ? to_global(axes, point) : to_local(axes, point), &p[0], &p[1],
        &p[2]);
}

void KEZ_CALL kez3tra(float x[], float y[], float z[], const int32_t* n, const float* ox,
                      const float* oy, const float* oz) {
  translate(table(x, *n), table(y, *n), table(z, *n), load(ox, oy, oz));
}

void KEZ_CALL kez3lda(const float* x1, const float* y1, const float* z1, const float* x2,
                      const float* y2, const float* z2, const float* px, const float* py,
                      const float* pz, int32_t* status, float* dist) {
  *dist = distance_in_plane(load(x1, y1, z1), load(x2, y2, z2), load(px, py, pz));
  *status = 0;
}

void KEZ_CALL kez3lds(const float* x1, const float* y1, const float* z1, const float* x2,
                      const float* y2, const float* z2, const float* px, const float* py,
                      const float* pz, float* dist) {
  *dist = distance_in_plane(load(x1, y1, z1), load(x2, y2, z2), load(px, py, pz));
}

void KEZ_CALL kez3ldb(const float* x1, const float* y1, const float* z1, const float* x2,
                      const float* y2, const float* z2, const float* px, const float* py,
                      const float* pz, int32_t* status, float* dist) {
  *dist = distance_by_cross(load(x1, y1, z1), load(x2, y2, z2), load(px, py, pz));
  *status = 0;
}

void KEZ_CALL kezpnl(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float x[], const float y[],
                     kez_z_callback zof, const int32_t* n, const float* tol, int32_t* status,
                     int32_t* count, int32_t idx[]) {
  const int32_t points = *n;
  // The host gets a copy of the index, so that it may write to it.
  const auto z_of = [zof](int32_t position) { return zof(&position); };
  *count = points_near_line(load(x1, y1, z1), load(x2, y2, z2), table(x, points), table(y, points),
                            z_of, *tol, idx);
  if (points >= 1) *status = 0;
}

void KEZ_CALL kezrotx(const int32_t* mode, const float[], float y[], float z[], const int32_t* n,
                      const float* angle) {
  turn(rotation_by(*angle, sense_of(*mode)), table(y, *n), table(z, *n));
}

void KEZ_CALL kezroty(const int32_t* mode, float x[], const float[], float z[], const int32_t* n,
                      const float* angle) {
  turn(rotation_by(*angle, sense_of(*mode)), table(x, *n), table(z, *n));
}

void KEZ_CALL kezrotz(const int32_t* mode, float x[], float y[], const float[], const int32_t* n,
                      const float* angle) {
  turn(rotation_by(*angle, sense_of(*mode)), table(x, *n), table(y, *n));
}

void KEZ_CALL kezptr(float x[], float y[], float z[], const int32_t* n, const float* tx,
                     const float* ty, const float* tz, const float* ax, const float* ay,
                     const float* az) {
  place({table(x, *n), table(y, *n), table(z, *n)}, {load(tx, ty, tz), load(ax, ay, az)});
}

void KEZ_CALL kezptrl(const float* x0, const float* y0, const float* z0, const float* xa,
                      const float* ya, const float* za, const float* xb, const float* yb,
                      const float* zb, float x[], float y[], float z[], const int32_t* n,
                      const float* tx, const float* ty, const float* tz, const float* ax,
                      const float* ay, const float* az, int32_t* status) {
  *status = number(place_locally(load(x0, y0, z0), load(xa, ya, za), load(xb, yb, zb),
                                 {table(x, *n), table(y, *n), table(z, *n)},
                                 {load(tx, ty, tz), load(ax, ay, az)}));
}

void KEZ_CALL kezpl7(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* angle, float* A, float* B, float* C, float* D,
                     int32_t* status) {
  const PlaneOfPoints result =
      plane_turned(load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3), *angle);
  store(result.plane, A, B, C, D);
  *status = number(result.third);
}

void KEZ_CALL kezorv(float X[], float Y[], float Z[], int32_t order[]) {
  const Corners corners = load_corners(X, Y, Z);
  const auto outline = outline_order(corners);
  for (std::size_t i = 0; i < outline.size(); ++i) {
    store(corners[static_cast<std::size_t>(outline[i]) - 1], &X[i], &Y[i], &Z[i]);
    order[i] = outline[i];
  }
}

}  // extern "C"
