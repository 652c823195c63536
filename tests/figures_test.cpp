// Properties of plane figures, convexity, feet and vertex angles.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "circles/directions.h"
#include "circles/figures.h"
#include "frame/point_lists.h"
#include "frame/points.h"
#include "polygons.h"
#include "random.h"

namespace kez {
namespace {

using test::closable;
using test::Outline;
using test::polar;
using test::Random;
using test::random_star;

constexpr int rounds = 5000;

Outline moved(const Outline& outline, Vec2 origin) {
  Outline result = outline;
  translate(result.points(), origin);
  return result;
}

Outline rotated(const Outline& outline, float angle) {
  Outline result = outline;
  rotate_each(rotation_by(angle), result.points());
  return result;
}

struct Moments {
  float area;
  FirstMoments first;
  SecondMoments second;
};

Moments moments_of(const Outline& outline) {
  Outline o = closable(outline), p = closable(outline), q = closable(outline);
  return {polygon_area(o.points()), polygon_first_moments(p.points()),
          polygon_second_moments(q.points())};
}

void expect_moments(const Moments& m, const Moments& expected, float tolerance) {
  EXPECT_NEAR(m.area, expected.area, tolerance);
  EXPECT_NEAR(m.first.x, expected.first.x, tolerance);
  EXPECT_NEAR(m.first.y, expected.first.y, tolerance);
  EXPECT_NEAR(m.second.x, expected.second.x, tolerance);
  EXPECT_NEAR(m.second.y, expected.second.y, tolerance);
  EXPECT_NEAR(m.second.product, expected.second.product, tolerance);
}

TEST(Polygons, MomentsObeyMotionAndCutsAddUp) {
  Random random(9);
  for (int i = 0; i < rounds / 5; ++i) {
    const int n = random.integer(3, 60);
    const Outline star = random_star(random, n, 0.5f, 3);
    const auto [a, s, j] = moments_of(star);
    EXPECT_GT(a, 0);

    // The parallel axis theorem about the origin (-u, -v) of the moved outline.
    const float u = random.real(-2, 2), v = random.real(-2, 2);
    const Moments shifted = {a,
                             {s.x + a * v, s.y + a * u},
                             {j.x + 2 * v * s.x + a * v * v, j.y + 2 * u * s.y + a * u * u,
                              j.product + u * s.x + v * s.y + a * u * v}};
    expect_moments(moments_of(moved(star, {-u, -v})), shifted, 2e-3f);

    const float angle = random.real(-3, 3), c = std::cos(angle), w = std::sin(angle);
    const Moments expected = {a,
                              {c * s.x + w * s.y, c * s.y - w * s.x},
                              {c * c * j.x + w * w * j.y + 2 * c * w * j.product,
                               w * w * j.x + c * c * j.y - 2 * c * w * j.product,
                               (c * c - w * w) * j.product + c * w * (j.y - j.x)}};
    expect_moments(moments_of(rotated(star, angle)), expected, 2e-3f);

    // Cut from the first vertex to another: the parts share the cut.
    const auto k = static_cast<std::size_t>(random.integer(1, n - 1));
    Outline before, after;
    for (std::size_t m = 0; m < star.xs.size(); ++m) {
      if (m <= k) before.add({star.xs[m], star.ys[m]});
      if (m == 0 || m >= k) after.add({star.xs[m], star.ys[m]});
    }
    const Moments b = moments_of(before), f = moments_of(after);
    expect_moments(
        {b.area + f.area,
         {b.first.x + f.first.x, b.first.y + f.first.y},
         {b.second.x + f.second.x, b.second.y + f.second.y, b.second.product + f.second.product}},
        {a, s, j}, 2e-3f);
  }
}

TEST(Polygons, ConvexityAgreesWithTheTurnsAtTheVertices) {
  Random random(10);
  int convex = 0;
  for (int i = 0; i < rounds; ++i) {
    const int n = random.integer(3, 7);
    // Close to a circle most are convex, far from it most are not. Clockwise ones count as well.
    Outline outline = random_star(random, n, random.integer(0, 1) ? 0.95f : 0.3f, 1);
    if (random.integer(0, 1)) outline = test::reversed(outline);
    const test::Polygon polygon = outline.polygon();
    double least = 4, most = -4;
    for (std::size_t k = 0, size = polygon.size(); k < size; ++k) {
      const auto at = [&](std::size_t m) { return polygon[m % size]; };
      const double angle = test::turn(at(k + 1) - at(k), at(k + 2) - at(k + 1));
      least = std::min(least, angle);
      most = std::max(most, angle);
    }
    // The sum's tolerance sees neither nearly straight vertices nor needles.
    if (std::fabs(least) < 0.05 || std::fabs(most) < 0.05 || std::max(-least, most) > 3) continue;
    const bool one_way = least > 0 || most < 0;
    convex += one_way;
    outline = closable(outline);
    EXPECT_EQ(classify_outline(outline.points()),
              one_way ? Convexity::convex : Convexity::not_convex);
  }
  EXPECT_GT(convex, rounds / 10);
}

TEST(CircleParts, AddUpToTheCircle) {
  Random random(11);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 centre = random.point2();
    const float r = random.real(0.5f, 4), start = random.real(-3, 3), phi = random.real(0.3f, 2.8f);
    const Vec2 p = centre + polar(r, start), q = centre + polar(r, start + phi);
    const auto arcs = divide_circle(centre, p, q);
    ASSERT_TRUE(arcs);
    EXPECT_NEAR(arcs->shorter, phi * r, 2e-5f * r + 1e-5f);
    EXPECT_NEAR(arcs->shorter + arcs->longer, 2 * pi * r, 1e-5f * r);

    float xs[] = {centre.x, p.x, q.x}, ys[] = {centre.y, p.y, q.y};
    const auto area = [&](Figure f) { return figure_area(f, {xs, ys, 3}, 0, 2, 0); };
    const auto moments = [&](Figure f) { return figure_first_moments(f, {xs, ys, 3}, 0, 2, {}); };
    const FirstMoments segment = moments(Figure::segment), rest = moments(Figure::complement);
    const FirstMoments circle = moments(Figure::circle);
    EXPECT_NEAR(area(Figure::segment) + area(Figure::complement), area(Figure::circle),
                1e-4f * r * r);
    EXPECT_NEAR(segment.x + rest.x, circle.x, 1e-2f);
    EXPECT_NEAR(segment.y + rest.y, circle.y, 1e-2f);

    // The segment and the triangle at the centre make the sector.
    const float triangle = r * r * std::sin(phi) / 2;
    EXPECT_NEAR(area(Figure::segment) / 2 + triangle, phi * r * r / 2, 1e-3f);
    const Vec2 towards = circular_segment(centre, p, q, Figure::segment).centroid - centre;
    EXPECT_GT(dot(towards, polar(1, start + phi / 2)), r * std::cos(phi / 2) - 1e-3f);
  }
}

TEST(VertexAngle, TellsTheFrontOfTheCommonSides) {
  Random random(12);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 vertex = random.point2(), p = random.point2(), q = random.point2();
    const Vec2 u = p - vertex, w = q - vertex;
    if (length(u) < 0.5f || length(w) < 0.5f || std::fabs(cross(u, w)) < 0.1f) continue;
    const Vec2 point = random.point2(), v = point - vertex;
    const float s1 = cross(u, v), s2 = cross(w, v), ahead = dot(u, v);
    if (std::min({std::fabs(s1), std::fabs(s2), std::fabs(ahead)}) < 0.1f) continue;
    std::int32_t flag = 0;
    relate_points_angle(vertex, p, q, {&point.x, &point.y, 1}, {&flag, 1});
    EXPECT_EQ(flag, s1 * s2 > 0 && ahead > 0 ? 1 : 2);
  }
}

TEST(Feet, AreWhereTheLineIsCutSquare) {
  Random random(13);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 p = random.point2(), along = polar(1, random.real(-3, 3));
    const float l = random.real(1, 9), t0 = random.real(0.1f, 9), t3 = random.real(0.1f, 9);
    const float h0 = random.real(-5, 5), h3 = random.real(-5, 5), z = random.real(-2, 2);
    const auto at = [&](float t, float h) {
      return Vec3{p.x + t * along.x - h * along.y, p.y + t * along.y + h * along.x, z};
    };
    const Feet feet = drop_perpendiculars(at(t0, h0), at(0, 0), at(l, 0), at(l - t3, h3));
    EXPECT_NEAR(feet.height_before, std::fabs(h0), 1e-4f);
    EXPECT_NEAR(feet.position_before, t0, 5e-3f);
    EXPECT_NEAR(feet.height_after, std::fabs(h3), 1e-4f);
    EXPECT_NEAR(feet.position_after, l - t3, 5e-3f);
    EXPECT_NEAR(feet.length, l, 1e-5f);
  }
}

}  // namespace
}  // namespace kez
