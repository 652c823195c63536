/* A section as SVG: the outline with its axes, dimensions and stresses. Points on the page are in
 * pixels, with y down. */
#include "girder.h"
#include "svg.h"

enum { PAGE_WIDTH = 1220, PAGE_HEIGHT = 820 };

static const float middle_x = 350, middle_y = 418, most_width = 400, most_height = 540;

typedef struct {
  FILE* svg;
  const Result* result;
  float scale; /* pixels a mm */
  float left;  /* of what is drawn of the section: its edge or the shear centre */
} Picture;

static Point on_page(const Picture* pic, Point p) {
  const Result* r = pic->result;
  return (Point){middle_x + pic->scale * (p.x - (pic->left + r->right) / 2),
                 middle_y - pic->scale * (p.y - (r->bottom + r->top) / 2)};
}

static Point sum(Point p, Point q) {
  return (Point){p.x + q.x, p.y + q.y};
}

static void put_line(const Picture* pic, const char* style, Point p, Point q) {
  fprintf(pic->svg, "<path class='%s' d='M%.1f %.1fL%.1f %.1f'/>\n", style, (double)p.x,
          (double)p.y, (double)q.x, (double)q.y);
}

static void put_label(const Picture* pic, const char* style, Point p, const char* text) {
  put_text(pic->svg, style, (double)p.x, (double)p.y, "%s", text);
}

static void put_styles(FILE* svg) {
  fputs(
      "<style>\n"
      ".steel{fill:#dde3ea;stroke:none}.edge{stroke-width:1.1}\n"
      ".effective{fill:#3f7fbf;stroke:none}\n"
      ".clip{clip-rule:evenodd}.unruled{fill:#f0b35a;stroke:none}\n"
      ".lost{fill:url(#hatch);stroke:#d62828;stroke-width:1}\n"
      ".axis{stroke:#6b7280;stroke-width:.9;stroke-dasharray:14 4 2 4}\n"
      ".principal{stroke:#8b2c8f;stroke-width:1.2;stroke-dasharray:14 4 2 4}\n"
      ".purple{fill:#8b2c8f;font-weight:bold}.grey{fill:#6b7280}.red{fill:#d62828}.blue{fill:#"
      "2f6aa5}\n"
      ".size{stroke:#6b7280;stroke-width:.9}"
      ".chain-blue{stroke:#3f7fbf;stroke-width:2.4}.chain-red{stroke:#d62828;stroke-width:2.4}\n"
      ".centroid{fill:#fff;stroke:#8b2c8f;stroke-width:1.8}.moved{fill:#3f7fbf;stroke:#fff}\n"
      ".shear{stroke:#c2410c;stroke-width:2.2}.orange{fill:#c2410c;font-weight:bold}\n"
      ".rule{stroke:#c9d1d9}\n"
      ".compression{fill:#b9d3ec;stroke:none}.tension{fill:#e9e2d0;stroke:none}\n"
      "</style>\n"
      "<pattern id='hatch' width='5' height='5' patternUnits='userSpaceOnUse' "
      "patternTransform='rotate(45)'><rect class='paper' width='5' height='5'/>"
      "<path d='M0 0V5' style='stroke:#d62828;stroke-width:2.4'/></pattern>\n",
      svg);
}

/* The ends of the fillets' arcs stand with a minus sign. All arcs turn the same way. */
static void put_rolled_path(const Picture* pic) {
  static const int path[] = {1, 2, 14, -15, 17, -18, 5, 6, 7, 8, 20, -21, 23, -24, 11, 12};
  const Result* r = pic->result;
  const double radius = (double)(r->given->dims[4] * pic->scale);
  for (size_t i = 0; i < sizeof path / sizeof *path; i++) {
    const Point p = on_page(pic, vertex(&r->outline, path[i] < 0 ? -path[i] : path[i]));
    if (path[i] < 0) fprintf(pic->svg, "A%.2f %.2f 0 0 1", radius, radius);
    fprintf(pic->svg, "%s%.2f %.2f",
            i == 0        ? "M"
            : path[i] > 0 ? "L"
                          : " ",
            (double)p.x, (double)p.y);
  }
  fputc('Z', pic->svg);
}

static void put_contours(const Picture* pic) {
  for (int32_t i = 1; i <= pic->result->outline.count; i++) {
    const Contour c = contour(&pic->result->outline, i);
    for (int32_t k = 0; k < c.n; k++) {
      const Point p = on_page(pic, (Point){c.x[k], c.y[k]});
      fprintf(pic->svg, "%c%.2f %.2f", k == 0 ? 'M' : 'L', (double)p.x, (double)p.y);
    }
    fputc('Z', pic->svg);
  }
}

static void put_outline(const Picture* pic, const char* style) {
  fprintf(pic->svg, "<path class='%s' fill-rule='evenodd' d='", style);
  if (pic->result->given->shape == ROLLED)
    put_rolled_path(pic);
  else
    put_contours(pic);
  fputs("'/>\n", pic->svg);
}

static void put_part(const Picture* pic, const char* style, const Plate* p, float from, float to) {
  if (to - from <= 0) return;
  const Point at[] = {across_at(p, from, false), across_at(p, from, true), across_at(p, to, true),
                      across_at(p, to, false)};
  fprintf(pic->svg, "<path class='%s' d='", style);
  for (int i = 0; i < 4; i++) {
    const Point q = on_page(pic, at[i]);
    fprintf(pic->svg, "%c%.2f %.2f", i == 0 ? 'M' : 'L', (double)q.x, (double)q.y);
  }
  fputs("Z'/>\n", pic->svg);
}

static void put_effective(const Picture* pic, const Plate* p) {
  const char* style = p->support == UNRULED ? "unruled" : "effective";
  put_part(pic, style, p, 0, p->lost > 0 ? p->be1 : p->compressed);
  if (p->lost > 0) put_part(pic, style, p, p->be1 + p->lost, p->compressed);
}

/* The distance of two points, measured beside them, in a colour of its own or in none. */
static void put_size(const Picture* pic, Point p, Point q, Point beside, const char* colour,
                     const char* text) {
  const Point from = sum(p, beside), to = sum(q, beside), origin = {0, 0};
  const Point tick = {4, -4}, back = {-4, 4}, over = along(origin, beside, 5);
  const bool level = magnitude(beside.y) > magnitude(beside.x);
  const Point half = {(from.x + to.x) / 2, (from.y + to.y) / 2};
  char style[64];
  put_line(pic, "size", p, sum(from, over));
  put_line(pic, "size", q, sum(to, over));
  snprintf(style, sizeof style, "size chain-%s", colour);
  put_line(pic, style, from, to);
  put_line(pic, "edge", sum(from, back), sum(from, tick));
  put_line(pic, "edge", sum(to, back), sum(to, tick));
  snprintf(style, sizeof style, "class='%s %s halo'",
           level          ? "mid"
           : beside.x < 0 ? "end"
                          : "start",
           colour);
  put_label(pic, style, sum(half, along(origin, beside, level ? 10 : 8)), text);
}

/* A face's normal on the page, of the length given: positive towards the opposite face. */
static Point normal(const Plate* p, float pixels) {
  return along((Point){0, 0}, (Point){p->across.x, -p->across.y}, pixels);
}

static void put_chain(const Picture* pic, const Plate* p) {
  const float ends[] = {0, p->be1, p->be1 + p->lost, p->compressed};
  const bool far_side = p->panel->inner < 0;
  const Point beside = normal(p, far_side ? 24 : -24);
  for (int i = 0; i < 3; i++) {
    char text[32];
    snprintf(text, sizeof text, "%.1f", (double)(ends[i + 1] - ends[i]));
    put_size(pic, on_page(pic, across_at(p, ends[i], far_side)),
             on_page(pic, across_at(p, ends[i + 1], far_side)), beside, i == 1 ? "red" : "blue",
             text);
  }
}

static void put_number(const Picture* pic, const Plate* p, int number) {
  const float along_plate = p->support == INTERNAL ? 0.3f * p->width : 0.6f * p->width;
  const Point at = on_page(pic, across_at(p, along_plate, p->panel->inner > 0));
  const Point beside = sum(at, normal(p, p->panel->inner > 0 ? 18 : -18));
  put_bubble(pic->svg, (double)beside.x, (double)beside.y, number);
}

/* Through the centroid, so far in both directions (pixels), its letter at the end. */
static void put_axis(const Picture* pic, const char* style, Point unit, float back, float ahead,
                     const char* letter) {
  const Point c = on_page(pic, pic->result->gross.centroid);
  const Point end = {c.x + ahead * unit.x, c.y - ahead * unit.y};
  put_line(pic, style, (Point){c.x - back * unit.x, c.y + back * unit.y}, end);
  put_label(pic, *style == 'p' ? "class='purple mid halo'" : "class='grey mid halo'",
            (Point){end.x + 10 * unit.x, end.y - 10 * unit.y}, letter);
}

static void put_axes(const Picture* pic) {
  const Result* r = pic->result;
  const Properties* g = &r->gross;
  const Point c = on_page(pic, g->centroid), low = on_page(pic, (Point){pic->left, r->bottom}),
              high = on_page(pic, (Point){r->right, r->top});
  const float left = c.x - low.x + 22, right = high.x - c.x + 58, down = low.y - c.y + 22,
              up = c.y - high.y + 46;
  const bool turned = g->theta != 0;
  put_axis(pic, turned ? "axis" : "principal", (Point){1, 0}, left, right, turned ? "x" : "x = u");
  put_axis(pic, turned ? "axis" : "principal", (Point){0, 1}, down, up, turned ? "y" : "y = v");
  if (!turned) return;
  put_axis(pic, "principal", turn((Point){1, 0}, g->theta), left, right, "u");
  put_axis(pic, "principal", turn((Point){0, 1}, g->theta), down, up, "v");
}

static void put_centroids(const Picture* pic) {
  const Result* r = pic->result;
  const Point c = on_page(pic, r->gross.centroid), e = on_page(pic, r->effective.centroid);
  if (is_reduced(r))
    fprintf(pic->svg, "<circle class='moved' cx='%.1f' cy='%.1f' r='5'/>\n", (double)e.x,
            (double)e.y);
  fprintf(pic->svg,
          "<circle class='centroid' cx='%.1f' cy='%.1f' r='6'/>"
          "<path class='centroid' d='M%.1f %.1fh12m-6 -6v12'/>\n",
          (double)c.x, (double)c.y, (double)c.x - 6, (double)c.y);
}

static Point shear_centre(const Result* r) {
  return (Point){r->gross.centroid.x - r->shear_centre, r->gross.centroid.y};
}

static void put_shear_centre(const Picture* pic) {
  const Point s = on_page(pic, shear_centre(pic->result));
  fprintf(pic->svg, "<path class='shear' d='M%.1f %.1fl12 12m0 -12l-12 12'/>\n", (double)s.x - 6,
          (double)s.y - 6);
  put_label(pic, "class='orange end halo'", (Point){s.x + 5, s.y - 16}, "S");
  put_text(pic->svg, "class='grey end halo'", (double)s.x + 5, (double)s.y + 18, "x0 %.1f",
           (double)pic->result->shear_centre);
}

static void put_sizes(const Picture* pic) {
  const Result* r = pic->result;
  const Point low = on_page(pic, (Point){r->left, r->bottom}),
              high = on_page(pic, (Point){r->right, r->top}), c = on_page(pic, r->gross.centroid);
  const float edge = on_page(pic, (Point){pic->left, 0}).x;
  char text[32];
  snprintf(text, sizeof text, "%g", (double)(r->right - r->left));
  put_size(pic, low, (Point){high.x, low.y}, (Point){0, 52}, "head", text);
  snprintf(text, sizeof text, "%g", (double)(r->top - r->bottom));
  put_size(pic, low, (Point){low.x, high.y}, (Point){edge - low.x - 72, 0}, "head", text);
  snprintf(text, sizeof text, "%.1f", (double)(r->gross.centroid.y - r->bottom));
  put_size(pic, (Point){high.x, low.y}, (Point){high.x, c.y}, (Point){42, 0}, "grey", text);
}

static void put_stress(const Picture* pic, const char* style, float x, Point at, Point to) {
  fprintf(pic->svg, "<path class='%s' d='M%.1f %.1fH%.1fL%.1f %.1fH%.1fZ'/>\n", style, (double)x,
          (double)at.y, (double)at.x, (double)to.x, (double)to.y, (double)x);
}

/* Along the vertical through the centroid, compression to the right. */
static void put_stresses(const Picture* pic) {
  const Result* r = pic->result;
  const float x = 690, xs = r->gross.centroid.x;
  const float at_top = stress_at(r, (Point){xs, r->top});
  const float at_bottom = stress_at(r, (Point){xs, r->bottom});
  const float most = magnitude(magnitude(at_top) > magnitude(at_bottom) ? at_top : at_bottom);
  const float unit = most > 0 ? 46 / most : 0;
  const Point top = {x + unit * at_top, on_page(pic, (Point){xs, r->top}).y};
  const Point bottom = {x + unit * at_bottom, on_page(pic, (Point){xs, r->bottom}).y};
  Point split = bottom;
  if ((at_top < 0) != (at_bottom < 0))
    split = (Point){x, rescaled(0, at_top, at_bottom, top.y, bottom.y)};
  put_stress(pic, at_top > 0 ? "compression" : "tension", x, top, split);
  put_stress(pic, at_bottom > 0 ? "compression" : "tension", x, split, bottom);
  put_line(pic, "edge", top, bottom);
  put_line(pic, "edge", (Point){x, top.y}, (Point){x, bottom.y});
  put_text(pic->svg, "class='head mid'", (double)x, (double)top.y - 14, "%+.1f", (double)at_top);
  put_text(pic->svg, "class='head mid'", (double)x, (double)bottom.y + 14, "%+.1f",
           (double)at_bottom);
  put_text(pic->svg, "class='grey mid'", (double)x, (double)bottom.y + 33, "stress [N/mm\302\262]");
}

static void put_scale_bar(const Picture* pic) {
  const float step = round_step(1000 / pic->scale);
  const double x = 60, y = PAGE_HEIGHT - 30, length = (double)(step * pic->scale);
  fprintf(pic->svg,
          "<path style='fill:#26333f' d='M%.1f %.1fh%.1fv6h-%.1fz'/>"
          "<path style='fill:#fff' d='M%.1f %.1fh%.1fv6h-%.1fz'/>\n",
          x, y, length / 2, length / 2, x + length / 2, y, length / 2, length / 2);
  put_text(pic->svg, "class='mid'", x, y - 10, "0");
  put_text(pic->svg, "class='mid'", x + length, y - 10, "%g mm", (double)step);
}

/* Clipped, because a web may have slots. */
static void put_plates(const Picture* pic) {
  const Result* r = pic->result;
  fputs("<clipPath id='section'>", pic->svg);
  put_outline(pic, "clip");
  fputs("</clipPath>\n<g clip-path='url(#section)'>\n", pic->svg);
  for (int i = 0; i < r->plate_count; i++) put_effective(pic, &r->plates[i]);
  fputs("</g>\n", pic->svg);
}

static void put_section(const Picture* pic) {
  const Result* r = pic->result;
  put_axes(pic);
  put_outline(pic, "steel");
  put_plates(pic);
  put_outline(pic, "edge");
  for (int i = 0; i < r->plate_count; i++)
    put_part(pic, "lost", &r->plates[i], r->plates[i].be1, r->plates[i].be1 + r->plates[i].lost);
  for (int i = 0; i < r->plate_count; i++) {
    if (r->plates[i].panel->chain && r->plates[i].lost > 0) put_chain(pic, &r->plates[i]);
    put_number(pic, &r->plates[i], i + 1);
  }
  put_centroids(pic);
  if (r->given->shape == CHANNEL) put_shear_centre(pic);
}

void draw(FILE* svg, int number, const Result* r) {
  Picture pic = {.svg = svg, .result = r, .left = r->left};
  if (r->given->shape == CHANNEL && shear_centre(r).x < pic.left) pic.left = shear_centre(r).x;
  const float across = most_width / (r->right - pic.left), up = most_height / (r->top - r->bottom);
  pic.scale = across < up ? across : up;
  begin_picture(svg, PAGE_WIDTH, PAGE_HEIGHT);
  put_styles(svg);
  put_title(svg, number, r->given);
  put_section(&pic);
  put_sizes(&pic);
  put_stresses(&pic);
  put_scale_bar(&pic);
  put_list(svg, r);
  fputs("</svg>\n", svg);
}
