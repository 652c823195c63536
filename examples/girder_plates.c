#include <kezlib.h>
#include <math.h>

#include "girder.h"

static const Panel girder_panels[] = {{"web", INTERNAL, 10, 9, 3, 4, -1, true},
                                      {"top flange, left", OUTSTAND, 3, 2, 1, 12, -1, false},
                                      {"top flange, right", OUTSTAND, 10, 11, 1, 12, -1, false},
                                      {"bottom flange, left", OUTSTAND, 4, 5, 6, 7, -1, false},
                                      {"bottom flange, right", OUTSTAND, 9, 8, 6, 7, -1, false},
                                      {0}};
static const Panel rolled_panels[] = {{"web", INTERNAL, 23, 21, 15, 17, -1, true},
                                      {"top flange, left", OUTSTAND, 14, 2, 1, 12, -1, false},
                                      {"top flange, right", OUTSTAND, 24, 11, 1, 12, -1, false},
                                      {"bottom flange, left", OUTSTAND, 18, 5, 6, 7, -1, false},
                                      {"bottom flange, right", OUTSTAND, 20, 8, 6, 7, -1, false},
                                      {0}};
static const Panel tee_panels[] = {{"flange, left", OUTSTAND, 3, 2, 1, 8, -1, false},
                                   {"flange, right", OUTSTAND, 6, 7, 1, 8, -1, false},
                                   {"web", OUTSTAND, 6, 5, 3, 4, -1, false},
                                   {0}};
static const Panel box_panels[] = {{"top plate", INTERNAL, 13, 16, 1, 12, -1, true},
                                   {"left web", INTERNAL, 13, 14, 3, 4, -1, true},
                                   {"right web", INTERNAL, 16, 15, 10, 9, -1, false},
                                   {"bottom plate", INTERNAL, 14, 15, 6, 7, -1, false},
                                   {"top plate, left", OUTSTAND, 3, 2, 1, 12, -1, false},
                                   {"top plate, right", OUTSTAND, 10, 11, 1, 12, -1, false},
                                   {"bottom plate, left", OUTSTAND, 4, 5, 6, 7, -1, false},
                                   {"bottom plate, right", OUTSTAND, 9, 8, 6, 7, -1, false},
                                   {0}};
static const Panel rhs_panels[] = {{"top", INTERNAL, 5, 8, 1, 4, -1, true},
                                   {"left side", INTERNAL, 5, 6, 1, 2, -1, true},
                                   {"right side", INTERNAL, 8, 7, 4, 3, -1, false},
                                   {"bottom", INTERNAL, 6, 7, 2, 3, -1, false},
                                   {0}};
/* Of an angle the whole leg counts, from the heel. */
static const Panel angle_panels[] = {{"left angle, top leg", OUTSTAND, 6, 1, 2, 3, 1, false},
                                     {"left angle, leg", OUTSTAND, 6, 5, 3, 4, 1, false},
                                     {"right angle, top leg", OUTSTAND, 7, 12, 10, 11, 1, false},
                                     {"right angle, leg", OUTSTAND, 7, 8, 10, 9, 1, false},
                                     {0}};
/* The webs come first: they are what may have slots. */
static const Panel plain_panels[] = {{"web", INTERNAL, 6, 5, 1, 2, -1, true},
                                     {"top flange", OUTSTAND, 6, 7, 1, 8, -1, false},
                                     {"bottom flange", OUTSTAND, 5, 4, 2, 3, -1, false},
                                     {0}};
static const Panel lipped_panels[] = {{"web", INTERNAL, 18, 13, 1, 6, -1, true},
                                      {"top flange", INTERNAL, 18, 19, 1, 24, -1, true},
                                      {"bottom flange", INTERNAL, 13, 12, 6, 7, -1, false},
                                      {"top lip", LIP, 19, 22, 24, 23, -1, false},
                                      {"bottom lip", LIP, 12, 9, 7, 8, -1, false},
                                      {0}};

static const Panel* panels_of(const Section* s) {
  static const Panel* const panels[SHAPES] = {girder_panels, rolled_panels, tee_panels,
                                              box_panels,    rhs_panels,    angle_panels,
                                              lipped_panels};
  return s->shape == CHANNEL && s->dims[2] == 0 ? plain_panels : panels[s->shape];
}

Point across_at(const Plate* p, float from_a, bool far_side) {
  const Point at = along(p->a, p->b, from_a);
  return far_side ? (Point){at.x + p->across.x, at.y + p->across.y} : at;
}

static Plate measure(const Result* r, const Panel* panel) {
  const Point c = vertex(&r->outline, panel->c), d = vertex(&r->outline, panel->d);
  Plate p = {
      .panel = panel, .a = vertex(&r->outline, panel->a), .b = vertex(&r->outline, panel->b)};
  p.across = foot(line_through(relative_to(p.a, c), relative_to(p.a, d)));
  p.width = distance(p.a, p.b);
  p.t = distance((Point){0, 0}, p.across);
  const Point half = {p.across.x / 2, p.across.y / 2};
  p.s1 = stress_at(r, (Point){p.a.x + half.x, p.a.y + half.y});
  p.s2 = stress_at(r, (Point){p.b.x + half.x, p.b.y + half.y});
  return p;
}

static void turn_round(Plate* p) {
  const Plate old = *p;
  p->a = old.b;
  p->b = old.a;
  p->turned = true;
  p->s1 = old.s2;
  p->s2 = old.s1;
}

/* In EN 1993-1-5, table 4.1, it is the compressed part that is reduced. */
static void reduce_internal(Plate* p, float e1, float e2) {
  p->be1 = p->be2 = p->compressed / 2;
  kezef2(&p->width, &p->compressed, &p->t, &e1, &e2, &p->s1, &p->s2, &p->be1, &p->be2);
}

/* EN 1993-1-5, 4.4 does not reduce an outstand up to the slenderness 0.748, in uniform compression
 * with the buckling coefficient 0.43. KezLib has no formula for what is more slender. */
static float outstand_limit(float e1, float e2) {
  return 0.748f * 28.4f * sqrtf(0.43f) * e2 / e1;
}

static Support support_of(const Result* r, const Plate* p, float flange) {
  const Support support = p->panel->support;
  const bool slotted = r->given->shape == CHANNEL && r->outline.count > 1;
  if (slotted && (p->panel == lipped_panels || p->panel == plain_panels)) return UNRULED;
  if (support == LIP && (p->width > 0.6f * flange || p->turned || p->s2 < 0)) return UNRULED;
  return support == OUTSTAND && p->width > p->limit * p->t ? UNRULED : support;
}

static void reduce(const Result* r, Plate* p) {
  const float e1 = sqrtf(r->given->fy), e2 = sqrtf(235);
  const float flange = r->given->dims[0] - 2 * r->given->dims[3]; /* beside a lip */
  p->limit = outstand_limit(e1, e2);
  p->support = support_of(r, p, flange);
  p->compressed = p->s2 < 0 ? rescaled(0, p->s1, p->s2, 0, p->width) : p->width;
  p->be1 = p->compressed;
  if (p->support == INTERNAL) reduce_internal(p, e1, e2);
  if (p->support == LIP) kezefr(&p->width, &flange, &p->t, &e1, &e2, &p->be1);
  p->lost = p->compressed - p->be1 - p->be2;
  if (p->lost < 1e-4f * p->width) p->lost = 0;
  p->rho = (p->compressed - p->lost) / p->compressed;
}

void find_plates(Result* r) {
  for (const Panel* panel = panels_of(r->given); panel->name; panel++) {
    Plate p = measure(r, panel);
    if (p.width == 0 || (p.s1 <= 0 && p.s2 <= 0)) continue;
    if (panel->support == INTERNAL ? p.s2 > p.s1 : p.s1 <= 0) turn_round(&p);
    reduce(r, &p);
    r->plates[r->plate_count++] = p;
  }
}

Contour lost_part(const Plate* p) {
  const Point at[] = {across_at(p, p->be1, false), across_at(p, p->be1, true),
                      across_at(p, p->be1 + p->lost, true), across_at(p, p->be1 + p->lost, false)};
  Contour c = {.n = 4, .kind = 2};
  float area;
  for (int i = 0; i < 4; i++) {
    c.x[i] = at[i].x;
    c.y[i] = at[i].y;
  }
  kezapl(c.x, c.y, &c.n, &area);
  c.sign = area < 0 ? 1 : -1;
  return c;
}
