/* Setting out guide lines on a circular outline: what the parts of the program share.
 *
 * Lengths are in mm. On the site a point has site coordinates; everything is computed from the
 * outline's centre, because far from the origin the circle's F = xc^2 + yc^2 - r^2 would be a small
 * difference of large squares. */
#ifndef SET_OUT_H
#define SET_OUT_H

#include <stdbool.h>
#include <stdint.h>
#include <stdio.h>

#include "plane.h"
#include "reading.h"

enum { MAX_GUIDES = 99 };

typedef struct {
  char name[MAX_NAME + 1];
  Point centre; /* on the site */
  float radius;
} Outline;

typedef struct {
  char name[MAX_NAME + 1];
  Point start, end; /* from the centre */
} Guide;

typedef struct {
  Outline outline;
  Guide guides[MAX_GUIDES];
  int32_t guide_count;
} Plan;

typedef struct {
  Point at;         /* from the centre */
  float bearing;    /* of the point from the centre: degrees anticlockwise from x, 0 to 360 */
  float from_start; /* along the guide line, negative before its start */
  int32_t place;    /* against the guide line, as kezpsl numbers it */
} SetPoint;

typedef enum { MISSES, TOUCHES, CUTS } Relation; /* also the number of points */

typedef struct {
  Relation relation;
  float offset;       /* distance of the centre from the line, positive when it is to the right */
  float gap;          /* between line and outline, of a line that misses */
  float chord;        /* of a line that cuts */
  float angle;        /* of the chord at the centre: degrees, 0 to 180 */
  SetPoint points[2]; /* in the direction of the guide line */
} Meeting;

/* Geometry, all of it KezLib's. */
Line line_at_angle(float degrees);
int32_t crossings(Line line, float radius, Point at[2]);
float bearing_of(Point p);
Meeting meet(const Guide* guide, float radius);

/* Every fault of the file is reported on stderr; false when there was one. */
bool read_plan(const char* path, Plan* plan);

void draw(FILE* svg, const Plan* plan, const Meeting meetings[]);

#endif
