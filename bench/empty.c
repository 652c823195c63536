#include "empty.h"

void empty7(const float* a, const float* b, const float* c, const float* d, const float* e,
            const float* f, float* g) {
  (void)a, (void)b, (void)c, (void)d, (void)e, (void)f, (void)g;
}

void empty9(const float* a, const float* b, const float* c, const float* d, const float* e,
            const float* f, const float* g, float* h, float* i) {
  (void)a, (void)b, (void)c, (void)d, (void)e, (void)f, (void)g, (void)h, (void)i;
}
