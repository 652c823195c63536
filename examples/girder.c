/* Section values of steel girders and members, and what is effective of their compressed plates:
 *
 *     girder FILE [PICTURES]
 *
 * FILE holds one section a line: its shape, dimensions in mm, fy [N/mm2], N [kN], M [kNm] and a
 * name, as in sections.txt; # begins a comment. The picture of section 1 is PICTURES1.svg, ... */
#include "girder.h"

#include <errno.h>
#include <string.h>

enum { OK = 0, FAULT = 2 };

enum { DIGITS = 6 };

static void print_number(int width, double value) {
  printf(" %*.*f", width, decimals(value, DIGITS), value);
}

static void print_value(const Value* v, bool reduced) {
  const double gross = (double)v->gross / v->size, book = v->book / v->size;
  printf("  %-24s %-3s %-5s", v->what, v->symbol, v->unit);
  print_number(11, gross);
  if (book != 0) {
    print_number(11, book);
    printf(" %+9.4f", 100 * (gross / book - 1));
  }
  if (reduced && v->effective != 0)
    print_number(book != 0 ? 11 : 33, (double)v->effective / v->size);
  putchar('\n');
}

static void print_heading(int number, const Section* s) {
  printf("%d  %s\n   %s:", number, s->name[0] ? s->name : "Section", shapes[s->shape].word);
  for (int i = 0; i < shapes[s->shape].count; i++)
    printf(" %s %g%s", shapes[s->shape].dims[i], (double)s->dims[i],
           i + 1 < shapes[s->shape].count ? "," : "");
  printf(" mm\n   fy %g N/mm2, N %g kN, M %g kNm\n\n", (double)s->fy, (double)s->N / 1e3,
         (double)s->M / 1e6);
}

static void print_values(const Result* r) {
  Values values;
  list_values(r, &values);
  printf("%47s %11s %9s%s\n", "KezLib", "Handbook", "Diff. [%]",
         is_reduced(r) ? "   Effective" : "");
  for (int i = 0; i < values.count; i++) print_value(&values.rows[i], is_reduced(r));
}

static void print_rule(const Plate* p) {
  static const char* const rules[] = {"internal (kezef2)", "lip (kezefr)",
                                      "outstand, b/t <=", "NOT REDUCED: no rule for it"};
  if (p->support == OUTSTAND)
    printf("%s %.1f\n", rules[OUTSTAND], (double)p->limit);
  else
    puts(rules[p->support]);
}

static void print_plate(int number, const Plate* p) {
  printf("  %d %-20s %7.1f %5.1f %6.1f %7.1f %7.1f", number, p->panel->name, (double)p->width,
         (double)p->t, (double)(p->width / p->t), (double)p->s1, (double)p->s2);
  if (p->support == UNRULED)
    printf(" %6s %6s %6s %6s  ", "?", "", "", "");
  else
    printf(" %6.3f %6.1f %6.1f %6.1f  ", (double)p->rho, (double)p->be1, (double)p->be2,
           (double)p->lost);
  print_rule(p);
}

static void print_plates(const Result* r) {
  if (r->plate_count == 0) {
    puts("\n  No plate is in compression.");
    return;
  }
  printf("\n  Plates in      %14s %5s %6s %7s %7s %6s %6s %6s %6s\n", "b", "t", "b/t", "s1", "s2",
         "rho", "be1", "be2", "lost");
  printf("  compression    %14s %5s %6s %15s %6s %6s %6s %6s\n", "[mm]", "[mm]", "", "[N/mm2]", "",
         "[mm]", "[mm]", "[mm]");
  for (int i = 0; i < r->plate_count; i++) print_plate(i + 1, &r->plates[i]);
}

static void print_notes(void) {
  puts(
      "Axes: x across and y up, through the centroid: the Eurocodes' y and z. N, stresses and s1,\n"
      "s2 are positive in compression, M where it compresses the top.\n"
      "Digits: KezLib computes in single precision, about 7 digits. Of 6 digits the last may be\n"
      "off, as Diff. shows. Second moments are summed about the centroid to keep them.\n"
      "Root fillets: area and centroid are those of the arcs. Of a circular segment KezLib has no\n"
      "second moments: polygons with 128 chords stand in for the arcs.\n"
      "Handbook: rectangles by the parallel axis theorem, root fillets of 0.2146 r2; x0 and Iw of\n"
      "channels from the centre-lines of sharp-cornered walls. Slots are left out of x0 and Iw.\n"
      "Plates: b is clear of the neighbours; of angles it is the whole leg. s1 and s2 are the\n"
      "stresses of the gross section at its ends. rho reduces the compressed part: be1 remains at\n"
      "s1, be2 at s2 or at zero stress. Outstands are checked, not reduced: KezLib has no formula\n"
      "for them.");
}

static void print_result(int number, const Result* r) {
  print_heading(number, r->given);
  print_values(r);
  print_plates(r);
  putchar('\n');
}

static int failed(const char* path) {
  fprintf(stderr, "%s: %s\n", path, strerror(errno));
  return FAULT;
}

static int write_picture(const char* pictures, int number, const Result* r) {
  char path[1024];
  const int length = snprintf(path, sizeof path, "%s%d.svg", pictures, number);
  if (length < 0 || (size_t)length >= sizeof path) {
    errno = ENAMETOOLONG;
    return failed(pictures);
  }
  FILE* svg = fopen(path, "w");
  if (!svg) return failed(path);
  draw(svg, number, r);
  const bool written = !ferror(svg);
  return fclose(svg) == 0 && written ? OK : failed(path);
}

int main(int argc, char* argv[]) {
  static Job job;
  int status = OK;
  if (argc < 2 || argc > 3) {
    fputs("usage: girder FILE [PICTURES]\n", stderr);
    return FAULT;
  }
  if (!read_job(argv[1], &job)) return FAULT;
  for (int i = 0; i < job.count && status == OK; i++) {
    const Result result = analyse(&job.sections[i]);
    print_result(i + 1, &result);
    if (argc == 3) status = write_picture(argv[2], i + 1, &result);
  }
  print_notes();
  if (fflush(stdout) != 0) return failed("standard output");
  return status;
}
