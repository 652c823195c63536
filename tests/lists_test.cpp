// Properties of principal axes, polygons and slabs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "lists/lists.h"
#include "lists/polygons.h"
#include "lists/principal_axes.h"
#include "lists/slabs.h"
#include "random.h"

namespace kez {
namespace {

using test::Random;
using Integers = std::vector<std::int32_t>;
using Reals = std::vector<float>;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();

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

// A polygon around the origin of either sense, with room to close it.
struct Star {
  Reals xs, ys;
  std::size_t n() const { return xs.size() - 1; }
  PlanePoints points() { return {xs.data(), ys.data(), xs.size()}; }
};

Star any_star(Random& random) {
  Star star;
  const int n = random.integer(3, 20), sense = random.integer(0, 1) ? 1 : -1;
  for (int i = 0; i < n; ++i) {
    const float angle = 6.2831855f * static_cast<float>(sense * i) / static_cast<float>(n) + 0.1f;
    const float radius = random.real(1, 6);
    star.xs.push_back(radius * std::cos(angle));
    star.ys.push_back(radius * std::sin(angle));
  }
  star.xs.push_back(nan);
  star.ys.push_back(nan);
  return star;
}

double twice_area(const float* x, const float* y, std::size_t n) {
  double area = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t j = (i + 1) % n;
    area += double(x[i]) * double(y[j]) - double(x[j]) * double(y[i]);
  }
  return area;
}

TEST(Polygons, PointIsInsideWhereTheOutlineWindsRoundIt) {
  Random random(66);
  int inside = 0, outside = 0;
  for (int round = 0; round < 5000; ++round) {
    Star star = any_star(random);
    const Vec2 p = {random.real(-6, 6), random.real(-6, 6)};
    float winding = 0;
    bool clear = true;
    for (std::size_t i = 0; i < star.n(); ++i) {
      const std::size_t j = (i + 1) % star.n();
      const float ux = star.xs[i] - p.x, uy = star.ys[i] - p.y;
      const float wx = star.xs[j] - p.x, wy = star.ys[j] - p.y;
      const float turn = std::atan2(ux * wy - uy * wx, ux * wx + uy * wy);
      winding += turn;
      clear &= std::fabs(turn) < 3.1f && std::fabs(uy) > 1e-2f;
    }
    if (!clear) continue;
    const bool is_inside = std::fabs(winding) > 3;
    ++(is_inside ? inside : outside);
    EXPECT_EQ(locate_in_polygon(star.points(), p),
              is_inside ? PolygonPosition::inside : PolygonPosition::outside);
  }
  EXPECT_GT(std::min(inside, outside), 1000);
}

TEST(Polygons, AreasOfBothPartsAddUp) {
  Random random(67);
  for (int round = 0; round < 5000; ++round) {
    Star star = any_star(random);
    const float shift = 0.5f * static_cast<float>(random.integer(-6, 6));
    for (float& y : star.ys) y += shift;
    const std::size_t n = star.n();
    Reals x1(2 * n), y1(2 * n), x2(2 * n), y2(2 * n);
    PolygonPart upper({x1.data(), y1.data(), 2 * n}), lower({x2.data(), y2.data(), 2 * n});
    const float length = cut_polygon(star.points(), {0, 1, 0}, upper, lower);
    const auto n1 = static_cast<std::size_t>(upper.count());
    const auto n2 = static_cast<std::size_t>(lower.count());
    const double parts =
        twice_area(x1.data(), y1.data(), n1) + twice_area(x2.data(), y2.data(), n2);
    EXPECT_NEAR(parts, twice_area(star.xs.data(), star.ys.data(), n), 1e-3);
    EXPECT_TRUE(std::all_of(&y1[0], &y1[0] + n1, [](float y) { return y >= -1e-5f; }));
    EXPECT_TRUE(std::all_of(&y2[0], &y2[0] + n2, [](float y) { return y <= 1e-5f; }));
    EXPECT_EQ(length > 0, n1 + n2 > n + 1);
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
      EXPECT_EQ(locate_in_slab(slab, points, codes[s].data()).has_value(), k > 0);
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
      return Integers(out.begin(), out.begin() + *select_points(box, selection, out.data()));
    };
    EXPECT_EQ(selected(BoxSelection::on_faces), faces);
    EXPECT_EQ(selected(BoxSelection::inside), inside);
    EXPECT_EQ(selected(BoxSelection::both), both);
  }
}

}  // namespace
}  // namespace kez
