/* Sets out guide lines on a circular outline, e.g. the beams and axes of a round platform:
 *
 *     set_out FILE [PICTURE.svg]
 *
 * FILE holds one item a line, lengths in mm, names optional, # begins a comment:
 *
 *     circle xc yc xp yp name     once and first: the centre and a point on the outline
 *     line   x1 y1 x2 y2 name     a guide line, from its start to its end
 */
#include "set_out.h"

#include <errno.h>
#include <string.h>

enum { OK = 0, FAULT = 2 };

/* For printing with one decimal, so that what rounds to zero does not show as -0.0. */
static double mm(float length) {
  return length > -0.05f && length < 0.05f ? 0 : (double)length;
}

/* For printing with two decimals: a full turn is none. */
static double degrees(float angle) {
  return angle >= 359.995f ? 0 : (double)angle;
}

static const char* side(float offset) {
  if (mm(offset) == 0) return " ";
  return offset > 0 ? "R" : "L";
}

static void print_guide(int32_t number, const Guide* guide, const Meeting* m) {
  static const char* const words[] = {"misses", "touches", "cuts"};
  const float offset = m->offset < 0 ? -m->offset : m->offset;
  printf("%3d  %-31s  %-7s %10.1f %s", (int)number, guide->name, words[m->relation], mm(offset),
         side(m->offset));
  if (m->relation == MISSES) printf(" %10.1f", mm(m->gap));
  if (m->relation == CUTS) printf(" %10s %10.1f %8.2f", "", mm(m->chord), degrees(m->angle));
  putchar('\n');
}

static void print_point(int32_t number, char letter, const SetPoint* p, Point centre) {
  static const char* const places[] = {"near an end",  "at start",     "at end",
                                       "between ends", "before start", "beyond end"};
  printf("%3d%c  %10.1f %10.1f %10.2f %12.1f   %s\n", (int)number, letter, mm(centre.x + p->at.x),
         mm(centre.y + p->at.y), degrees(p->bearing), mm(p->from_start), places[p->place]);
}

static void print_guides(const Plan* plan, const Meeting meetings[]) {
  puts(
      "GUIDE LINES\n"
      " No  Name                             Meets       Offset          Gap      Chord    Angle\n"
      "                                                    [mm]         [mm]       [mm]    [deg]");
  for (int32_t i = 0; i < plan->guide_count; i++)
    print_guide(i + 1, &plan->guides[i], &meetings[i]);
  puts(
      "Offset: of the line from the centre, which lies to its right (R) or left (L), seen from\n"
      "        the start of the line to its end. Angle: at the centre, of the chord.");
}

static void print_points(const Plan* plan, const Meeting meetings[]) {
  puts(
      "POINTS ON THE OUTLINE\n"
      "  No           x          y    Bearing   From start   Place on\n"
      "            [mm]       [mm]      [deg]         [mm]   the line");
  for (int32_t i = 0; i < plan->guide_count; i++)
    for (int32_t k = 0; k < (int32_t)meetings[i].relation; k++)
      print_point(i + 1, (char)('a' + k), &meetings[i].points[k], plan->outline.centre);
  puts("Bearing: from the centre, anticlockwise from the x axis.");
}

static void print_tables(const Plan* plan, const Meeting meetings[]) {
  const Outline* o = &plan->outline;
  printf("%s\nCentre x %.1f mm, y %.1f mm; radius %.1f mm\n\n", o->name[0] ? o->name : "Outline",
         mm(o->centre.x), mm(o->centre.y), mm(o->radius));
  print_guides(plan, meetings);
  putchar('\n');
  print_points(plan, meetings);
}

static int failed(const char* path) {
  fprintf(stderr, "%s: %s\n", path, strerror(errno));
  return FAULT;
}

static int write_picture(const char* path, const Plan* plan, const Meeting meetings[]) {
  FILE* svg = fopen(path, "w");
  if (!svg) return failed(path);
  draw(svg, plan, meetings);
  const bool written = !ferror(svg);
  return fclose(svg) == 0 && written ? OK : failed(path);
}

int main(int argc, char* argv[]) {
  static Plan plan;
  static Meeting meetings[MAX_GUIDES];
  if (argc < 2 || argc > 3) {
    fputs("usage: set_out FILE [PICTURE.svg]\n", stderr);
    return FAULT;
  }
  if (!read_plan(argv[1], &plan)) return FAULT;
  for (int32_t i = 0; i < plan.guide_count; i++)
    meetings[i] = meet(&plan.guides[i], plan.outline.radius);
  print_tables(&plan, meetings);
  if (fflush(stdout) != 0) return failed("standard output");
  return argc == 3 ? write_picture(argv[2], &plan, meetings) : OK;
}
