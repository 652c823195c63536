// Properties of principal axes, polygons and slabs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ranges>

#include "lists/lists.h"
#include "lists/polygons.h"
#include "lists/principal_axes.h"
#include "lists/slabs.h"
#include "polygons.h"
#include "random.h"

namespace kez {
namespace {

using test::Outline;
using test::Random;
using Integers = std::vector<std::int32_t>;
using Reals = std::vector<float>;

TEST(PrincipalAxes, HaveNoProductMoment) {
  Random random(65);
  for (int round = 0; round < 5000; ++round) {
    const float p = random.real(0.5f, 10), q = random.real(0.5f, 10), r = random.coordinate();
    const PrincipalAxes axes = principal_axes(p, q, r);
    const float two_theta = 2 * axes.theta;
    EXPECT_NEAR(axes.u + axes.v, p + q, 1e-4f);
    EXPECT_NEAR(r * std::cos(two_theta) + (p - q) / 2 * std::sin(two_theta), 0, 1e-4f);
    EXPECT_LE(std::fabs(axes.theta), 0.78539824f);
    EXPECT_NEAR(axes.u * axes.v, p * q - r * r, 1e-2f);
  }
}

// A polygon around the origin, of either sense.
Outline any_star(Random& random) {
  const Outline star = test::random_star(random, random.integer(3, 20), 1, 6);
  return random.integer(0, 1) ? star : test::reversed(star);
}

TEST(Polygons, PointIsInsideWhereTheOutlineWindsRoundIt) {
  Random random(66);
  int inside = 0, outside = 0;
  for (int round = 0; round < 5000; ++round) {
    const Outline star = any_star(random);
    const Vec2 p = {random.real(-6, 6), random.real(-6, 6)};
    const test::Polygon polygon = star.polygon();
    // Nearer to a vertex's height the interface promises no answer; an edge may not be nearer.
    const auto in_doubt = [&](std::size_t i) {
      const test::Point u = polygon[i] - test::widened(p);
      const test::Point w = polygon[(i + 1) % polygon.size()] - test::widened(p);
      return std::fabs(u.y) < 1e-2 || std::fabs(test::turn(u, w)) > 3.1;
    };
    const auto indexes = std::views::iota(std::size_t{0}, polygon.size());
    if (std::ranges::any_of(indexes, in_doubt)) continue;
    const bool is_inside = winding_number(polygon, test::widened(p)) != 0;
    ++(is_inside ? inside : outside);
    Outline outline = test::closable(star);
    EXPECT_EQ(relate_point_polygon(outline.points(), p),
              is_inside ? PolygonPosition::inside : PolygonPosition::outside);
  }
  EXPECT_GT(std::min(inside, outside), 1000);
}

PolygonPosition locate(const std::vector<Vec2>& vertices, Vec2 p) {
  Outline outline;
  for (const Vec2 v : vertices) outline.add(v);
  outline = test::closable(outline);
  return relate_point_polygon(outline.points(), p);
}

// A point beside the middle of an edge counts as on it while the rays to its ends make a cosine
// within 1e-5 of -1: for one 2 wide up to a distance of sqrt(0.5e-5).
TEST(Polygons, BoundaryIsAsWideAsTheTolerances) {
  std::vector<Vec2> dome = {{-1, 0}, {1, 0}};
  for (int i = 1; i < 40; ++i) dome.push_back(test::polar(4, 0.075f * static_cast<float>(i)));
  for (std::size_t start = 0; start < dome.size(); ++start) {
    std::rotate(dome.begin(), dome.begin() + 1, dome.end());
    for (const float below : {2.1e-3f, 2.4e-3f, 0.02f}) {
      const bool near = below < 2.2e-3f;
      EXPECT_EQ(locate(dome, {0, -below}),
                near ? PolygonPosition::on_boundary : PolygonPosition::outside);
      EXPECT_EQ(locate(dome, {0, below}),
                near ? PolygonPosition::on_boundary : PolygonPosition::inside);
    }
  }
  // Beyond the tip of a needle only the tolerance of the tip itself counts.
  const std::vector<Vec2> needle = {{-1e-6f, 0}, {1e-6f, 0}, {0, 1}};
  EXPECT_EQ(locate(needle, {0, 1 + 5e-6f}), PolygonPosition::on_boundary);
  EXPECT_EQ(locate(needle, {0, 1 + 2e-5f}), PolygonPosition::outside);
}

TEST(Polygons, AreasOfBothPartsAddUp) {
  Random random(67);
  for (int round = 0; round < 5000; ++round) {
    Outline star = any_star(random);
    const float shift = 0.5f * static_cast<float>(random.integer(-6, 6));
    for (float& y : star.ys) y += shift;
    const std::size_t n = star.xs.size();
    const auto room = [n] { return Outline{Reals(2 * n), Reals(2 * n)}; };
    Outline closed = test::closable(star), above = room(), below = room();
    PolygonPart upper(above.points()), lower(below.points());
    const float length = cut_polygon(closed.points(), {0, 1, 0}, upper, lower);
    const auto trim = [](Outline& outline, std::int32_t count) {
      outline.xs.resize(static_cast<std::size_t>(count));
      outline.ys.resize(static_cast<std::size_t>(count));
    };
    trim(above, upper.count());
    trim(below, lower.count());
    EXPECT_NEAR(area(above.polygon()) + area(below.polygon()), area(star.polygon()), 1e-3);
    EXPECT_TRUE(std::ranges::all_of(above.ys, [](float y) { return y >= -1e-5f; }));
    EXPECT_TRUE(std::ranges::all_of(below.ys, [](float y) { return y <= 1e-5f; }));
    EXPECT_EQ(length > 0, above.xs.size() + below.xs.size() > n + 1);
  }
}

TEST(Slabs, BoxHoldsWhatItsListsSay) {
  Random random(68);
  for (int round = 0; round < 500; ++round) {
    const int n = random.integer(0, 60);
    const auto draw = [&] { return random.coordinate(); };
    const Reals xs = random.list(n, draw), ys = random.list(n, draw), zs = random.list(n, draw);
    const ConstSpacePoints points = {xs.data(), ys.data(), zs.data(), xs.size()};
    std::vector<Integers> codes(3, Integers(xs.size()));
    Integers faces, inside;
    for (std::size_t s = 0; s < 3; ++s) {
      // Between e . p = -2 and e . p = 2, where e is a direction with whole components.
      const float ex = s == 0 ? 1.0f : 0.0f, ey = s == 1 ? -2.0f : 1.0f, ez = s == 2 ? 2.0f : 0.0f;
      const float k = random.integer(0, 1) ? 1.0f : -2.0f;
      const Slab slab = {{ex, ey, ez, 2}, {k * ex, k * ey, k * ez, k * -2}};
      EXPECT_EQ(relate_points_slab(slab, points, codes[s]).has_value(), k > 0);
      for (std::size_t i = 0; i < xs.size(); ++i) {
        const double d =
            double(ex) * double(xs[i]) + double(ey) * double(ys[i]) + double(ez) * double(zs[i]);
        if (std::fabs(std::fabs(d) - 2) < 1e-4 && std::fabs(d) != 2) continue;
        EXPECT_EQ(codes[s][i], d == -2 ? 1 : d == 2 ? 2 : std::fabs(d) < 2 ? 3 : 4);
      }
      Integers between;
      for (int i = 1; i <= n; ++i) {
        const auto code = codes[s][std::size_t(i) - 1];
        if (code == 1 || code == 2) faces.push_back(i);
        if (code == 3) between.push_back(i);
      }
      if (s == 0) inside = between;
      inside.insert(inside.end(), between.begin(), between.end());
      inside.resize(static_cast<std::size_t>(keep_repeated(inside)));
    }
    faces.resize(static_cast<std::size_t>(keep_distinct(std::span(faces))));
    Integers both = faces, out(xs.size());
    both.insert(both.end(), inside.begin(), inside.end());
    const BoxPositions box = {codes[0], codes[1], codes[2]};
    const auto selected = [&](BoxSelection selection) {
      return Integers(out.begin(), out.begin() + *select_points(box, selection, out));
    };
    EXPECT_EQ(selected(BoxSelection::on_faces), faces);
    EXPECT_EQ(selected(BoxSelection::inside), inside);
    EXPECT_EQ(selected(BoxSelection::both), both);
  }
}

}  // namespace
}  // namespace kez
