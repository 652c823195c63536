#include <kezlib.h>
#include <stdio.h>

int main(void) {
  const float a = 0, b = 1, c = -0.5f; /* the line y = 0.5 */
  const float d = 0, e = 0, f = -1;    /* the unit circle x^2 + y^2 - 1 = 0 */
  float x1, y1, x2, y2;
  int32_t n;
  kezlci(&a, &b, &c, &d, &e, &f, &n, &x1, &y1, &x2, &y2);
  if (n == 2) printf("(%g, %g) and (%g, %g)\n", x1, y1, x2, y2);
  return 0;
}
