// Properties of section outlines and design values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "frame/tables.h"
#include "polygons.h"
#include "random.h"
#include "sections/channel.h"
#include "sections/plate_buckling.h"
#include "sections/shapes.h"

namespace kez {
namespace {

using test::area;
using test::Point;
using test::Polygon;
using test::Random;
using test::widened;

constexpr int rounds = 2000;

// Twice the area of a triangle.
double cross(Point o, Point p, Point q) {
  return cross(p - o, q - o);
}

double segment_area(Point centre, Point p, Point q) {
  const double r = std::hypot(p.x - centre.x, p.y - centre.y);
  return r * r / 2 * std::numbers::pi / 2 - std::fabs(cross(centre, p, q)) / 2;
}

std::vector<Polygon> polygons(const Section& section) {
  std::vector<Polygon> all;
  auto vertex = section.vertices().begin();
  for (const Contour& contour : section.contours()) {
    Polygon& polygon = all.emplace_back();
    for (int i = 0; i < contour.vertex_count; ++i, ++vertex) polygon.push_back(widened(*vertex));
  }
  EXPECT_EQ(vertex, section.vertices().end());
  return all;
}

double area(const Section& section) {
  double total = 0;
  const auto parts = polygons(section);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const Contour& contour = section.contours()[i];
    total +=
        static_cast<double>(contour.sign) *
        (contour.kind == Figure::polygon ? area(parts[i])
                                         : segment_area(parts[i][0], parts[i][1], parts[i][2]));
  }
  return total;
}

bool edges_cross(Point a, Point b, Point c, Point d) {
  return cross(a, b, c) * cross(a, b, d) < 0 && cross(c, d, a) * cross(c, d, b) < 0;
}

bool polygons_cross(const Polygon& p, const Polygon& q) {
  for (std::size_t i = 0; i < p.size(); ++i) {
    for (std::size_t k = 0; k < q.size(); ++k) {
      if (edges_cross(p[i], p[(i + 1) % p.size()], q[k], q[(k + 1) % q.size()])) return true;
    }
  }
  return false;
}

Point middle(const Polygon& rectangle) {
  return {(rectangle[0].x + rectangle[2].x) / 2, (rectangle[0].y + rectangle[2].y) / 2};
}

bool is_mirrored(const Section& section, float sx, float sy) {
  const auto vertices = section.vertices();
  return std::ranges::all_of(vertices, [&](Vec2 v) {
    return std::ranges::any_of(vertices,
                               [&](Vec2 w) { return w.x == sx * v.x && w.y == sy * v.y; });
  });
}

struct Sample {
  Section section;
  float area;
  bool stands;  // symmetric about the y axis, not the x axis
};

float i_area(Flanges f, float web) {
  return f.b1 * f.t1 + f.b2 * f.t2 + (f.d - f.t1 - f.t2) * web;
}

Sample folded_sample(Random& random) {
  const auto a_third = [&](float whole) { return random.real(0.05f, 0.3f) * whole; };
  FoldedChannel c{random.real(60, 120), random.real(150, 300), 0, random.real(1, 4), 0, {}, {}, {}};
  float length = c.h - c.t + 2 * (c.b - c.t);
  if (random.integer(0, 1) == 1) {
    c.c = random.real(15, 40);
    c.r = random.real(0, 20);
    c.groove = {random.real(0, 15), a_third(c.h), 0};
    c.groove.bottom = random.real(0, 1) * c.groove.width;
    const float along = (c.groove.width - c.groove.bottom) / 2;
    length += 2 * std::hypot(c.groove.depth, along) - 2 * along + 2 * (c.c - c.t / 2 + c.r);
  } else {
    length += c.t;  // the flanges reach to their edges, without the corner of a lip
  }
  c.web = {a_third(c.h) / 3, 0.3f * c.h, random.integer(0, 1) == 1 ? 2.0f : 0.0f};
  c.flange = {a_third(c.b), 0.25f * c.b, static_cast<float>(random.integer(0, 2))};
  const float slots = c.web.count * c.web.width + 2 * c.flange.count * c.flange.width;
  return {folded_channel(c), (length - slots) * c.t, false};
}

// Every shape with dimensions that a mill or a workshop might give it.
std::vector<Sample> samples(Random& random) {
  const float b = random.real(100, 300), h = random.real(150, 900), tw = random.real(5, 12);
  const float tf = random.real(8, 25), s = random.real(0, 20), r = random.real(0, 25);
  const Flanges f{h, random.real(90, 300), random.real(90, 300), tf, random.real(8, 25)};
  const auto bar = static_cast<std::int32_t>(b);
  const float dh = random.real(0, 12), tab = random.real(10, 30);
  const float fillets = (4 - std::numbers::pi_v<float>)*r * r;
  const float box_area = i_area(f, 2 * tw), angle_area = 2 * (b * tf + (h - tf) * tw);
  Section plate = flat_bar(bar, h);
  plate.report_vertex_count(4);
  return {{plate, static_cast<float>(bar) * h, true},
          {tee(b, h, tf, tw), b * tf + (h - tf) * tw, true},
          {lying_i(f, tw), i_area(f, tw), false},
          {standing_i(f, tw), i_area(f, tw), true},
          {one_cell(f, tw, s), i_area(f, 2 * tw), false},
          {two_cells(f, tw, s), i_area(f, 3 * tw), false},
          {box_girder({f.b1, f.b2, f.t1, f.t2, h, tw, s}), box_area, true},
          {tabbed_box({b, h, tf, tw, tab, tw, random.real(-0.3f, 0.3f) * h}),
           2 * b * tf + 2 * (h - 2 * tf) * tw + 2 * tab * tw, true},
          {hollow_rectangle(b, h, tw), b * h - (b - 2 * tw) * (h - 2 * tw), true},
          {double_angle(b, h, s, tf, tw), angle_area, true},
          {rolled_i(f, {tw, r, dh, 70}), i_area(f, tw) + fillets - 2 * dh * f.t2, true},
          folded_sample(random)};
}

TEST(Outlines, HaveTheAreaOfTheirPlates) {
  Random random(1);
  for (int i = 0; i < rounds; ++i) {
    for (const Sample& sample : samples(random)) {
      EXPECT_NEAR(area(sample.section) / static_cast<double>(sample.area), 1, 2e-5);
    }
  }
}

TEST(Outlines, AreSimpleCounterClockwiseAndSymmetric) {
  Random random(2);
  for (int i = 0; i < rounds / 10; ++i) {
    for (const Sample& sample : samples(random)) {
      EXPECT_TRUE(is_mirrored(sample.section, sample.stands ? -1 : 1, sample.stands ? 1 : -1));
      const auto contours = sample.section.contours();
      const auto parts = polygons(sample.section);
      for (std::size_t k = 0; k < parts.size(); ++k) {
        EXPECT_FALSE(polygons_cross(parts[k], parts[k]));
        if (contours[k].kind != Figure::polygon) continue;
        EXPECT_GE(area(parts[k]), 0);
        if (contours[k].sign > 0) continue;
        EXPECT_FALSE(polygons_cross(parts[k], parts[0]));
        EXPECT_EQ(winding_number(parts[0], middle(parts[k])), 1);
      }
    }
  }
}

TEST(PlateBuckling, EffectiveWidthGrowsWithThicknessUpToTheWhole) {
  Random random(3);
  for (int i = 0; i < rounds; ++i) {
    const float b = random.real(100, 2000), b_bar = random.real(0.3f, 1) * b;
    const float s1 = random.real(1, 300), s2 = random.real(-4, 1) * s1;
    float before = 0;
    for (float t = 1; t < 100; t *= 1.5f) {
      const auto parts = effective_parts({b, t, 18.8f, 15.33f}, b_bar, s1, s2);
      ASSERT_TRUE(parts);
      const float sum = parts->at_first + parts->at_second;
      EXPECT_GE(std::min(parts->at_first, parts->at_second), 0);
      EXPECT_GE(sum, before * 0.999999f);
      EXPECT_LE(sum, b_bar * 1.000001f);
      before = sum;
    }
    EXPECT_NEAR(before / b_bar, 1, 1e-6f);
  }
}

// The slenderness of the full stiffener, of which chi = f(sqrt(chi) lambda) is the settled factor.
float slenderness_of(float chi) {
  return chi < 0.48f ? 0.66f / (chi * std::sqrt(chi)) : (1.47f - chi) / (0.723f * std::sqrt(chi));
}

TEST(PlateBuckling, StiffenerIsReducedToAFixedPoint) {
  Random random(4);
  int pairs = 0;
  for (int i = 0; i < rounds; ++i) {
    Stiffener stiffener{random.real(1, 3),
                        random.real(5, 20),
                        random.real(50, 100),
                        random.real(10, 30),
                        random.real(100, 300),
                        random.real(100, 2000),
                        210000,
                        0.3f,
                        random.integer(0, 2)};
    const auto [chi, t_red] = reduce_stiffener(stiffener);
    EXPECT_EQ(t_red, chi * stiffener.t);
    EXPECT_TRUE(0 <= chi && chi <= 1);
    stiffener.fy *= 4;
    const float of_twice = reduce_stiffener(stiffener).chi;
    if (chi == 0 || chi == 1 || of_twice == 0) continue;
    ++pairs;
    EXPECT_NEAR(slenderness_of(of_twice) / slenderness_of(chi), 2, 0.03f);
  }
  EXPECT_GT(pairs, rounds / 4);
}

// A thin wall along the nodes of its centre-line, with functions that are linear between them.
struct ThinWall {
  std::vector<Point> nodes;
  double t;

  template <typename F, typename G>
  double integral(F f, G g) const {
    double sum = 0;
    for (std::size_t i = 1; i < nodes.size(); ++i) {
      const double length = std::hypot(nodes[i].x - nodes[i - 1].x, nodes[i].y - nodes[i - 1].y);
      sum += length / 6 *
             (2 * f(i - 1) * g(i - 1) + f(i - 1) * g(i) + f(i) * g(i - 1) + 2 * f(i) * g(i));
    }
    return sum * t;
  }

  // Twice the area that the ray from the pole sweeps, from the first node on.
  std::vector<double> sectorial(Point pole) const {
    std::vector<double> omega{0};
    for (std::size_t i = 1; i < nodes.size(); ++i) {
      omega.push_back(omega.back() + cross(pole, nodes[i - 1], nodes[i]));
    }
    return omega;
  }
};

// Vlasov's theory, for a wall that is symmetric about the x axis: where the product moment of the
// sectorial area and y vanishes lies the shear centre, and the warping constant is the second
// moment of the sectorial area about its mean.
struct Constants {
  double offset, warping;
};

Constants vlasov(const ThinWall& wall) {
  const auto one = [](std::size_t) { return 1.0; };
  const auto x = [&](std::size_t i) { return wall.nodes[i].x; };
  const auto y = [&](std::size_t i) { return wall.nodes[i].y; };
  const double area = wall.integral(one, one);
  const auto about_origin = wall.sectorial({0, 0});
  const auto omega0 = [&](std::size_t i) { return about_origin[i]; };
  const double pole = wall.integral(omega0, y) / wall.integral(y, y);
  const auto about_pole = wall.sectorial({pole, 0});
  const auto omega = [&](std::size_t i) { return about_pole[i]; };
  const double mean = wall.integral(omega, one) / area;
  return {wall.integral(x, one) / area - pole, wall.integral(omega, omega) - mean * mean * area};
}

ThinWall centre_line(Channel channel) {
  const float t = channel.t, b = channel.flange - t, h = (channel.height - t) / 2;
  const float c = channel.lip > 0 ? channel.lip - t / 2 : 0;
  ThinWall wall{{}, static_cast<double>(t)};
  for (const Vec2 node :
       {Vec2{b, h - c}, Vec2{b, h}, Vec2{0, h}, Vec2{0, -h}, Vec2{b, -h}, Vec2{b, c - h}}) {
    wall.nodes.push_back(widened(node));
  }
  return wall;
}

TEST(Channels, ConstantsAreThoseOfVlasovsTheory) {
  Random random(5);
  for (int i = 0; i < rounds; ++i) {
    const Channel channel{random.real(40, 120), random.real(80, 400),
                          random.integer(0, 1) == 1 ? random.real(10, 35) : 0, random.real(1, 6)};
    const auto [offset, warping] = vlasov(centre_line(channel));
    EXPECT_NEAR(static_cast<double>(shear_centre_offset(channel)) / offset, 1, 2e-6);
    EXPECT_NEAR(static_cast<double>(warping_constant(channel)) / warping, 1, 5e-5);
  }
}

TEST(Channels, LipOfHalfTheWallIsNone) {
  Random random(6);
  for (int i = 0; i < rounds; ++i) {
    Channel plain{random.real(40, 120), random.real(80, 400), 0, random.real(1, 6)};
    Channel lipped = plain;
    lipped.lip = lipped.t / 2;
    EXPECT_NEAR(shear_centre_offset(lipped) / shear_centre_offset(plain), 1, 1e-6f);
    EXPECT_NEAR(warping_constant(lipped) / warping_constant(plain), 1, 5e-5f);
  }
}

TEST(RangeLookup, AgreesWithBinarySearch) {
  Random random(7);
  for (int i = 0; i < rounds; ++i) {
    auto x = random.list(random.integer(0, 12), [&] { return random.coordinate(); });
    std::ranges::sort(x);
    const auto [low, high] = std::minmax({random.coordinate(), random.coordinate()});
    std::vector<std::int32_t> positions(x.size());
    const auto found = find_range(x, low, high, positions);

    const auto first = std::ranges::lower_bound(x, low), last = std::ranges::upper_bound(x, high);
    if (first != last) {
      ASSERT_TRUE(found);
      EXPECT_EQ(found->count, last - first);
      EXPECT_EQ(x[static_cast<std::size_t>(positions[0]) - 1] - low, found->below);
      EXPECT_EQ(high - *(last - 1), found->above);
      EXPECT_EQ(positions[0], first - x.begin() + 1);
    } else {
      const bool enclosed = first != x.begin() && first != x.end();
      ASSERT_EQ(found.has_value(), enclosed);
      if (!enclosed) continue;
      EXPECT_EQ(found->count, 2);
      EXPECT_EQ(positions[1], first - x.begin() + 1);
    }
  }
}

TEST(Contours, FollowOneAnother) {
  Random random(8);
  for (int i = 0; i < rounds; ++i) {
    const auto counts = random.list(random.integer(1, 9), [&] { return random.integer(0, 5); });
    std::int32_t end = 0;
    for (std::size_t n = 1; n <= counts.size(); ++n) {
      const auto block = last_block(std::span(counts).first(n));
      ASSERT_EQ(block.has_value(), counts[n - 1] > 0);
      if (!block) continue;
      EXPECT_EQ(block->offset, end);
      end += block->count;
    }
  }
}

TEST(Contours, EndWithinTheLargestArray) {
  constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
  const std::int32_t fits[] = {most - 2, 2}, too_long[] = {most - 2, 3};
  EXPECT_TRUE(last_block(fits));
  EXPECT_FALSE(last_block(too_long));
}

}  // namespace
}  // namespace kez
