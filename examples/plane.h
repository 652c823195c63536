/* Points and lines in the plane for the example hosts, all of it KezLib's. */
#ifndef PLANE_H
#define PLANE_H

typedef struct {
  float x, y;
} Point;

typedef struct {
  float a, b, c; /* a x + b y + c = 0 */
} Line;

float magnitude(float value);
Point relative_to(Point origin, Point p);
float distance(Point p, Point q);
Point along(Point from, Point to, float length);
Line line_through(Point p, Point q);
Point foot(Line line);
float rescaled(float value, float from1, float from2, float to1, float to2);

#endif
