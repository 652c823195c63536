/* The values of a section, as the tables and the pictures show them. */
#include "girder.h"

int decimals(double value, int digits) {
  int count = digits - 1;
  for (double size = value < 0 ? -value : value; size >= 10 && count > 0; size /= 10) count--;
  return count;
}

static void add(Values* v, Value value) {
  v->rows[v->count++] = value;
}

bool is_reduced(const Result* r) {
  return r->effective.area != r->gross.area;
}

void list_values(const Result* r, Values* v) {
  const Properties *g = &r->gross, *e = &r->effective;
  const Handbook k = handbook(r->given);
  const Point top = {g->centroid.x, r->top}, bottom = {g->centroid.x, r->bottom};
  const double left = (double)r->left, low = (double)r->bottom, degree = 0.017453293;
  v->count = 0;
  add(v, (Value){"Area", "A", "cm2", 100, g->area, e->area, k.area});
  add(v, (Value){"Centroid from the left", "xs", "mm", 1, g->centroid.x - r->left,
                 e->centroid.x - r->left, k.x - left});
  add(v, (Value){"Centroid from the bottom", "ys", "mm", 1, g->centroid.y - r->bottom,
                 e->centroid.y - r->bottom, k.y - low});
  add(v, (Value){"Second moment", "Ix", "cm4", 1e4, g->Ix, e->Ix, k.Ix});
  add(v, (Value){"Second moment", "Iy", "cm4", 1e4, g->Iy, e->Iy, k.Iy});
  if (g->Ixy != 0) add(v, (Value){"Product moment", "Ixy", "cm4", 1e4, g->Ixy, e->Ixy, k.Ixy});
  add(v, (Value){"Principal moment", "Iu", "cm4", 1e4, g->Iu, e->Iu, 0});
  add(v, (Value){"Principal moment", "Iv", "cm4", 1e4, g->Iv, e->Iv, 0});
  add(v, (Value){"Angle from x to u", "", "deg", degree, g->theta, e->theta, 0});
  add(v, (Value){"Stress at the top", "", "N/mm2", 1, stress_at(r, top), 0, 0});
  add(v, (Value){"Stress at the bottom", "", "N/mm2", 1, stress_at(r, bottom), 0, 0});
  if (r->given->shape != CHANNEL) return;
  add(v, (Value){"To the shear centre", "x0", "mm", 1, r->shear_centre, 0, k.shear_centre});
  add(v, (Value){"Warping constant", "Iw", "cm6", 1e6, r->Iw, 0, k.Iw});
}
