/* What stands beside the picture of a section: its title, its values, its plates and the key. */
#include <string.h>

#include "girder.h"
#include "svg.h"

enum { LIST = 790, GROSS = LIST + 250, END = LIST + 390, ROW = 24 };

void put_title(FILE* svg, int number, const Section* s) {
  const ShapeInfo* info = &shapes[s->shape];
  char text[160];
  int n = 0;
  put_text(svg, "class='title'", 40, 36, "%d", number);
  put_name(svg, "class='title'", 80, 36, s->name[0] ? s->name : "Section");
  for (int i = 0; i < info->count; i++)
    n += snprintf(text + n, sizeof text - (size_t)n, "%s %g, ", info->dims[i], (double)s->dims[i]);
  put_text(svg, "class='grey'", 80, 62,
           "%slengths in mm. fy %g N/mm\302\262, N %g kN, M %g kNm (compression and compressed "
           "top positive).",
           text, (double)s->fy, (double)s->N / 1e3, (double)s->M / 1e6);
}

/* A digit at the end is an exponent. */
static void put_unit(FILE* svg, double y, const char* unit) {
  const size_t n = strlen(unit);
  const bool power = unit[n - 1] >= '0' && unit[n - 1] <= '9';
  put_text(svg, "class='grey'", GROSS + 8, y, "%.*s<tspan dy='-4' font-size='9'>%s</tspan>",
           (int)(power ? n - 1 : n), unit, power ? unit + n - 1 : "");
}

static void put_number_at(FILE* svg, double x, double y, double value) {
  put_text(svg, "class='end'", x, y, "%.*f", decimals(value, 5), value);
}

static void put_value(FILE* svg, double y, const Value* v, bool reduced) {
  put_text(svg, "", LIST, y, "%s", v->what);
  put_text(svg, "", LIST + 164, y, "%s", v->symbol);
  put_unit(svg, y, v->unit);
  put_number_at(svg, GROSS, y, (double)v->gross / v->size);
  if (reduced && v->effective != 0) put_number_at(svg, END, y, (double)v->effective / v->size);
}

static void put_values(FILE* svg, const Result* r, double* y) {
  Values values;
  list_values(r, &values);
  put_text(svg, "class='head end'", GROSS, *y, "gross");
  if (is_reduced(r)) put_text(svg, "class='head end'", END, *y, "effective");
  for (int i = 0; i < values.count; i++) put_value(svg, *y += ROW, &values.rows[i], is_reduced(r));
  *y += ROW;
}

static void put_plate_row(FILE* svg, double y, int number, const Plate* p) {
  put_bubble(svg, LIST + 11, y, number);
  put_text(svg, "", LIST + 30, y, "%s", p->panel->name);
  put_text(svg, "class='end'", END - 92, y, "%.1f \303\227 %g", (double)p->width, (double)p->t);
  put_text(svg, "class='end'", END - 44, y, "%.1f", (double)(p->width / p->t));
  if (p->support == UNRULED)
    put_text(svg, "class='end orange'", END, y, "?");
  else
    put_text(svg, p->lost > 0 ? "class='end red'" : "class='end'", END, y, "%.3f", (double)p->rho);
}

static void put_plates(FILE* svg, const Result* r, double* y) {
  put_text(svg, "class='head'", LIST, *y, "Plates in compression%s",
           r->plate_count ? "" : ": none");
  if (r->plate_count) {
    put_text(svg, "class='head end'", END - 92, *y, "b \303\227 t [mm]");
    put_text(svg, "class='head end'", END - 44, *y, "b/t");
    put_text(svg, "class='head end'", END, *y, "\317\201");
  }
  *y += ROW + 2;
  for (int i = 0; i < r->plate_count; i++, *y += ROW) put_plate_row(svg, *y, i + 1, &r->plates[i]);
}

static void put_key(FILE* svg, const Result* r, double y) {
  static const char* const swatches[][2] = {{"effective", "in compression, effective"},
                                            {"lost", "in compression, not effective"},
                                            {"unruled", "in compression, no rule for it"},
                                            {"steel", "not in compression, or between the plates"}};
  for (int i = 0; i < 4; i++, y += ROW) {
    fprintf(svg, "<rect class='%s' x='%d' y='%.1f' width='30' height='12'/>", swatches[i][0], LIST,
            y - 6);
    put_text(svg, "", LIST + 42, y, "%s", swatches[i][1]);
  }
  put_text(svg, "class='purple'", LIST, y, "x = u");
  put_text(svg, "", LIST + 42, y, "principal axes through the centroid");
  if (is_reduced(r)) {
    y += ROW;
    fprintf(svg, "<circle class='moved' cx='%d' cy='%.1f' r='5'/>", LIST + 15, y);
    put_text(svg, "", LIST + 42, y, "centroid of the effective section");
  }
  if (r->given->shape != CHANNEL) return;
  put_text(svg, "class='orange'", LIST + 10, y + ROW, "S");
  put_text(svg, "", LIST + 42, y + ROW, "shear centre");
}

static void put_rule(FILE* svg, double* y) {
  fprintf(svg, "<path class='rule' d='M%d %.1fh390'/>\n", LIST, *y - 2);
  *y += ROW;
}

void put_list(FILE* svg, const Result* r) {
  double y = 116;
  put_values(svg, r, &y);
  put_rule(svg, &y);
  put_plates(svg, r, &y);
  put_rule(svg, &y);
  put_key(svg, r, y);
}
