#include "../frame/arguments.h"
#include "lists.h"
#include "near_values.h"
#include "ordering.h"
#include "polygons.h"
#include "principal_axes.h"
#include "slabs.h"

using namespace kez;

namespace {

std::span<const RawWord> words(const void* list, int32_t n) {
  return entries(static_cast<const RawWord*>(list), n);
}

int32_t join_lists(std::span<const RawWord> a, std::span<const RawWord> b, void* out) {
  return join(a, b, {static_cast<RawWord*>(out), a.size() + b.size()});
}

// A part of a polygon with n vertices may have two for each of them.
PolygonPart part(float X[], float Y[], int32_t n) {
  return PolygonPart({X, Y, 2 * size_of(n)});
}

}  // namespace

extern "C" {

void KEZ_CALL kezinp(const float* p, const float* q, const float* r, float* u, float* v,
                     float* theta) {
  store(principal_axes(*p, *q, *r), u, v, theta);
}

void KEZ_CALL kezmer1(const int32_t* n1, const void* a, const int32_t* n2, const void* b,
                      int32_t* nout, void* out) {
  *nout = join_lists(words(a, *n1), words(b, *n2), out);
}

void KEZ_CALL kezmer11(const int32_t* n1, const void* a, const int32_t* n2, const void* b,
                       int32_t* nout, void* out) {
  *nout = join_lists(words(a, *n1), words(b, *n2), out);
}

void KEZ_CALL kezmer2(int32_t* n, int32_t a[]) {
  *n = keep_distinct(entries(a, *n));
}

void KEZ_CALL kezmer3(int32_t* n, int32_t a[]) {
  *n = keep_repeated(entries(a, *n));
}

void KEZ_CALL kezmer12(int32_t* n, float a[], const float* tol) {
  *n = keep_distinct(entries(a, *n), *tol);
}

void KEZ_CALL kezmer4(const int32_t* n1, const int32_t a[], const int32_t* n2, const int32_t b[],
                      int32_t* ncom, int32_t com[], int32_t* ndif, int32_t dif[]) {
  const Comparison result = compare(entries(a, *n1), entries(b, *n2), com, dif);
  *ncom = result.common;
  *ndif = result.differing;
}

void KEZ_CALL kezmer13(const int32_t* n1, const float a[], const int32_t* n2, const float b[],
                       int32_t* nm, int32_t ia[], int32_t ib[], const float* tol) {
  *nm = pair_near(entries(a, *n1), entries(b, *n2), *tol, {*n1, *n2}, ia, ib);
}

void KEZ_CALL kezmer14(const int32_t* n, float a[], int32_t* nd, int32_t idx[], float* big,
                       const float* tol) {
  const NearDuplicates marked = mark_near_duplicates(entries(a, *n), *tol, entries(idx, *n));
  *nd = marked.count;
  *big = marked.marker;
}

void KEZ_CALL kezmer15(const int32_t* n, float a[], const float* value, int32_t* nout,
                       const float* tol) {
  *nout = remove_near(entries(a, *n), *value, *tol);
}

void KEZ_CALL kezmer19(const int32_t* n, const float a[], float out[], const float* value,
                       int32_t* nout, int32_t idx[], const float* tol) {
  *nout = map_distinct(entries(a, *n), *value, *tol, entries(out, *n), entries(idx, *n));
}

void KEZ_CALL kezmer16(const int32_t* n, void* a, const int32_t* pos, const void* value) {
  insert({static_cast<RawWord*>(a), size_with_place(*n)}, *pos,
         *static_cast<const RawWord*>(value));
}

void KEZ_CALL kezordi(const float v[], const int32_t* n, int32_t iord[]) {
  order_ascending(entries(v, *n), entries(iord, *n));
}

void KEZ_CALL kezmer17(const int32_t* n, void* a) {
  reverse(entries(static_cast<RawWord*>(a), *n));
}

void KEZ_CALL kezmer18(const int32_t* n, void* a) {
  reverse(entries(static_cast<RawWord*>(a), *n));
}

void KEZ_CALL kezpor(const int32_t* n, const float a[], const float b[], const float c[],
                     int32_t iord[], int32_t* status) {
  *status = code_of(order_parallel_lines(points(a, b, c, *n), entries(iord, *n)));
}

void KEZ_CALL kezppp(const int32_t* n, float X[], float Y[], const float* px, const float* py,
                     int32_t* status) {
  *status = code_of(relate_point_polygon(outline(X, Y, *n), load(px, py)));
}

void KEZ_CALL kezpin(const int32_t* n, float X[], float Y[], const float* a, const float* b,
                     const float* c, int32_t* n1, float X1[], float Y1[], int32_t* n2, float X2[],
                     float Y2[], float* length) {
  PolygonPart upper = part(X1, Y1, *n), lower = part(X2, Y2, *n);
  const float inside = cut_polygon(outline(X, Y, *n), load<Line>(a, b, c), upper, lower);
  *n1 = upper.count();
  *n2 = lower.count();
  *length = inside;
}

void KEZ_CALL kezptp1(const float* A1, const float* B1, const float* C1, const float* D1, float* A2,
                      float* B2, float* C2, float* D2, const int32_t* n, const float X[],
                      const float Y[], const float Z[], int32_t code[]) {
  const Slab slab = {load<Plane>(A1, B1, C1, D1), load<Plane>(A2, B2, C2, D2)};
  store(relate_points_slab(slab, points(X, Y, Z, *n), entries(code, *n)), A2, B2, C2, D2);
}

void KEZ_CALL kezptp2(const float* A1, const float* B1, const float* C1, const float* D1, float* A2,
                      float* B2, float* C2, float* D2, const float* A3, const float* B3,
                      const float* C3, const float* D3, float* A4, float* B4, float* C4, float* D4,
                      const float* A5, const float* B5, const float* C5, const float* D5, float* A6,
                      float* B6, float* C6, float* D6, const int32_t* n, const float X[],
                      const float Y[], const float Z[], const int32_t* mode, int32_t code1[],
                      int32_t code2[], int32_t code3[], int32_t* nout, int32_t out[]) {
  const Slab slab1 = {load<Plane>(A1, B1, C1, D1), load<Plane>(A2, B2, C2, D2)};
  const Slab slab2 = {load<Plane>(A3, B3, C3, D3), load<Plane>(A4, B4, C4, D4)};
  const Slab slab3 = {load<Plane>(A5, B5, C5, D5), load<Plane>(A6, B6, C6, D6)};
  const ConstSpacePoints given = points(X, Y, Z, *n);
  const BoxPositions box = {entries(code1, *n), entries(code2, *n), entries(code3, *n)};
  const auto selection = from_code<BoxSelection>(*mode);

  store(relate_points_slab(slab1, given, entries(code1, *n)), A2, B2, C2, D2);
  store(relate_points_slab(slab2, given, entries(code2, *n)), A4, B4, C4, D4);
  store(relate_points_slab(slab3, given, entries(code3, *n)), A6, B6, C6, D6);
  if (const auto count = select_points(box, selection, entries(out, *n))) *nout = *count;
}

}  // extern "C"
