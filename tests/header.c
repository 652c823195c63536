/* A host in the least demanding C99 and in C++: the header compiles, a call links and works. */
#include <stdio.h>

#include "kezlib.h"

int main(void) {
  const float x1 = 1, y1 = 2, x2 = 4, y2 = 6, zero = 0;
  float d = 0;
  kezpds(&x1, &y1, &zero, &x2, &y2, &zero, &d);
  if (d != 5) {
    fprintf(stderr, "kezpds of (1, 2) and (4, 6) gave %g, not 5\n", (double)d);
    return 1;
  }
  return 0;
}
