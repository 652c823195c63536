/* Does what no routine may do, for the test of kezcall. */
#include "kezlib.h"

void kezpds(const float* x1, const float* y1, const float* z1, const float* x2, const float* y2,
            const float* z2, float* d) {
  (void)x1, (void)y1, (void)z1, (void)x2, (void)y2, (void)z2;
  d[0] = 5;
  d[1] = 5;
}

void kezmed(const float* x1, const float* y1, const float* z1, const float* x2, const float* y2,
            const float* z2, float* xm, float* ym, float* zm) {
  (void)x1, (void)y1, (void)z1, (void)x2, (void)y2, (void)z2, (void)xm, (void)zm;
  ym[-1] = 5;
}

void kezcnt1(const float* a, const float* b, const float* c, int32_t* zero) {
  (void)a, (void)c;
  *(float*)b = 5;
  *zero = 0;
}

void kezord(float x[], const int32_t* n) {
  x[*n] = 5;
}

void kezpos(const int32_t* n, const float x[], const float* v, int32_t* i) {
  volatile float behind = x[*n];
  (void)behind, (void)v;
  *i = (uintptr_t)x % sizeof(float) != 0;
}
