/* Sets out guide lines on a circular outline, e.g. the beams and axes of a round platform:
 *
 *     set_out FILE
 *
 * FILE holds one item a line, lengths in mm, names optional, # begins a comment:
 *
 *     circle xc yc r name         once and first: the centre and the radius
 *     line   x1 y1 x2 y2 name     a guide line, from its start to its end
 */
#include <errno.h>
#include <kezlib.h>
#include <stdbool.h>
#include <stdio.h>
#include <string.h>

enum { OK = 0, FAULT = 2, MAX_TEXT = 200 };

/* The discriminant of a crossing grows with the sixth power of the coordinates: beyond 500 m single
 * precision could overflow. */
static const float farthest = 500000;
static const float smallest_radius = 10;
static const float shortest_line = 1;

/* Everything is computed from the centre: far from the origin the circle's xc^2 + yc^2 - r^2 would
 * be a small difference of large squares. */
typedef struct {
  float xc, yc, r;
  int lines;
} Outline;

static bool complain(const char* path, int number, const char* reason) {
  fprintf(stderr, "%s:%d: %s\n", path, number, reason);
  return false;
}

static bool is_near(float value) {
  return value >= -farthest && value <= farthest;
}

/* For printing with one decimal, so that what rounds to zero does not show as -0.0. */
static double mm(float length) {
  return length > -0.05f && length < 0.05f ? 0 : (double)length;
}

/* kezlci finds y first and then x = -(b y + c) / a, which magnifies rounding by b / a. A line that
 * is closer to the x axis is therefore handed over with the axes exchanged. */
static int32_t crossings(float a, float b, float c, float r, float x[2], float y[2]) {
  const float zero = 0;
  float D, E, F;
  int32_t n;
  kezcer(&zero, &zero, &r, &D, &E, &F);
  if (a * a >= b * b)
    kezlci(&a, &b, &c, &D, &E, &F, &n, &x[0], &y[0], &x[1], &y[1]);
  else
    kezlci(&b, &a, &c, &E, &D, &F, &n, &y[0], &x[0], &y[1], &x[1]);
  return n;
}

/* One row of the table: how far the line passes the centre, and where it meets the outline. */
static void set_out(const Outline* o, const float ends[4], const char* name) {
  static const char* const words[] = {"misses", "touches", "cuts"};
  const float zero = 0;
  const float x1 = ends[0] - o->xc, y1 = ends[1] - o->yc;
  const float x2 = ends[2] - o->xc, y2 = ends[3] - o->yc;
  float a, b, c, offset, x[2], y[2];
  kezln3(&x1, &y1, &x2, &y2, &a, &b, &c);
  kezlds(&zero, &zero, &a, &b, &c, &offset);
  const int32_t n = crossings(a, b, c, o->r, x, y);
  printf("%3d  %-28s %-8s %9.1f", o->lines, name, words[n], mm(offset));
  for (int32_t i = 0; i < n; i++) printf("  %9.1f %9.1f", mm(o->xc + x[i]), mm(o->yc + y[i]));
  putchar('\n');
}

static bool take_circle(Outline* o, const char* rest, const char* path, int number) {
  char name[MAX_TEXT] = "";
  if (o->r > 0) return complain(path, number, "second circle");
  if (sscanf(rest, "%f %f %f %199[^\n]", &o->xc, &o->yc, &o->r, name) < 3)
    return complain(path, number, "a circle has three numbers");
  if (!is_near(o->xc) || !is_near(o->yc) || !(o->r >= smallest_radius && is_near(o->r)))
    return complain(path, number, "a number is out of range");
  printf("%s: centre x %.1f mm, y %.1f mm; radius %.1f mm\n\n", name, mm(o->xc), mm(o->yc),
         mm(o->r));
  puts("                                           offset    first point [mm]      second point");
  puts(
      " No  Name                         Meets      [mm]           x         y           x         "
      "y");
  return true;
}

static bool take_line(Outline* o, const char* rest, const char* path, int number) {
  char name[MAX_TEXT] = "";
  float ends[4];
  if (!(o->r > 0)) return complain(path, number, "line before the circle");
  if (sscanf(rest, "%f %f %f %f %199[^\n]", &ends[0], &ends[1], &ends[2], &ends[3], name) < 4)
    return complain(path, number, "a line has four numbers");
  for (int i = 0; i < 4; i++)
    if (!is_near(ends[i])) return complain(path, number, "a number is out of range");
  const float dx = ends[2] - ends[0], dy = ends[3] - ends[1];
  if (dx * dx + dy * dy < shortest_line)
    return complain(path, number, "the points of the line are too close together");
  o->lines++;
  set_out(o, ends, name);
  return true;
}

static bool take(Outline* o, char* text, const char* path, int number) {
  char word[MAX_TEXT];
  int end = 0;
  text[strcspn(text, "#")] = '\0';
  if (sscanf(text, "%199s%n", word, &end) < 1) return true;
  if (strcmp(word, "circle") == 0) return take_circle(o, text + end, path, number);
  if (strcmp(word, "line") == 0) return take_line(o, text + end, path, number);
  return complain(path, number, "a line begins with 'circle' or 'line'");
}

int main(int argc, char* argv[]) {
  Outline outline = {0, 0, 0, 0};
  char text[MAX_TEXT];
  bool good = true;
  if (argc != 2) {
    fputs("usage: set_out FILE\n", stderr);
    return FAULT;
  }
  FILE* const file = fopen(argv[1], "r");
  if (!file) {
    fprintf(stderr, "%s: %s\n", argv[1], strerror(errno));
    return FAULT;
  }
  for (int number = 1; good && fgets(text, sizeof text, file); number++)
    good = strlen(text) < sizeof text - 1 ? take(&outline, text, argv[1], number)
                                          : complain(argv[1], number, "more than 198 characters");
  good = good && !ferror(file);
  fclose(file);
  return good && fflush(stdout) == 0 ? OK : FAULT;
}
