/* What a handbook gives: the sum of rectangles by the parallel axis theorem, the formulas for root
 * fillets and for channels. The one part of the program that does not ask KezLib. */
#include "girder.h"

enum { MAX_PARTS = 8 };

typedef struct {
  double area, x, y, Ix, Iy; /* second moments about the part's own centroid */
} Part;

typedef struct {
  Part parts[MAX_PARTS];
  int count;
} Sum;

/* Of the width b and the height h about the point (x, y); a negative width takes away. */
static void add(Sum* sum, double b, double h, double x, double y) {
  const Part part = {b * h, x, y, b * h * h * h / 12, b * b * b * h / 12};
  sum->parts[sum->count++] = part;
}

static void add_girder(Sum* sum, double d, double b1, double b2, double t1, double t2, double tw) {
  add(sum, b1, t1, 0, (d - t1) / 2);
  add(sum, b2, t2, 0, (t2 - d) / 2);
  add(sum, tw, d - t1 - t2, 0, (t2 - t1) / 2);
}

/* Between a quarter circle and its tangents: (1 - pi / 4) r^2, at 0.2234 r from either. */
static void add_fillets(Sum* sum, double x, double y, double r) {
  for (int i = 0; i < 4; i++) {
    const Part part = {0.2146 * r * r, (i < 2 ? 1 : -1) * (x + 0.2234 * r),
                       (i % 2 ? 1 : -1) * (y - 0.2234 * r), 0.00755 * r * r * r * r,
                       0.00755 * r * r * r * r};
    sum->parts[sum->count++] = part;
  }
}

static void add_angles(Sum* sum, double a, double h, double s, double th, double tv) {
  for (int side = -1; side <= 1; side += 2) {
    add(sum, a, th, side * (s + a) / 2, (h - th) / 2);
    add(sum, tv, h - th, side * (s + tv) / 2, -th / 2);
  }
}

static void add_channel(Sum* sum, double b, double h, double c, double t) {
  add(sum, t, h, (t - b) / 2, 0);
  for (int side = -1; side <= 1; side += 2) {
    add(sum, b - t, t, t / 2, side * (h - t) / 2);
    if (c > 0) add(sum, t, c - t, (b - t) / 2, side * (h - c - t) / 2);
  }
}

static void add_slots(Sum* sum, double x, double t, double sw, double yw, int count) {
  for (int i = 0; i < count; i++) add(sum, -t, sw, x, i == 0 ? -yw : yw);
}

static Sum parts_of(const Section* s) {
  const float* f = s->dims;
  double d[MAX_DIMS];
  Sum sum = {.count = 0};
  for (int i = 0; i < MAX_DIMS; i++) d[i] = (double)f[i];
  switch (s->shape) {
    case GIRDER:
      add_girder(&sum, d[0], d[1], d[2], d[3], d[4], d[5]);
      break;
    case ROLLED:
      add_girder(&sum, d[0], d[1], d[1], d[2], d[2], d[3]);
      add_fillets(&sum, d[3] / 2, d[0] / 2 - d[2], d[4]);
      break;
    case TEE:
      add(&sum, d[0], d[2], 0, (d[1] - d[2]) / 2);
      add(&sum, d[3], d[1] - d[2], 0, -d[2] / 2);
      break;
    case BOX:
      add_girder(&sum, d[4], d[0], d[1], d[2], d[3], 2 * d[5] + d[6]);
      add(&sum, -d[6], d[4] - d[2] - d[3], 0, (d[3] - d[2]) / 2);
      break;
    case RHS:
      add(&sum, d[0], d[1], 0, 0);
      add(&sum, 2 * d[2] - d[0], d[1] - 2 * d[2], 0, 0);
      break;
    case ANGLES:
      add_angles(&sum, d[0], d[1], d[2], d[3], d[4]);
      break;
    default:
      add_channel(&sum, d[0], d[1], d[2], d[3]);
      add_slots(&sum, (d[3] - d[0]) / 2, d[3], d[4], d[5], (int)d[6]);
  }
  return sum;
}

/* On the centre-lines: a web, b flange, c lip. */
static void add_torsion(Handbook* k, double a, double b, double c, double t) {
  const double from_web = b * (3 * a * a * b + c * (6 * a * a - 8 * c * c)) /
                          (a * a * a + 6 * a * a * b + c * (8 * c * c - 12 * a * c + 6 * a * a));
  k->shear_centre = from_web + b * (b + 2 * c) / (a + 2 * b + 2 * c);
  k->Iw = a * a * b * b * t / 12 *
          (2 * a * a * a * b + 3 * a * a * b * b + 48 * c * c * c * c + 112 * b * c * c * c +
           8 * a * c * c * c + 48 * a * b * c * c + 12 * a * a * c * c + 12 * a * a * b * c +
           6 * a * a * a * c) /
          (6 * a * a * b + (a + 2 * c) * (a + 2 * c) * (a + 2 * c) - 24 * a * c * c);
}

Handbook handbook(const Section* s) {
  const Sum sum = parts_of(s);
  Handbook k = {0};
  for (int i = 0; i < sum.count; i++) {
    const Part* p = &sum.parts[i];
    k.area += p->area;
    k.x += p->area * p->x;
    k.y += p->area * p->y;
  }
  k.x /= k.area;
  k.y /= k.area;
  for (int i = 0; i < sum.count; i++) {
    const Part* p = &sum.parts[i];
    const double x = p->x - k.x, y = p->y - k.y;
    k.Ix += p->Ix + p->area * y * y;
    k.Iy += p->Iy + p->area * x * x;
    k.Ixy += p->area * x * y;
  }
  if (s->shape == CHANNEL) {
    const double t = (double)s->dims[3], lip = (double)s->dims[2];
    add_torsion(&k, (double)s->dims[1] - t, (double)s->dims[0] - t, lip > 0 ? lip - t / 2 : 0, t);
  }
  return k;
}
