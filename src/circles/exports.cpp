#include "../frame/arguments.h"
#include "circle.h"
#include "transform.h"

using namespace kez;

namespace {

void store(const Crossings& crossings, int32_t* n, float* x1, float* y1, float* x2, float* y2) {
  if (crossings.count >= 1) store(crossings.first, x1, y1);
  if (crossings.count == 2) store(crossings.second, x2, y2);
  *n = crossings.count;
}

}  // namespace

extern "C" {

void KEZ_CALL kezcer(const float* xc, const float* yc, const float* r, float* D, float* E,
                     float* F) {
  const Circle circle = circle_about(load(xc, yc), *r);
  *D = circle.d;
  *E = circle.e;
  *F = circle.f;
}

void KEZ_CALL kezlci(const float* a, const float* b, const float* c, const float* D, const float* E,
                     const float* F, int32_t* n, float* x1, float* y1, float* x2, float* y2) {
  store(intersect(load_line(a, b, c), load_circle(D, E, F)), n, x1, y1, x2, y2);
}

void KEZ_CALL kezc12(const float* D1, const float* E1, const float* F1, const float* D2,
                     const float* E2, const float* F2, int32_t* n, float* x1, float* y1, float* x2,
                     float* y2) {
  store(intersect(load_circle(D1, E1, F1), load_circle(D2, E2, F2)), n, x1, y1, x2, y2);
}

void KEZ_CALL keztra(float X[], float Y[], const int32_t* n, const float* tx, const float* ty) {
  const Vec2 origin = load(tx, ty);
  translate(table(X, *n), table(Y, *n), origin);
}

void KEZ_CALL kezrot(const int32_t* mode, float X[], float Y[], const int32_t* n,
                     const float* angle) {
  const Turn turn = *mode == number(Turn::clockwise) ? Turn::clockwise : Turn::counter_clockwise;
  rotate(turn, table(X, *n), table(Y, *n), *angle);
}

}  // extern "C"
