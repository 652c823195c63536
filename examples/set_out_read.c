#include <errno.h>
#include <stdarg.h>
#include <stdlib.h>
#include <string.h>

#include "set_out.h"

/* Single precision sets limits. The discriminant of a crossing grows with the sixth power of the
 * coordinates, and beyond 500 m it could overflow. Points that are close together say little about
 * a line's direction, and in small figures everything lies within the library's tolerance. */
static const float farthest = 500000;
static const float smallest_radius = 10;
static const float shortest_line = 0.01f; /* of the radius */

typedef struct {
  const char* path;
  int number; /* of the line being read */
  bool circle_seen, good;
  Plan* plan;
} Reader;

static bool complain(Reader* reader, const char* format, ...) {
  va_list values;
  va_start(values, format);
  fprintf(stderr, "%s:", reader->path);
  if (reader->number > 0) fprintf(stderr, "%d:", reader->number);
  fputc(' ', stderr);
  vfprintf(stderr, format, values);
  fputc('\n', stderr);
  va_end(values);
  reader->good = false;
  return false;
}

static const char blanks[] = " \t\r\n";

static char* take_word(char** rest) {
  char* word = *rest + strspn(*rest, blanks);
  char* end = word + strcspn(word, blanks);
  *rest = *end == '\0' ? end : end + 1;
  *end = '\0';
  return word;
}

static bool take_numbers(Reader* reader, char** rest, float numbers[4]) {
  for (int i = 0; i < 4; i++) {
    const char* word = take_word(rest);
    if (*word == '\0') return complain(reader, "4 numbers needed, %d given", i);
    char* end;
    numbers[i] = strtof(word, &end);
    if (*end != '\0') return complain(reader, "'%s' is not a number (4 are needed)", word);
    if (!(numbers[i] >= -farthest && numbers[i] <= farthest))
      return complain(reader, "'%s' is outside +-500000 mm", word);
  }
  return true;
}

/* What remains of the line, without the blanks around it; there may be none. */
static bool take_name(Reader* reader, const char* rest, char name[MAX_NAME + 1]) {
  rest += strspn(rest, blanks);
  size_t length = strlen(rest);
  while (length > 0 && strchr(blanks, rest[length - 1])) length--;
  if (length > MAX_NAME) return complain(reader, "name longer than %d characters", MAX_NAME);
  for (size_t i = 0; i < length; i++)
    if (rest[i] < ' ' || rest[i] > '~')
      return complain(reader, "name with a character that is not printable ASCII");
  memcpy(name, rest, length);
  name[length] = '\0';
  return true;
}

static bool take_circle(Reader* reader, char* rest) {
  Outline* outline = &reader->plan->outline;
  float n[4];
  if (reader->circle_seen) return complain(reader, "second circle");
  reader->circle_seen = true;
  if (!take_numbers(reader, &rest, n) || !take_name(reader, rest, outline->name)) return false;
  outline->centre = (Point){n[0], n[1]};
  outline->radius = distance(outline->centre, (Point){n[2], n[3]});
  if (outline->radius < smallest_radius) return complain(reader, "radius less than 10 mm");
  return true;
}

static bool take_line(Reader* reader, char* rest) {
  Plan* plan = reader->plan;
  float n[4];
  if (!reader->circle_seen) return complain(reader, "line before the circle");
  if (plan->guide_count == MAX_GUIDES) return complain(reader, "more than %d lines", MAX_GUIDES);
  Guide* guide = &plan->guides[plan->guide_count];
  if (!take_numbers(reader, &rest, n) || !take_name(reader, rest, guide->name)) return false;
  guide->start = relative_to(plan->outline.centre, (Point){n[0], n[1]});
  guide->end = relative_to(plan->outline.centre, (Point){n[2], n[3]});
  if (distance(guide->start, guide->end) < shortest_line * plan->outline.radius)
    return complain(reader, "points closer together than a hundredth of the radius");
  plan->guide_count++;
  return true;
}

static bool take_item(Reader* reader, char* text) {
  text[strcspn(text, "#")] = '\0';
  const char* word = take_word(&text);
  if (*word == '\0') return true;
  if (strcmp(word, "circle") == 0) return take_circle(reader, text);
  if (strcmp(word, "line") == 0) return take_line(reader, text);
  return complain(reader, "unknown word '%s'", word);
}

/* Reads up to the line's end, whatever fits into text. */
static bool next_line(Reader* reader, FILE* file, char* text, int size) {
  if (!fgets(text, size, file)) return false;
  reader->number++;
  if (strchr(text, '\n') || feof(file)) return true;
  for (int c = getc(file); c != '\n' && c != EOF;) c = getc(file);
  complain(reader, "longer than %d characters", size - 2);
  text[0] = '\0';
  return true;
}

bool read_plan(const char* path, Plan* plan) {
  Reader reader = {.path = path, .good = true, .plan = plan};
  char text[256];
  *plan = (Plan){.guide_count = 0};
  FILE* file = fopen(path, "r");
  if (!file) return complain(&reader, "%s", strerror(errno));
  while (next_line(&reader, file, text, sizeof text)) take_item(&reader, text);
  reader.number = 0;
  if (ferror(file))
    complain(&reader, "%s", strerror(errno));
  else if (reader.good && !reader.circle_seen)
    complain(&reader, "no circle");
  fclose(file);
  return reader.good;
}
