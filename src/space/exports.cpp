#include "../frame/arguments.h"
#include "axis_systems.h"
#include "lines_in_space.h"
#include "placement.h"
#include "planes.h"
#include "quadrilateral.h"

using namespace kez;

namespace {

Ray load_ray(const float* x, const float* y, const float* z, const float* u, const float* v,
             const float* w) {
  return {load(x, y, z), load(u, v, w)};
}

}  // namespace

extern "C" {

void KEZ_CALL kezlni(const float* a1, const float* b1, const float* c1, const float* a2,
                     const float* b2, const float* c2, int32_t* status, float* x, float* y) {
  const LineMeeting meeting = intersect_lines(load<Line>(a1, b1, c1), load<Line>(a2, b2, c2));
  if (meeting.status == Meeting::one_point) store(meeting.point, x, y);
  *status = code_of(meeting.status);
}

void KEZ_CALL kezplv(const float* ux, const float* uy, const float* uz, const float* wx,
                     const float* wy, const float* wz, const float*, const float*, int32_t* rel) {
  const auto relation = relate_through_origin(load(ux, uy, uz), load(wx, wy, wz));
  *rel = relation ? code_of(*relation) : -1;
}

void KEZ_CALL kezpsn(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, int32_t* code) {
  *code = code_of(classify_direction(load_vector(x1, y1, z1, x2, y2, z2)));
}

void KEZ_CALL kezrotx(const int32_t* mode, const float[], float y[], float z[], const int32_t* n,
                      const float* angle) {
  rotate_each(rotation_by(*angle, from_code<Sense>(*mode)), points(y, z, *n));
}

void KEZ_CALL kezroty(const int32_t* mode, float x[], const float[], float z[], const int32_t* n,
                      const float* angle) {
  rotate_each(rotation_by(*angle, from_code<Sense>(*mode)), points(x, z, *n));
}

void KEZ_CALL kezrotz(const int32_t* mode, float x[], float y[], const float[], const int32_t* n,
                      const float* angle) {
  rotate_each(rotation_by(*angle, from_code<Sense>(*mode)), points(x, y, *n));
}

void KEZ_CALL kezln6(const float* x0, const float* y0, const float* z0, const float* u,
                     const float* v, const float* w, const float* px, const float* py,
                     const float* pz, const float* tol, int32_t* code, int32_t* onLine) {
  const PointOnLine found =
      relate_point_line(load(x0, y0, z0), load(u, v, w), load(px, py, pz), *tol);
  *code = code_of(found.direction);
  *onLine = found.on_line;
}

void KEZ_CALL kezln7(const float* a1, const float* b1, const float* c1, const float* d1,
                     const float* a2, const float* b2, const float* c2, const float* d2,
                     const float* px, const float* py, const float* pz, float* l, float* m,
                     const float* n, const float* tol, int32_t* code, int32_t* onLine) {
  static Vec3 line_point{};
  const PointOnMeetingLine found =
      relate_point_meeting_line(load<Plane>(a1, b1, c1, d1), load<Plane>(a2, b2, c2, d2), *n,
                                load(px, py, pz), *tol, line_point);
  *l = found.l;
  *m = found.m;
  *code = code_of(found.direction);
  *onLine = found.on_line;
}

void KEZ_CALL kez3lni(float* x1, float* y1, float* z1, const float* dx1, const float* dy1,
                      const float* dz1, float* x2, float* y2, float* z2, const float* dx2,
                      const float* dy2, const float* dz2, int32_t* status, float* xi, float* yi,
                      float* zi) {
  const SpaceMeeting meeting = intersect_lines_in_space(
      load_ray(x1, y1, z1, dx1, dy1, dz1), load_ray(x2, y2, z2, dx2, dy2, dz2), load(xi, yi));
  if (meeting.obstacle == Obstacle::none) {
    store(meeting.first, x1, y1, z1);
    store(meeting.second, x2, y2, z2);
    store(meeting.point, xi, yi, zi);
  }
  *status = code_of(meeting.obstacle);
}

void KEZ_CALL kez3lda(const float* x1, const float* y1, const float* z1, const float* x2,
                      const float* y2, const float* z2, const float* px, const float* py,
                      const float* pz, int32_t* status, float* dist) {
  *dist = distance_in_plane(load_segment(x1, y1, z1, x2, y2, z2), load(px, py, pz));
  *status = 0;
}

void KEZ_CALL kez3lds(const float* x1, const float* y1, const float* z1, const float* x2,
                      const float* y2, const float* z2, const float* px, const float* py,
                      const float* pz, float* dist) {
  *dist = distance_in_plane(load_segment(x1, y1, z1, x2, y2, z2), load(px, py, pz));
}

void KEZ_CALL kez3ldb(const float* x1, const float* y1, const float* z1, const float* x2,
                      const float* y2, const float* z2, const float* px, const float* py,
                      const float* pz, int32_t* status, float* dist) {
  *dist = distance_by_cross(load_segment(x1, y1, z1, x2, y2, z2), load(px, py, pz));
  *status = 0;
}

void KEZ_CALL kezpnl(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float x[], const float y[],
                     kez_z_callback zof, const int32_t* n, const float* tol, int32_t* status,
                     int32_t* count, int32_t idx[]) {
  const int32_t size = *n;
  // The host gets a copy of the index, so that it may write to it.
  const auto z_of = [zof](int32_t position) { return zof(&position); };
  *count = points_near_line(load_segment(x1, y1, z1, x2, y2, z2), points(x, y, size), z_of, *tol,
                            entries(idx, size));
  if (size >= 1) *status = 0;
}

void KEZ_CALL kezpl1(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, float* A, float* B, float* C, float* D, int32_t* status) {
  const PlaneOfPoints result = plane_through(load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3));
  store(result.plane, A, B, C, D);
  *status = code_of(result.third);
}

void KEZ_CALL kezpl2(const float* x0, const float* y0, const float* z0, const float* x1,
                     const float* y1, const float* z1, const float* x2, const float* y2,
                     const float* z2, const float* x3, const float* y3, const float* z3,
                     const float* x4, const float* y4, const float* z4, float* A, float* B,
                     float* C, float* D, int32_t* status) {
  const PlaneOfLines result = plane_parallel_to(
      load(x0, y0, z0), load_segment(x1, y1, z1, x2, y2, z2), load_segment(x3, y3, z3, x4, y4, z4));
  store(result.plane, A, B, C, D);
  *status = code_of(result.obstacle);
}

void KEZ_CALL kezpl3(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x4, const float* y4, const float* z4, float* A,
                     float* B, float* C, float* D, int32_t* status) {
  const Segment<Vec3> first = load_segment(x1, y1, z1, x2, y2, z2);
  const PlaneOfLines result =
      plane_parallel_to(first.first, first, load_segment(x3, y3, z3, x4, y4, z4));
  store(result.plane, A, B, C, D);
  *status = code_of(result.obstacle);
}

void KEZ_CALL kezpl4(const float* x0, const float* y0, const float* z0, const float* x1,
                     const float* y1, const float* z1, const float* x2, const float* y2,
                     const float* z2, float* A, float* B, float* C, float* D, int32_t* status) {
  const auto plane = plane_perpendicular(load(x0, y0, z0), load_segment(x1, y1, z1, x2, y2, z2));
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
  const PlaneOfLines result =
      plane_through_lines(load_ray(x1, y1, z1, dx1, dy1, dz1), load_ray(x2, y2, z2, dx2, dy2, dz2));
  if (result.obstacle == Obstacle::none) store(result.plane, A, B, C, D);
  *status = code_of(result.obstacle);
}

void KEZ_CALL kezpl7(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* angle, float* A, float* B, float* C, float* D,
                     int32_t* status) {
  const PlaneOfPoints result =
      rotated_plane(load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3), *angle);
  store(result.plane, A, B, C, D);
  *status = code_of(result.third);
}

void KEZ_CALL kezpld(const float* x, const float* y, const float* z, const float* A, const float* B,
                     const float* C, const float* D, float* dist) {
  *dist = signed_distance(load(x, y, z), load<Plane>(A, B, C, D));
}

void KEZ_CALL kezplp(const float* A, const float* B, const float* C, const float* D,
                     int32_t* code) {
  *code = code_of(classify_plane(load<Plane>(A, B, C, D)));
}

void KEZ_CALL kezpli(const float* x0, const float* y0, const float* z0, const float* u,
                     const float* v, const float* w, const float* A, const float* B, const float* C,
                     const float* D, float* xi, float* yi, float* zi, int32_t* status) {
  const LinePlaneMeeting meeting =
      intersect_line_plane(load_ray(x0, y0, z0, u, v, w), load<Plane>(A, B, C, D));
  if (meeting.status == LinePlaneMeeting::Status::one_point) store(meeting.point, xi, yi, zi);
  *status = code_of(meeting.status);
}

void KEZ_CALL kezpsp(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x, const float* y, const float* z,
                     const float* tol, int32_t* status) {
  *status = code_of(
      in_plane_by_angle(load(x1, y1, z1), load(x2, y2, z2), load(x3, y3, z3), load(x, y, z), *tol));
}

void KEZ_CALL kezpspg(const float* x, const float* y, const float* z, const float* A,
                      const float* B, const float* C, const float* D, const float* tol,
                      int32_t* status) {
  *status = code_of(in_plane_by_distance(load(x, y, z), load<Plane>(A, B, C, D), *tol));
}

void KEZ_CALL kezpnp(const float x[], const float y[], const float z[], const float* A,
                     const float* B, const float* C, float* D, const int32_t* n, int32_t* count,
                     int32_t idx[]) {
  const PlaneScan result = scan(points(x, y, z, *n), load<Plane>(A, B, C, D), entries(idx, *n));
  *D = result.sum;
  *count = result.count;
}

void KEZ_CALL kezaxe(const float* x0, const float* y0, const float* z0, const float* xa,
                     const float* ya, const float* za, const float* xb, const float* yb,
                     const float* zb, float* m1, float* m2, float* m3, float* m4, float* m5,
                     float* m6, float* m7, float* m8, float* m9, int32_t* status) {
  const PlacedAxes result = axes_through(load(x0, y0, z0), load(xa, ya, za), load(xb, yb, zb));
  store(result.axes, m1, m2, m3, m4, m5, m6, m7, m8, m9);
  *status = code_of(result.status);
}

void KEZ_CALL keztrn(float p[], const float* m1, const float* m2, const float* m3, const float* m4,
                     const float* m5, const float* m6, const float* m7, const float* m8,
                     const float* m9, const int32_t* mode) {
  const AxisSystem axes = {load(m1, m2, m3), load(m4, m5, m6), load(m7, m8, m9)};
  const Vec3 point = load(&p[0], &p[1], &p[2]);
  store(carry(axes, point, from_code<AxisChange>(*mode)), &p[0], &p[1], &p[2]);
}

void KEZ_CALL kezptr(float x[], float y[], float z[], const int32_t* n, const float* tx,
                     const float* ty, const float* tz, const float* ax, const float* ay,
                     const float* az) {
  place(points(x, y, z, *n), {load(tx, ty, tz), load(ax, ay, az)});
}

void KEZ_CALL kezptrl(const float* x0, const float* y0, const float* z0, const float* xa,
                      const float* ya, const float* za, const float* xb, const float* yb,
                      const float* zb, float x[], float y[], float z[], const int32_t* n,
                      const float* tx, const float* ty, const float* tz, const float* ax,
                      const float* ay, const float* az, int32_t* status) {
  *status = code_of(place_locally(load(x0, y0, z0), load(xa, ya, za), load(xb, yb, zb),
                                  points(x, y, z, *n), {load(tx, ty, tz), load(ax, ay, az)}));
}

void KEZ_CALL kez3tra(float x[], float y[], float z[], const int32_t* n, const float* ox,
                      const float* oy, const float* oz) {
  translate(points(x, y, z, *n), load(ox, oy, oz));
}

void KEZ_CALL kezorv(float X[], float Y[], float Z[], int32_t order[]) {
  const SpacePoints given = {X, Y, Z, 4};
  const Corners corners = {given[0], given[1], given[2], given[3]};
  const auto positions = outline_order(corners);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    given.put(i, corners[static_cast<std::size_t>(positions[i]) - 1]);
    order[i] = positions[i];
  }
}

}  // extern "C"
