#include <kezlib.h>

#include "set_out.h"

static const float zero = 0, one = 1;
static const float degrees_per_radian = 57.29578f;

/* Through the centre. */
Line line_at_angle(float degrees) {
  const float theta = degrees / degrees_per_radian;
  Line line;
  kezln1(&zero, &zero, &theta, &line.a, &line.b, &line.c);
  return line;
}

/* kezlci finds y first and then x = -(b y + c) / a, which magnifies rounding by b / a. A line that
 * is closer to the x axis is therefore handed over with the axes exchanged. */
int32_t crossings(Line line, float radius, Point at[2]) {
  float D, E, F;
  int32_t n;
  kezcer(&zero, &zero, &radius, &D, &E, &F);
  if (magnitude(line.a) >= magnitude(line.b))
    kezlci(&line.a, &line.b, &line.c, &D, &E, &F, &n, &at[0].x, &at[0].y, &at[1].x, &at[1].y);
  else
    kezlci(&line.b, &line.a, &line.c, &E, &D, &F, &n, &at[0].y, &at[0].x, &at[1].y, &at[1].x);
  return n;
}

/* The arc cosine in kezphi is poorly conditioned near 0 and 180 degrees, so the angle is measured
 * from the axis that the point is farther away from. */
float bearing_of(Point p) {
  float phi;
  if (magnitude(p.y) >= magnitude(p.x)) {
    kezphi(&zero, &zero, &one, &zero, &p.x, &p.y, &phi);
    phi *= degrees_per_radian;
    return p.y < 0 ? 360 - phi : phi;
  }
  kezphi(&zero, &zero, &zero, &one, &p.x, &p.y, &phi);
  phi *= degrees_per_radian;
  if (p.x < 0) return 90 + phi;
  return phi > 90 ? 450 - phi : 90 - phi;
}

/* Opposite points may bring kezphi a cosine beyond -1; the pair of cosine and sine is safe. */
static float angle_at_centre(Point p, Point q) {
  Point direction = {1, 0};
  int32_t status;
  keztrg(&zero, &zero, &zero, &p.x, &p.y, &zero, &zero, &zero, &zero, &q.x, &q.y, &zero,
         &direction.x, &direction.y, &status);
  return bearing_of(direction);
}

static SetPoint set_point(const Guide* guide, Point at) {
  enum { BEFORE_START = 4 };
  SetPoint p = {.at = at, .bearing = bearing_of(at)};
  kezpsl(&guide->start.x, &guide->start.y, &zero, &guide->end.x, &guide->end.y, &zero, &at.x, &at.y,
         &zero, &p.place);
  p.from_start = distance(guide->start, at);
  if (p.place == BEFORE_START) p.from_start = -p.from_start;
  return p;
}

/* Whether the way from p to q runs against the guide line. */
static bool against(const Guide* guide, Point p, Point q) {
  float dot;
  kezpri(&guide->start.x, &guide->start.y, &zero, &guide->end.x, &guide->end.y, &zero, &p.x, &p.y,
         &zero, &q.x, &q.y, &zero, &dot);
  return dot < 0;
}

Meeting meet(const Guide* guide, float radius) {
  const Line line = line_through(guide->start, guide->end);
  Point at[2];
  const int32_t n = crossings(line, radius, at);
  Meeting m = {.relation = (Relation)n};
  kezlds(&zero, &zero, &line.a, &line.b, &line.c, &m.offset);
  if (n == MISSES) m.gap = magnitude(m.offset) - radius;
  if (n == CUTS) {
    m.chord = distance(at[0], at[1]);
    m.angle = angle_at_centre(at[0], at[1]);
    if (against(guide, at[0], at[1])) {
      const Point first = at[1];
      at[1] = at[0];
      at[0] = first;
    }
  }
  for (int32_t i = 0; i < n; i++) m.points[i] = set_point(guide, at[i]);
  return m;
}
