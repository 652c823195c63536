#include "angles.h"
#include "arguments.h"
#include "lines.h"
#include "points.h"
#include "sampling.h"
#include "sorting.h"
#include "tables.h"

using namespace kez;

extern "C" {

void KEZ_CALL kezpds(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, float* d) {
  *d = distance(load(x1, y1, z1), load(x2, y2, z2));
}

void KEZ_CALL kezcnt(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, float* dx, float* dy, float* dz,
                     int32_t* same) {
  const Vec3 difference = load_vector(x1, y1, z1, x2, y2, z2);
  store(difference, dx, dy, dz);
  *same = is_null(difference);
}

void KEZ_CALL kezcnt1(const float* a, const float* b, const float* c, int32_t* zero) {
  *zero = is_exactly_zero(load(a, b, c));
}

void KEZ_CALL kez123(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* t, float* x, float* y, float* z,
                     int32_t* same) {
  const auto point = point_along(load(x1, y1, z1), load(x2, y2, z2), *t);
  store(point, x, y, z);
  *same = !point;
}

void KEZ_CALL kezmed(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, float* xm, float* ym, float* zm) {
  store(midpoint(load(x1, y1, z1), load(x2, y2, z2)), xm, ym, zm);
}

void KEZ_CALL kezpre(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x4, const float* y4, const float* z4,
                     float c[]) {
  const Vec3 product =
      cross(load_vector(x1, y1, z1, x2, y2, z2), load_vector(x3, y3, z3, x4, y4, z4));
  store(product, &c[0], &c[1], &c[2]);
}

void KEZ_CALL kezpri(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x4, const float* y4, const float* z4, float* d) {
  *d = dot(load_vector(x1, y1, z1, x2, y2, z2), load_vector(x3, y3, z3, x4, y4, z4));
}

void KEZ_CALL kezdtr2(const float* a, const float* b, const float* c, const float* d, float* det) {
  *det = determinant(*a, *b, *c, *d);
}

void KEZ_CALL kezdtr3(const float* a11, const float* a12, const float* a13, const float* a21,
                      const float* a22, const float* a23, const float* a31, const float* a32,
                      const float* a33, float* det) {
  *det = determinant(load(a11, a12, a13), load(a21, a22, a23), load(a31, a32, a33));
}

void KEZ_CALL kez3sp(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x4, const float* y4, const float* z4,
                     const float* x5, const float* y5, const float* z5, const float* x6,
                     const float* y6, const float* z6, int32_t* spans) {
  *spans = span_space(load_vector(x1, y1, z1, x2, y2, z2), load_vector(x3, y3, z3, x4, y4, z4),
                      load_vector(x5, y5, z5, x6, y6, z6));
}

void KEZ_CALL kezvin(const float*, const float* b, const float*, const float*, const float*,
                     int32_t* side) {
  *side = code_of(side_of(*b));
}

void KEZ_CALL kezgrc(const float* a, const float* b, const float* c, float* p, float* q) {
  store(guarded_quotients(*a, *b, *c), p, q);
}

void KEZ_CALL kezln3(const float* x1, const float* y1, const float* x2, const float* y2, float* a,
                     float* b, float* c) {
  store(line_through(load(x1, y1), load(x2, y2)), a, b, c);
}

void KEZ_CALL kezln4(const float* x0, const float* y0, const float* p, const float* q, const float*,
                     float* a, float* b, float* c) {
  store(line_in_direction(load(x0, y0), load(p, q)), a, b, c);
}

void KEZ_CALL kezln1(const float* x0, const float* y0, const float* theta, float* a, float* b,
                     float* c) {
  store(line_at_angle(load(x0, y0), *theta), a, b, c);
}

void KEZ_CALL kezln2(const float* a, const float* b, const float* c, const float* d, float* a2,
                     float* b2, float* c2) {
  store(parallel(load<Line>(a, b, c), *d), a2, b2, c2);
}

void KEZ_CALL kezln5(const float* x0, const float* y0, const float* x1, const float* y1,
                     const float* x2, const float* y2, float* a, float* b, float* c) {
  store(bisector(load(x0, y0), load(x1, y1), load(x2, y2)), a, b, c);
}

void KEZ_CALL kezlds(const float* x, const float* y, const float* a, const float* b, const float* c,
                     float* d) {
  *d = signed_distance(load(x, y), load<Line>(a, b, c));
}

void KEZ_CALL keztrg(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x4, const float* y4, const float* z4,
                     float* cosa, float* sina, int32_t* status) {
  const auto angle =
      angle_between(load_vector(x1, y1, z1, x2, y2, z2), load_vector(x3, y3, z3, x4, y4, z4));
  store(angle, cosa, sina);
  *status = !angle;
}

void KEZ_CALL kezphi(const float* x0, const float* y0, const float* x1, const float* y1,
                     const float* x2, const float* y2, float* phi) {
  *phi = vertex_angle(load(x0, y0), load(x1, y1), load(x2, y2));
}

void KEZ_CALL kezphi1(const float* ux, const float* uy, const float* uz, const float* wx,
                      const float* wy, const float* wz, float* phi) {
  *phi = angle(load(ux, uy, uz), load(wx, wy, wz));
}

void KEZ_CALL kezphi3(const float* x0, const float* y0, const float* z0, const float* x1,
                      const float* y1, const float* z1, const float* x2, const float* y2,
                      const float* z2, float* phi) {
  *phi = vertex_angle(load(x0, y0, z0), load(x1, y1, z1), load(x2, y2, z2));
}

void KEZ_CALL kezphip(const float* ux, const float* uy, const float* uz, const float* wx,
                      const float* wy, const float* wz, float* phi, int32_t* fail) {
  // Deliberate: success leaves the flag alone (kezphip).
  if (const auto angle = line_angle(load(ux, uy, uz), load(wx, wy, wz))) {
    *phi = *angle;
  } else {
    *fail = -1;
  }
}

void KEZ_CALL kezmov(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x3, const float* y3,
                     const float* z3, const float* x4, const float* y4, const float* z4, float* ax,
                     float* ay, float* az) {
  store(projected_angles(load_vector(x1, y1, z1, x2, y2, z2), load_vector(x3, y3, z3, x4, y4, z4)),
        ax, ay, az);
}

void KEZ_CALL kezdir(const float* ux, const float* uy, const float* uz, const float* wx,
                     const float* wy, const float* wz, int32_t* rel) {
  *rel = code_of(relate_directions(load(ux, uy, uz), load(wx, wy, wz)));
}

void KEZ_CALL kezint(const float* x1, const float* x2, const float* y1, const float* y2,
                     const float* x, float* y) {
  *y = interpolate(*x1, *x2, *y1, *y2, *x);
}

void KEZ_CALL kezpos(const int32_t* n, const float x[], const float* v, int32_t* i) {
  *i = find_interval(entries(x, *n), *v);
}

void KEZ_CALL kezpos1(const int32_t* n, const float x[], const float* v, int32_t* code,
                      int32_t* i) {
  const Place place = find_place(entries(x, *n), *v);
  *code = code_of(place.match);
  *i = place.position;
}

void KEZ_CALL kezsel1(const int32_t* n, const int32_t ia[], const int32_t* v, int32_t* count,
                      int32_t idx[]) {
  *count = select(entries(ia, *n), *v, entries(idx, *n));
}

void KEZ_CALL kezpas(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* step, float* realstep,
                     int32_t* nseg, int32_t* npts) {
  const Division division = divide(distance(load(x1, y1, z1), load(x2, y2, z2)), *step);
  *realstep = division.step;
  *nseg = division.segments;
  *npts = division.points;
}

void KEZ_CALL keznst(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* step, const int32_t* n,
                     float xs[], float ys[], float zs[]) {
  static Vec3 interior{};
  sample_segment(load_segment(x1, y1, z1, x2, y2, z2), *step, points(xs, ys, zs, *n), interior);
}

void KEZ_CALL kezinr(const int32_t* n, const float y[], const float* a, const float* b, float* s) {
  *s = integrate(entries(y, *n), *a, *b);
}

void KEZ_CALL kezpar(const int32_t* i1, const int32_t* i2, const int32_t* nmax, int32_t* count1,
                     int32_t list1[], int32_t* count2, int32_t list2[]) {
  const AlternateRuns runs = split_alternately(*i1, *i2, *nmax);
  *count1 = runs.odd.count;
  write(runs.odd, entries(list1, runs.odd.count));
  *count2 = runs.even.count;
  write(runs.even, entries(list2, runs.even.count));
}

void KEZ_CALL kezpsl(const float* x1, const float* y1, const float* z1, const float* x2,
                     const float* y2, const float* z2, const float* x, const float* y,
                     const float* z, int32_t* pos) {
  *pos = code_of(position_on_segment(load_segment(x1, y1, z1, x2, y2, z2), load(x, y, z)));
}

void KEZ_CALL kezdirl(const float* x1, const float* y1, const float* z1, const float* x2,
                      const float* y2, const float* z2, const float* x3, const float* y3,
                      const float* z3, const float* x4, const float* y4, const float* z4,
                      int32_t* rel) {
  *rel = code_of(
      relate_lines(load_segment(x1, y1, z1, x2, y2, z2), load_segment(x3, y3, z3, x4, y4, z4)));
}

void KEZ_CALL kezplg(const float* x0, const float* y0, const float* z0, const float* p1,
                     const float* q1, const float* r1, const float* p2, const float* q2,
                     const float* r2, float* A, float* B, float* C, float* D) {
  store(plane_spanned(load(x0, y0, z0), load(p1, q1, r1), load(p2, q2, r2)), A, B, C, D);
}

void KEZ_CALL kezdirp(const float* A1, const float* B1, const float* C1, const float* D1,
                      const float* A2, const float* B2, const float* C2, const float* D2,
                      int32_t* rel) {
  *rel = code_of(relate_planes(load<Plane>(A1, B1, C1, D1), load<Plane>(A2, B2, C2, D2)));
}

void KEZ_CALL kezord(float x[], const int32_t* n) {
  sort_ascending(entries(x, *n));
}

void KEZ_CALL kezord1(int32_t ia[], const int32_t* n) {
  sort_ascending(entries(ia, *n));
}

void KEZ_CALL kezinv(const int32_t* n, void* x) {
  reverse(entries(static_cast<RawWord*>(x), *n));
}

}  // extern "C"
