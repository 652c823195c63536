#include <string.h>

#include "set_out.h"

/* Single precision sets limits. The discriminant of a crossing grows with the sixth power of the
 * coordinates, and beyond 500 m it could overflow. Points that are close together say little about
 * a line's direction, and in small figures everything lies within the library's tolerance. */
static const float farthest = 500000;
static const float smallest_radius = 10;
static const float shortest_line = 0.01f; /* of the radius */

typedef struct {
  Plan* plan;
  bool circle_seen;
} Draft;

static bool take_circle(Reader* reader, char* rest, Draft* draft) {
  Outline* outline = &draft->plan->outline;
  float n[4];
  if (draft->circle_seen) return complain(reader, "second circle");
  draft->circle_seen = true;
  if (!take_numbers(reader, &rest, n, 4, farthest) || !take_name(reader, rest, outline->name))
    return false;
  outline->centre = (Point){n[0], n[1]};
  outline->radius = distance(outline->centre, (Point){n[2], n[3]});
  if (outline->radius < smallest_radius) return complain(reader, "radius less than 10 mm");
  return true;
}

static bool take_line(Reader* reader, char* rest, Draft* draft) {
  Plan* plan = draft->plan;
  float n[4];
  if (!draft->circle_seen) return complain(reader, "line before the circle");
  if (plan->guide_count == MAX_GUIDES) return complain(reader, "more than %d lines", MAX_GUIDES);
  Guide* guide = &plan->guides[plan->guide_count];
  if (!take_numbers(reader, &rest, n, 4, farthest) || !take_name(reader, rest, guide->name))
    return false;
  guide->start = relative_to(plan->outline.centre, (Point){n[0], n[1]});
  guide->end = relative_to(plan->outline.centre, (Point){n[2], n[3]});
  if (distance(guide->start, guide->end) < shortest_line * plan->outline.radius)
    return complain(reader, "points closer together than a hundredth of the radius");
  plan->guide_count++;
  return true;
}

static bool take_item(Reader* reader, const char* word, char* rest, void* draft) {
  if (strcmp(word, "circle") == 0) return take_circle(reader, rest, draft);
  if (strcmp(word, "line") == 0) return take_line(reader, rest, draft);
  return complain(reader, "unknown word '%s'", word);
}

bool read_plan(const char* path, Plan* plan) {
  Reader reader = {.path = path};
  Draft draft = {.plan = plan};
  *plan = (Plan){.guide_count = 0};
  if (!read_items(&reader, take_item, &draft)) return false;
  return draft.circle_seen || complain(&reader, "no circle");
}
