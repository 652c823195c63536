/* Ground points that are too near a guy rope. The plan positions are in lists; the level of a point
 * comes from the host's own terrain, here a table, through a callback. */
#include <kezlib.h>
#include <stdio.h>

enum { COUNT = 6 };

static const float x[COUNT] = {1, 4, 6, 8, 10, 12}; /* m */
static const float y[COUNT] = {0, 0, 2, 1, 0, 0};
static const float level[COUNT] = {0, 0.5f, 2, 5, 5, 5};

static float KEZ_CALL level_of(const int32_t* point) {
  return level[*point - 1];
}

int main(void) {
  /* From the anchor at the origin: kezpnl wants the first point's y and z to be the same. */
  const float x1 = 0, y1 = 0, z1 = 0, x2 = 12, y2 = 0, z2 = 9;
  const float clearance = 2;
  const int32_t n = COUNT;
  int32_t status, count, found[COUNT];
  kezpnl(&x1, &y1, &z1, &x2, &y2, &z2, x, y, level_of, &n, &clearance, &status, &count, found);

  printf("%d of %d points are within %g m of the rope:\n", (int)count, (int)n, (double)clearance);
  puts("point      x      y  level  distance");
  for (int32_t k = 0; k < count; k++) {
    const int32_t i = found[k] - 1;
    float distance;
    kez3ldb(&x1, &y1, &z1, &x2, &y2, &z2, &x[i], &y[i], &level[i], &status, &distance);
    printf("%5d %6.1f %6.1f %6.1f %9.2f\n", (int)found[k], (double)x[i], (double)y[i],
           (double)level[i], (double)distance);
  }
  return 0;
}
