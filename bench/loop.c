/* Direct calls of a routine for many items, as a host in C makes them. */
#include <string.h>

#include "kezlib.h"

enum { MOST = 64 };

/* The routine moves the outline, so each call gets a copy: of the same, or of its own. */
void loop_kezppp(int32_t n, const float* X, const float* Y, const float* points, int32_t count,
                 int32_t* status) {
  float x[MOST], y[MOST];
  for (int32_t i = 0; i < count; ++i) {
    memcpy(x, X, sizeof(float) * (size_t)n);
    memcpy(y, Y, sizeof(float) * (size_t)n);
    kezppp(&n, x, y, points + 2 * i, points + 2 * i + 1, status + i);
  }
}

void loop_kezppp_each(int32_t n, const float* outlines, const float* points, int32_t count,
                      int32_t* status) {
  float x[MOST], y[MOST];
  for (int32_t i = 0; i < count; ++i) {
    for (int32_t k = 0; k < n; ++k) {
      x[k] = *outlines++;
      y[k] = *outlines++;
    }
    kezppp(&n, x, y, points + 2 * i, points + 2 * i + 1, status + i);
  }
}
