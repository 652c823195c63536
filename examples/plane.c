#include "plane.h"

#include <kezlib.h>

static const float zero = 0;

float magnitude(float value) {
  return value < 0 ? -value : value;
}

Point relative_to(Point origin, Point p) {
  Point difference;
  float dz;
  int32_t same;
  kezcnt(&origin.x, &origin.y, &zero, &p.x, &p.y, &zero, &difference.x, &difference.y, &dz, &same);
  return difference;
}

float distance(Point p, Point q) {
  float d;
  kezpds(&p.x, &p.y, &zero, &q.x, &q.y, &zero, &d);
  return d;
}

/* The point at a length from one point towards another; the first itself where there is no
 * direction. */
Point along(Point from, Point to, float length) {
  const float t = length / distance(from, to);
  Point p = from;
  float z;
  int32_t same;
  kez123(&from.x, &from.y, &zero, &to.x, &to.y, &zero, &t, &p.x, &p.y, &z, &same);
  return p;
}

Line line_through(Point p, Point q) {
  Line line;
  kezln3(&p.x, &p.y, &q.x, &q.y, &line.a, &line.b, &line.c);
  return line;
}

/* The point of a line that is nearest to the origin. */
Point foot(Line line) {
  const Line perpendicular = line_through((Point){0, 0}, (Point){line.a, line.b});
  Point p = {0, 0};
  int32_t status;
  kezlni(&line.a, &line.b, &line.c, &perpendicular.a, &perpendicular.b, &perpendicular.c, &status,
         &p.x, &p.y);
  return p;
}

/* The value that lies between to1 and to2 as this one lies between from1 and from2. */
float rescaled(float value, float from1, float from2, float to1, float to2) {
  float y;
  kezint(&from1, &from2, &to1, &to2, &value, &y);
  return y;
}
