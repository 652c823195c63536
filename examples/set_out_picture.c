/* The plan as SVG: the outline in its frame of site coordinates on the left, the list of the lines
 * on the right. Lengths on the page are in pixels (px). */
#include "set_out.h"
#include "svg.h"

static const float left = 78, top = 92, size = 720;

enum { PAGE_WIDTH = 1230, ROW = 26, MAX_TAKEN = 7 * MAX_GUIDES };

/* A place that labels keep away from, but for those of the guide line that it belongs to. */
typedef struct {
  Point at;
  int32_t guide;
} Taken;

enum { NO_GUIDE = -1 };

typedef struct {
  FILE* svg;
  const Plan* plan;
  const Meeting* meetings;
  float reach; /* from the centre to the frame */
  float ends;  /* radius of the circle on which the guide lines end */
  Taken taken[MAX_TAKEN];
  int32_t taken_count;
} Picture;

static const Point centre = {0, 0};

static const char* const relations[] = {"misses", "touches", "cuts"};
static const char* const colours[] = {"#6b7280", "#c2410c", "#1d5fa5"};

static double page_x(const Picture* pic, float x) {
  return (double)rescaled(x, -pic->reach, pic->reach, left, left + size);
}

static double page_y(const Picture* pic, float y) {
  return (double)rescaled(y, -pic->reach, pic->reach, top + size, top);
}

static float px(const Picture* pic, float pixels) {
  return pixels * 2 * pic->reach / size;
}

static void put_line(const Picture* pic, const char* style, Point p, Point q) {
  fprintf(pic->svg, "<path %s d='M%.1f %.1fL%.1f %.1f'/>\n", style, page_x(pic, p.x),
          page_y(pic, p.y), page_x(pic, q.x), page_y(pic, q.y));
}

static void put_circle(const Picture* pic, const char* style, Point p, float radius) {
  fprintf(pic->svg, "<circle %s cx='%.1f' cy='%.1f' r='%.1f'/>\n", style, page_x(pic, p.x),
          page_y(pic, p.y), (double)(radius / px(pic, 1)));
}

static void take(Picture* pic, Point p, int32_t guide) {
  pic->taken[pic->taken_count++] = (Taken){p, guide};
}

/* Around a label of a guide line, up to what is enough. */
static float room_at(const Picture* pic, Point p, int32_t guide) {
  float room = px(pic, 20);
  for (int32_t i = 0; i < pic->taken_count; i++) {
    const float d = distance(p, pic->taken[i].at);
    if (d < room && pic->taken[i].guide != guide) room = d;
  }
  return room;
}

/* Of several places for a label the roomiest, the first of equal ones. */
static Point take_place(Picture* pic, int32_t guide, const Point places[], int count) {
  Point best = places[0];
  for (int i = 1; i < count; i++)
    if (room_at(pic, places[i], guide) > room_at(pic, best, guide)) best = places[i];
  take(pic, best, NO_GUIDE);
  return best;
}

static void put_styles(FILE* svg) {
  fputs(
      "<style>\n"
      ".bearing{text-anchor:middle;font-size:10px;fill:#5f6b78}\n"
      ".bearing.halo{stroke:#eef3f8}.plate{fill:#eef3f8;stroke-width:2.5}\n"
      ".grid{stroke:#e3e8ed}.axis,.tick{stroke:#8a94a0}.axis{stroke-dasharray:14 4 2 4}\n"
      ".guide{stroke-width:2.6}.thin{stroke-width:.9;stroke-dasharray:9 5}\n"
      ".dot{fill:#fff;stroke-width:1.8}.bubble{stroke-width:1.6}\n",
      svg);
  for (int i = 0; i < 3; i++)
    fprintf(svg, ".%s{stroke:%s}.%s .arrow{marker-end:url(#to-%s)}#to-%s *{fill:%s;stroke:none}\n",
            relations[i], colours[i], relations[i], relations[i], relations[i], colours[i]);
  fprintf(svg, ".touches .dot{fill:%s}\n</style>\n", colours[TOUCHES]);
}

static void put_arrows(FILE* svg) {
  for (int i = 0; i < 3; i++)
    fprintf(svg,
            "<marker id='to-%s' viewBox='0 0 10 8' refX='10' refY='4' markerWidth='15' "
            "markerHeight='12' markerUnits='userSpaceOnUse' orient='auto'>"
            "<path d='M0 0L10 4L0 8z'/></marker>\n",
            relations[i]);
}

static void put_title(const Picture* pic) {
  const Outline* o = &pic->plan->outline;
  put_name(pic->svg, "class='title'", (double)left, 36, o->name[0] ? o->name : "Outline");
  put_text(pic->svg, "", (double)left, 64,
           "Centre x %.1f, y %.1f; radius %.1f. Lengths in mm, bearings in degrees anticlockwise "
           "from x.",
           (double)o->centre.x, (double)o->centre.y, (double)o->radius);
}

/* The lines of round x (or y) on the site; zero is the centre's coordinate. */
static void put_grid(const Picture* pic, bool of_x, float zero) {
  const float reach = pic->reach, step = round_step(2 * reach);
  for (int i = (int)((zero - reach) / step) - 1; (float)i * step <= zero + reach; i++) {
    const float at = (float)i * step - zero;
    if (at < -reach) continue;
    const Point p = of_x ? (Point){at, -reach} : (Point){-reach, at};
    put_line(pic, "class='grid'", p, of_x ? (Point){at, reach} : (Point){reach, at});
    put_text(pic->svg, of_x ? "class='mid'" : "class='end'", page_x(pic, p.x) - (of_x ? 0 : 9),
             page_y(pic, p.y) + (of_x ? 15 : 0), "%.0f", (double)((float)i * step));
  }
}

static void put_frame(const Picture* pic) {
  const Point c = pic->plan->outline.centre;
  const double x = (double)left, y = (double)top, middle = (double)size / 2;
  put_grid(pic, true, c.x);
  put_grid(pic, false, c.y);
  fprintf(pic->svg, "<rect x='%.0f' y='%.0f' width='%.0f' height='%.0f'/>\n", x, y, 2 * middle,
          2 * middle);
  put_text(pic->svg, "class='head mid'", x + middle, y + 2 * middle + 36, "x [mm]");
  put_text(pic->svg, "class='head mid' transform='rotate(-90)'", -(y + middle), 18, "y [mm]");
}

static void put_outline(const Picture* pic) {
  const float r = pic->plan->outline.radius, overhang = r + px(pic, 22);
  put_circle(pic, "class='plate'", centre, r);
  put_line(pic, "class='axis'", (Point){-overhang, 0}, (Point){overhang, 0});
  put_line(pic, "class='axis'", (Point){0, -overhang}, (Point){0, overhang});
}

static void put_bearing(const Picture* pic, Point p) {
  const int degrees = (int)(bearing_of(p) + 0.5f) % 360;
  const bool labelled = degrees % 30 == 0;
  const Point at = along(p, centre, px(pic, 21));
  put_line(pic, "class='tick'", p, along(p, centre, px(pic, labelled ? 9 : 5)));
  if (labelled)
    put_text(pic->svg, "class='bearing halo'", page_x(pic, at.x), page_y(pic, at.y), "%d\302\260",
             degrees);
}

/* On the inside of the outline. */
static void put_scale_of_bearings(const Picture* pic) {
  for (int degrees = 0; degrees < 180; degrees += 10) {
    Point both[2];
    crossings(line_at_angle((float)degrees), pic->plan->outline.radius, both);
    put_bearing(pic, both[0]);
    put_bearing(pic, both[1]);
  }
}

static void begin_group(const Picture* pic, int32_t i) {
  fprintf(pic->svg, "<g class='%s'>\n", relations[pic->meetings[i].relation]);
}

static void end_group(const Picture* pic) {
  fputs("</g>\n", pic->svg);
}

/* The guide line from its start to its end, as far as these lie in the picture. */
static void put_guide(const Picture* pic, int32_t i, const Meeting* ends) {
  enum { BETWEEN_ENDS = 3 };
  const Guide* guide = &pic->plan->guides[i];
  const SetPoint *in = &ends->points[0], *out = &ends->points[1];
  const bool starts = distance(centre, guide->start) <= pic->ends;
  const bool stops = distance(centre, guide->end) <= pic->ends;
  if ((!starts && in->place != BETWEEN_ENDS) || (!stops && out->place != BETWEEN_ENDS)) return;
  put_line(pic, "class='guide arrow'", starts ? guide->start : in->at,
           stops ? guide->end : out->at);
}

/* The whole line through the picture, the guide line on it, its number at the freer end. */
static void put_guide_line(Picture* pic, int32_t i) {
  const Guide* guide = &pic->plan->guides[i];
  const Meeting ends = meet(guide, pic->ends);
  if (ends.relation != CUTS) return;
  const Point p = ends.points[0].at, q = ends.points[1].at;
  begin_group(pic, i);
  put_line(pic, "class='thin'", p, q);
  put_guide(pic, i, &ends);
  const Point outside[] = {along(p, q, px(pic, -11)), along(q, p, px(pic, -11))};
  const Point bubble = take_place(pic, i, outside, 2);
  put_bubble(pic->svg, page_x(pic, bubble.x), page_y(pic, bubble.y), (int)i + 1);
  end_group(pic);
}

/* The shortest way between outline and line, of a line that misses with room for arrows. */
static void put_gap(Picture* pic, int32_t i) {
  const Meeting* m = &pic->meetings[i];
  const Guide* guide = &pic->plan->guides[i];
  const Point to = foot(line_through(guide->start, guide->end));
  if (m->gap < px(pic, 30) || distance(centre, to) >= pic->ends) return;
  const Point from = along(centre, to, pic->plan->outline.radius);
  const Point middle = along(from, to, m->gap / 2), r = along(centre, to, 1);
  begin_group(pic, i);
  put_line(pic, "class='arrow'", middle, to);
  put_line(pic, "class='arrow'", middle, from);
  end_group(pic);
  /* The number is wide: it keeps farther away from an upright arrow than from a level one. */
  const float away = px(pic, 11 + 14 * r.y * r.y);
  const Point places[] = {{middle.x - away * r.y, middle.y + away * r.x},
                          {middle.x + away * r.y, middle.y - away * r.x}};
  const Point p = take_place(pic, i, places, 2);
  put_text(pic->svg, "class='mid halo'", page_x(pic, p.x), page_y(pic, p.y), "%.1f",
           (double)m->gap);
}

/* In the middle of one of the four angles between outline and line, the wide ones outside first. */
static Point place_beside(Picture* pic, int32_t i, int32_t k) {
  const Meeting* m = &pic->meetings[i];
  const Point at = m->points[k].at, r = along(centre, at, 1), t = {-r.y, r.x};
  if (m->relation == TOUCHES) {
    const Point inside = along(at, centre, px(pic, 19)), outside = along(at, centre, px(pic, -19));
    return take_place(pic, i, (Point[]){outside, inside}, 2);
  }
  const Point u = along(centre, relative_to(m->points[1 - k].at, at), 1);
  const Point sum = {u.x + t.x, u.y + t.y}, difference = {u.x - t.x, u.y - t.y};
  const bool sum_is_wide = distance(centre, sum) < distance(centre, difference);
  const Point wide = along(centre, sum_is_wide ? sum : difference, px(pic, 19));
  const Point narrow = along(centre, sum_is_wide ? difference : sum, px(pic, 19));
  return take_place(pic, i,
                    (Point[]){{at.x + wide.x, at.y + wide.y},
                              {at.x + narrow.x, at.y + narrow.y},
                              {at.x - wide.x, at.y - wide.y},
                              {at.x - narrow.x, at.y - narrow.y}},
                    4);
}

static void put_points(Picture* pic, int32_t i) {
  const Meeting* m = &pic->meetings[i];
  begin_group(pic, i);
  for (int32_t k = 0; k < (int32_t)m->relation; k++) {
    const Point p = place_beside(pic, i, k);
    put_circle(pic, "class='dot'", m->points[k].at, px(pic, 4.5f));
    put_text(pic->svg, "class='number halo'", page_x(pic, p.x), page_y(pic, p.y), "%d%c",
             (int)i + 1, 'a' + (int)k);
  }
  end_group(pic);
}

static void put_list_row(const Picture* pic, int32_t i, double x, double y) {
  const Meeting* m = &pic->meetings[i];
  begin_group(pic, i);
  put_bubble(pic->svg, x + 11, y, (int)i + 1);
  put_name(pic->svg, "", x + 33, y, pic->plan->guides[i].name);
  put_text(pic->svg, "", x + 232, y, "%s", relations[m->relation]);
  if (m->relation == CUTS)
    put_text(pic->svg, "class='end'", x + 372, y, "chord %.1f", (double)m->chord);
  if (m->relation == MISSES)
    put_text(pic->svg, "class='end'", x + 372, y, "gap %.1f", (double)m->gap);
  end_group(pic);
}

static void put_key(const Picture* pic, double x, double y) {
  fprintf(pic->svg,
          "<g transform='translate(%.0f %.0f)'>\n"
          "<path class='grid' d='M0 0h372'/>\n"
          "<g class='cuts'><path class='guide arrow' d='M0 26h44'/>"
          "<path class='thin' d='M0 50h44'/><circle class='dot' cx='22' cy='74' r='4.5'/></g>\n"
          "<g class='touches'><circle class='dot' cx='22' cy='98' r='4.5'/></g>\n",
          x, y);
  put_text(pic->svg, "", 58, 26, "guide line, from its start to its end");
  put_text(pic->svg, "", 58, 50, "its continuation");
  put_text(pic->svg, "", 58, 74, "point where it cuts the outline");
  put_text(pic->svg, "", 58, 98, "point where it touches the outline");
  end_group(pic);
}

static void put_list(const Picture* pic) {
  const double x = (double)(left + size) + 30;
  double y = (double)top + 12;
  for (int32_t i = 0; i < pic->plan->guide_count; i++, y += ROW) put_list_row(pic, i, x, y);
  put_key(pic, x, y);
}

/* Room for the outline and for lines that miss it by not more than its radius. */
static float frame_reach(const Plan* plan, const Meeting meetings[]) {
  const float r = plan->outline.radius;
  float reach = 1.4f * r;
  for (int32_t i = 0; i < plan->guide_count; i++) {
    const float needed = 1.25f * (r + meetings[i].gap);
    if (meetings[i].gap <= r && needed > reach) reach = needed;
  }
  return reach;
}

/* What no label may hide. */
static void take_points(Picture* pic, int32_t i) {
  const Meeting* m = &pic->meetings[i];
  const Meeting ends = meet(&pic->plan->guides[i], pic->ends);
  for (int32_t k = 0; k < (int32_t)m->relation; k++) take(pic, m->points[k].at, i);
  for (int32_t k = 0; k < (int32_t)ends.relation; k++) take(pic, ends.points[k].at, i);
}

void draw(FILE* svg, const Plan* plan, const Meeting meetings[]) {
  Picture pic = {.svg = svg, .plan = plan, .meetings = meetings};
  const int frame = (int)(top + size) + 54, list = (int)top + ROW * plan->guide_count + 130;
  pic.reach = frame_reach(plan, meetings);
  pic.ends = pic.reach - px(&pic, 28);
  begin_picture(svg, PAGE_WIDTH, list > frame ? list : frame);
  put_styles(svg);
  put_arrows(svg);
  put_title(&pic);
  put_frame(&pic);
  put_outline(&pic);
  for (int32_t i = 0; i < plan->guide_count; i++) take_points(&pic, i);
  for (int32_t i = 0; i < plan->guide_count; i++) put_guide_line(&pic, i);
  put_scale_of_bearings(&pic);
  for (int32_t i = 0; i < plan->guide_count; i++) put_gap(&pic, i);
  for (int32_t i = 0; i < plan->guide_count; i++) put_points(&pic, i);
  put_list(&pic);
  fputs("</svg>\n", svg);
}
