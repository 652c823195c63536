#include "shapes.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "../frame/tolerance.h"

namespace kez {

void Section::add(Figure kind, float sign, std::initializer_list<Vec2> vertices) {
  assert(vertex_count_ + vertices.size() <= max_vertices && contour_count_ < max_contours);
  std::copy(vertices.begin(), vertices.end(), vertices_.begin() + vertex_count_);
  vertex_count_ += vertices.size();
  contours_[contour_count_++] = {static_cast<std::int32_t>(vertices.size()), kind, sign};
}

void Section::add_material(std::initializer_list<Vec2> vertices) {
  add(Figure::polygon, 1, vertices);
}

void Section::add_hole(std::initializer_list<Vec2> vertices) {
  add(Figure::polygon, -1, vertices);
}

void Section::report_vertex_count(std::int32_t count) {
  contours_[contour_count_ - 1].vertex_count = count;
}

namespace {

void add_rectangular_hole(Section& section, float left, float bottom, float right, float top) {
  section.add_hole({{left, top}, {left, bottom}, {right, bottom}, {right, top}});
}

// Two flanges and whatever lies between them out to y = +-e.
void add_lying(Section& section, Flanges f, float e) {
  const float a = f.d / 2;
  section.add_material({{-a, f.b1 / 2},
                        {-a, -f.b1 / 2},
                        {f.t1 - a, -f.b1 / 2},
                        {f.t1 - a, -e},
                        {a - f.t2, -e},
                        {a - f.t2, -f.b2 / 2},
                        {a, -f.b2 / 2},
                        {a, f.b2 / 2},
                        {a - f.t2, f.b2 / 2},
                        {a - f.t2, e},
                        {f.t1 - a, e},
                        {f.t1 - a, f.b1 / 2}});
}

// The same upright, out to x = +-e.
void add_standing(Section& section, Flanges f, float e) {
  const float a = f.d / 2;
  section.add_material({{-f.b1 / 2, a},
                        {-f.b1 / 2, a - f.t1},
                        {-e, a - f.t1},
                        {-e, f.t2 - a},
                        {-f.b2 / 2, f.t2 - a},
                        {-f.b2 / 2, -a},
                        {f.b2 / 2, -a},
                        {f.b2 / 2, f.t2 - a},
                        {e, f.t2 - a},
                        {e, a - f.t1},
                        {f.b1 / 2, a - f.t1},
                        {f.b1 / 2, a}});
}

void add_cell(Section& section, Flanges f, float bottom, float top) {
  const float a = f.d / 2;
  add_rectangular_hole(section, f.t1 - a, bottom, a - f.t2, top);
}

// A fillet between two legs at right angles is their triangle without the segment that the circle
// about the opposite corner of the square cuts from it.
struct Fillet {
  Vec2 corner, leg1, leg2;  // counter-clockwise

  Vec2 end1() const { return corner + leg1; }
  Vec2 end2() const { return corner + leg2; }
  Vec2 centre() const { return end1() + leg2; }
};

std::array<Fillet, 4> root_fillets(Flanges f, float tw, float r) {
  const float x = tw / 2, a = f.d / 2;
  return {{{{-x, a - f.t1}, {-r, 0}, {0, -r}},
           {{-x, f.t2 - a}, {0, r}, {-r, 0}},
           {{x, f.t2 - a}, {r, 0}, {0, r}},
           {{x, a - f.t1}, {0, -r}, {r, 0}}}};
}

// The inner face of a groove is parallel to its outer face at the distance t of the wall. Between
// web and side the wall turns by phi, and its inner corner lies t tan(phi / 2) farther along the
// web than the outer one. With the side's depth and its extent along the web,
// tan(phi / 2) = depth / (side + along).
float groove_mitre(Groove g, float t) {
  if (g.depth == 0) return 0;
  const float along = (g.width - g.bottom) / 2;
  return t * (g.depth / (std::sqrt(g.depth * g.depth + along * along) + along));
}

void add_lipped(Section& section, const FoldedChannel& channel) {
  const auto [depth, width, bottom] = channel.groove;
  const float x = channel.b / 2, y = channel.h / 2, c = channel.c, t = channel.t, r = channel.r;
  const float mitre = groove_mitre(channel.groove, t);
  section.add_material({{-x, y},
                        {-x, width / 2},
                        {depth - x, bottom / 2},
                        {depth - x, -bottom / 2},
                        {-x, -width / 2},
                        {-x, -y},
                        {x, -y},
                        {x, c - y},
                        {x - t - r, c - y},
                        {x - t - r, c - y - t},
                        {x - t, c - y - t},
                        {x - t, t - y},
                        {t - x, t - y},
                        {t - x, -width / 2 - mitre},
                        {t - x + depth, -bottom / 2 - mitre},
                        {t - x + depth, bottom / 2 + mitre},
                        {t - x, width / 2 + mitre},
                        {t - x, y - t},
                        {x - t, y - t},
                        {x - t, y - c + t},
                        {x - t - r, y - c + t},
                        {x - t - r, y - c},
                        {x, y - c},
                        {x, y}});
}

void add_plain(Section& section, float b, float h, float t) {
  const float x = b / 2, y = h / 2;
  section.add_material(
      {{-x, y}, {-x, -y}, {x, -y}, {x, t - y}, {t - x, t - y}, {t - x, y - t}, {x, y - t}, {x, y}});
}

// The nearest of 0, 1 and 2, for any real.
std::size_t slot_count(float count) {
  if (count >= 1.5f) return 2;
  return count >= 0.5f ? 1 : 0;
}

void add_web_slots(Section& section, const FoldedChannel& channel) {
  const auto [width, place, count] = channel.web;
  const float x = channel.b / 2, centres[] = {-place, place};
  for (std::size_t i = 0; i < slot_count(count); ++i) {
    add_rectangular_hole(section, -x, centres[i] - width / 2, channel.t - x,
                         centres[i] + width / 2);
  }
}

void add_flange_slots(Section& section, const FoldedChannel& channel) {
  const auto [width, place, count] = channel.flange;
  const float x = channel.b / 2, y = channel.h / 2, centres[] = {place - x, x - place};
  for (std::size_t i = 0; i < slot_count(count); ++i) {
    const float left = centres[i] - width / 2, right = centres[i] + width / 2;
    add_rectangular_hole(section, left, y - channel.t, right, y);
    add_rectangular_hole(section, left, -y, right, channel.t - y);
  }
}

}  // namespace

Section flat_bar(std::int32_t b, float h) {
  const float x = static_cast<float>(b) / 2, y = h / 2;
  Section section;
  section.add_material({{-x, y}, {-x, -y}, {x, -y}, {x, y}});
  section.report_vertex_count(12);  // Deliberate: not 4 (kezsec_b).
  return section;
}

Section tee(float b, float h, float tf, float tw) {
  Section section;
  section.add_material({{-b / 2, h / 2},
                        {-b / 2, h / 2 - tf},
                        {-tw / 2, h / 2 - tf},
                        {-tw / 2, -h / 2},
                        {tw / 2, -h / 2},
                        {tw / 2, h / 2 - tf},
                        {b / 2, h / 2 - tf},
                        {b / 2, h / 2}});
  return section;
}

Section lying_i(Flanges flanges, float tw) {
  Section section;
  add_lying(section, flanges, tw / 2);
  return section;
}

Section standing_i(Flanges flanges, float tw) {
  Section section;
  add_standing(section, flanges, tw / 2);
  return section;
}

Section one_cell(Flanges flanges, float tw, float s) {
  Section section;
  add_lying(section, flanges, s / 2 + tw);
  add_cell(section, flanges, -s / 2, s / 2);
  return section;
}

Section two_cells(Flanges flanges, float tw, float s) {
  Section section;
  add_lying(section, flanges, tw / 2 + s + tw);
  add_cell(section, flanges, tw / 2, tw / 2 + s);
  add_cell(section, flanges, -tw / 2 - s, -tw / 2);
  return section;
}

Section box_girder(BoxPlates p) {
  Section section;
  add_standing(section, {p.h, p.bt, p.bb, p.tt, p.tb}, p.s / 2 + p.tw);
  add_rectangular_hole(section, -p.s / 2, p.tb - p.h / 2, p.s / 2, p.h / 2 - p.tt);
  return section;
}

Section tabbed_box(TabbedBox box) {
  const float x = box.b / 2, y = box.h / 2;
  const float over = box.y + box.tt / 2, under = box.y - box.tt / 2;
  Section section;
  section.add_material({{-x, y},
                        {-x, over},
                        {-x - box.w, over},
                        {-x - box.w, under},
                        {-x, under},
                        {-x, -y},
                        {x, -y},
                        {x, under},
                        {x + box.w, under},
                        {x + box.w, over},
                        {x, over},
                        {x, y}});
  add_rectangular_hole(section, box.tw - x, box.tf - y, x - box.tw, y - box.tf);
  return section;
}

Section hollow_rectangle(float b, float h, float t) {
  const float x = b / 2, y = h / 2, inner_x = (b - 2 * t) / 2, inner_y = (h - 2 * t) / 2;
  Section section;
  section.add_material({{-x, y}, {-x, -y}, {x, -y}, {x, y}});
  add_rectangular_hole(section, -inner_x, -inner_y, inner_x, inner_y);
  return section;
}

Section double_angle(float a, float h, float s, float th, float tv) {
  const float w = a + s / 2, face = tv + s / 2, y = h / 2;
  Section section;
  section.add_material(
      {{-w, y}, {-w, y - th}, {-face, y - th}, {-face, -y}, {-s / 2, -y}, {-s / 2, y}});
  section.add_material({{s / 2, y}, {s / 2, -y}, {face, -y}, {face, y - th}, {w, y - th}, {w, y}});
  return section;
}

Section folded_channel(const FoldedChannel& channel) {
  Section section;
  if (above_tolerance(channel.c)) {
    add_lipped(section, channel);
  } else {
    add_plain(section, channel.b, channel.h, channel.t);
  }
  add_web_slots(section, channel);
  add_flange_slots(section, channel);
  return section;
}

Section rolled_i(Flanges flanges, RolledDetails details) {
  Section section;
  add_standing(section, flanges, details.tw / 2);
  const auto fillets = root_fillets(flanges, details.tw, details.r);
  for (const Fillet& fillet : fillets) {
    section.add_material({fillet.corner, fillet.end1(), fillet.end2()});
  }
  for (const Fillet& fillet : fillets) {
    section.add(Figure::segment, -1, {fillet.centre(), fillet.end1(), fillet.end2()});
  }
  const float a = flanges.d / 2, g = details.gauge / 2, half_hole = details.hole / 2;
  add_rectangular_hole(section, -g - half_hole, -a, -g + half_hole, flanges.t2 - a);
  add_rectangular_hole(section, g - half_hole, -a, g + half_hole, flanges.t2 - a);
  return section;
}

}  // namespace kez
