// The shapes of steel sections: contours of vertices about the middle of the section.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "../frame/types.h"

namespace kez {

struct Contour {
  std::int32_t vertex_count;
  Figure kind;
  float sign;  // 1 for material, -1 for what is cut out of it
};

class Section {
 public:
  static constexpr std::size_t max_vertices = 48, max_contours = 11;

  void add(Figure kind, float sign, std::initializer_list<Vec2> vertices);
  void add_material(std::initializer_list<Vec2> vertices);
  void add_hole(std::initializer_list<Vec2> vertices);
  // What the last contour gives as its number of vertices, whatever it holds.
  void report_vertex_count(std::int32_t count);

  std::span<const Vec2> vertices() const { return {vertices_.data(), vertex_count_}; }
  std::span<const Contour> contours() const { return {contours_.data(), contour_count_}; }

 private:
  std::array<Vec2, max_vertices> vertices_;
  std::array<Contour, max_contours> contours_;
  std::size_t vertex_count_ = 0, contour_count_ = 0;
};

// Flange 1 is the left one of a section that lies, the upper one of a section that stands.
struct Flanges {
  float d, b1, b2, t1, t2;
};

struct BoxPlates {
  float bt, bb, tt, tb, h, tw, s;
};

struct TabbedBox {
  float b, h, tf, tw, w, tt, y;
};

struct Groove {
  float depth, width, bottom;
};

struct Slots {
  float width, place, count;
};

struct FoldedChannel {
  float b, h, c, t, r;
  Groove groove;
  Slots web, flange;
};

struct RolledDetails {
  float tw, r, hole, gauge;
};

Section flat_bar(std::int32_t b, float h);
Section tee(float b, float h, float tf, float tw);
Section lying_i(Flanges flanges, float tw);
Section standing_i(Flanges flanges, float tw);
Section one_cell(Flanges flanges, float tw, float s);
Section two_cells(Flanges flanges, float tw, float s);
Section box_girder(BoxPlates plates);
Section tabbed_box(TabbedBox box);
Section hollow_rectangle(float b, float h, float t);
Section double_angle(float a, float h, float s, float th, float tv);
Section folded_channel(const FoldedChannel& channel);
Section rolled_i(Flanges flanges, RolledDetails details);

}  // namespace kez
