#include <kezlib.h>

#include "girder.h"

static const float zero = 0;

#define RECORD(o)                                                                                \
  &zero, &(o)->count, (o)->vertices, (o)->x, (o)->y, (o)->kind, (o)->sign, (o)->v[0], (o)->v[1], \
      (o)->v[2], (o)->v[3], (o)->v[4], (o)->v[5], (o)->v[6]

Outline build(const Section* s) {
  const float* d = s->dims;
  Outline o;
  switch (s->shape) {
    case GIRDER:
      kezsec_ia(&d[0], &d[1], &d[2], &d[3], &d[4], &d[5], RECORD(&o));
      break;
    case ROLLED:
      kezsec_i(&d[0], &d[1], &d[1], &d[2], &d[2], &d[3], &d[4], &zero, &zero, RECORD(&o));
      break;
    case TEE:
      kezsec_t(&d[0], &d[1], &d[2], &d[3], RECORD(&o));
      break;
    case BOX:
      kezsec_box(&d[0], &d[1], &d[2], &d[3], &d[4], &d[5], &d[6], RECORD(&o));
      break;
    case RHS:
      kezsec_rhs(&d[0], &d[1], &d[2], RECORD(&o));
      break;
    case ANGLES:
      kezsec_l2(&d[0], &d[1], &d[2], &d[3], &d[4], RECORD(&o));
      break;
    default:
      kezsec_c(&d[0], &d[1], &d[2], &d[3], &zero, &zero, &zero, &zero, &d[4], &d[5], &d[6], &zero,
               &zero, &zero, RECORD(&o));
  }
  return o;
}

Point vertex(const Outline* o, int number) {
  return (Point){o->x[number - 1], o->y[number - 1]};
}

Contour contour(const Outline* o, int32_t number) {
  const int32_t unused = 0;
  Contour c = {
      .n = o->vertices[number - 1], .kind = o->kind[number - 1], .sign = o->sign[number - 1]};
  kezadr(&unused, o->vertices, &number, o->x, c.x);
  kezadr(&unused, o->vertices, &number, o->y, c.y);
  return c;
}

static Point middle(Point p, Point q) {
  Point m;
  float z;
  kezmed(&p.x, &p.y, &zero, &q.x, &q.y, &zero, &m.x, &m.y, &z);
  return m;
}

/* KezLib has no second moments of a circular segment (kind 4). A polygon stands in for it, with
 * CHORDS chords from halving the arc again and again: in a quarter circle the chords lack 0.003 %
 * of the sector. */
static Contour as_polygon(const Contour* c) {
  enum { SEGMENT = 4, POLYGON = 2 };
  if (c->kind != SEGMENT) return *c;
  const Point centre = {c->x[0], c->y[0]};
  const float r = distance(centre, (Point){c->x[1], c->y[1]});
  Contour p = {.n = MAX_POINTS, .kind = POLYGON, .sign = c->sign};
  for (int end = 0; end < 2; end++) {
    p.x[end * CHORDS] = c->x[end + 1];
    p.y[end * CHORDS] = c->y[end + 1];
  }
  for (int step = CHORDS; step > 1; step /= 2)
    for (int i = 0; i < CHORDS; i += step) {
      const Point m = middle((Point){p.x[i], p.y[i]}, (Point){p.x[i + step], p.y[i + step]});
      const Point on_arc = along(centre, m, r);
      p.x[i + step / 2] = on_arc.x;
      p.y[i + step / 2] = on_arc.y;
    }
  float area;
  kezapl(p.x, p.y, &p.n, &area);
  if (area < 0) p.sign = -p.sign;
  return p;
}

static void add_moments(Properties* p, const Contour* c) {
  Contour polygon = as_polygon(c);
  float Ix, Iy, Ixy;
  keztra(polygon.x, polygon.y, &polygon.n, &p->centroid.x, &p->centroid.y);
  kezipl(polygon.x, polygon.y, &polygon.n, &Ix, &Iy, &Ixy);
  p->Ix += polygon.sign * Ix;
  p->Iy += polygon.sign * Iy;
  p->Ixy += polygon.sign * Ixy;
}

/* The axes of a symmetric section are principal, but rounding leaves it a product moment of some
 * 1e-8 of Ix + Iy, and where Ix = Iy even that would turn the axes by 45 degrees. */
static void add_principal_axes(Properties* p) {
  if (magnitude(p->Ixy) < 1e-6f * (p->Ix + p->Iy)) p->Ixy = 0;
  kezinp(&p->Ix, &p->Iy, &p->Ixy, &p->Iu, &p->Iv, &p->theta);
}

Properties properties(const Contour contours[], int count) {
  Properties p = {.area = 0};
  float Sx = 0, Sy = 0;
  for (int i = 0; i < count; i++) {
    Contour c = contours[i];
    float area, sx, sy;
    kezair(c.x, c.y, &c.n, &c.kind, &zero, &c.sign, &area);
    kezstm(c.x, c.y, &c.n, &c.kind, &zero, &c.sign, &sx, &sy);
    p.area += area;
    Sx += sx;
    Sy += sy;
  }
  p.centroid = (Point){Sy / p.area, Sx / p.area};
  for (int i = 0; i < count; i++) add_moments(&p, &contours[i]);
  add_principal_axes(&p);
  return p;
}

static void find_bounds(Result* r) {
  float x[MAX_VERTICES], y[MAX_VERTICES];
  int32_t n = 0;
  for (int32_t i = 0; i < r->outline.count; i++) n += r->outline.vertices[i];
  for (int32_t i = 0; i < n; i++) {
    x[i] = r->outline.x[i];
    y[i] = r->outline.y[i];
  }
  kezord(x, &n);
  kezord(y, &n);
  r->left = x[0];
  r->right = x[n - 1];
  r->bottom = y[0];
  r->top = y[n - 1];
}

Point turn(Point p, float angle) {
  const int32_t anticlockwise = 0, n = 1;
  kezrot(&anticlockwise, &p.x, &p.y, &n, &angle);
  return p;
}

/* N / A and the moment's components about u and v. */
float stress_at(const Result* r, Point p) {
  const Properties* g = &r->gross;
  const Point at = turn(relative_to(g->centroid, p), -g->theta);
  const Point moment = turn((Point){r->given->M, 0}, -g->theta);
  return r->given->N / g->area + moment.x / g->Iu * at.y - moment.y / g->Iv * at.x;
}

static void find_effective(Result* r, Contour contours[]) {
  int n = r->outline.count;
  for (int i = 0; i < r->plate_count; i++)
    if (r->plates[i].lost > 0) contours[n++] = lost_part(&r->plates[i]);
  r->effective = properties(contours, n);
}

Result analyse(const Section* section) {
  Result r = {.given = section, .outline = build(section)};
  Contour contours[MAX_CONTOURS + MAX_PLATES];
  for (int32_t i = 0; i < r.outline.count; i++) contours[i] = contour(&r.outline, i + 1);
  r.gross = properties(contours, r.outline.count);
  find_bounds(&r);
  find_plates(&r);
  find_effective(&r, contours);
  if (section->shape == CHANNEL) {
    const float *b = &section->dims[0], *h = &section->dims[1], *c = &section->dims[2];
    kezshc_c(b, h, c, &section->dims[3], &r.shear_centre);
    kezwar_c(b, h, c, &section->dims[3], &r.Iw);
  }
  return r;
}
