// Properties of circle constructions and plane figures.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "circles/arc_centre.h"
#include "circles/circle.h"
#include "circles/directions.h"
#include "circles/figures.h"
#include "circles/guided_points.h"
#include "circles/sagitta_point.h"
#include "circles/transform.h"
#include "circles/vertex_angle.h"
#include "frame/angles.h"
#include "frame/lines.h"
#include "frame/points.h"
#include "random.h"

namespace kez {
namespace {

using test::Random;

constexpr int rounds = 5000;

// Half the chord that a line at distance d cuts from a circle, negative where it misses. Crossings
// of grazing lines are as uncertain as the square root of the rounding errors.
float half_chord(float radius, float d) {
  const float square = radius * radius - d * d;
  return std::copysign(std::sqrt(std::fabs(square)), square);
}

TEST(Crossings, LieOnBothCurves) {
  Random random(1);
  int crossings = 0;
  for (int i = 0; i < rounds; ++i) {
    const Vec2 centre = random.point2(), p = random.point2(), q = random.point2();
    const float radius = random.real(0.5f, 8);
    const Line l = line_through(p, q);
    // x comes from the division by a, so nearly horizontal lines magnify errors.
    if (distance(p, q) < 0.5f || (l.a != 0 && std::fabs(l.a) < 0.1f * std::fabs(l.b))) continue;
    const float half = half_chord(radius, signed_distance(centre, l));
    if (std::fabs(half) < 0.5f) continue;

    const Crossings found = intersect(l, circle_about(centre, radius));
    ASSERT_EQ(found.count, half > 0 ? 2 : 0);
    if (found.count == 0) continue;
    ++crossings;
    for (const Vec2 point : {found.first, found.second}) {
      EXPECT_NEAR(signed_distance(point, l), 0, 5e-3f);
      EXPECT_NEAR(distance(point, centre), radius, 5e-3f);
    }
    EXPECT_NEAR(distance(found.first, found.second), 2 * half, 5e-3f);
    EXPECT_TRUE(l.a != 0 ? found.first.y > found.second.y : found.first.x > found.second.x);
  }
  EXPECT_GT(crossings, rounds / 4);
}

TEST(Crossings, OfTwoCirclesMeetWhereBothAre) {
  Random random(2);
  int crossings = 0;
  for (int i = 0; i < rounds; ++i) {
    const Vec2 c1 = random.point2(), c2 = random.point2();
    const float r1 = random.real(1, 8), r2 = random.real(1, 8), apart = distance(c1, c2);
    if (apart < 1 || (c1.x != c2.x && std::fabs(c1.x - c2.x) < 0.1f * apart)) continue;
    const float to_radical_line = (apart * apart + r1 * r1 - r2 * r2) / (2 * apart);
    const float half = half_chord(r1, to_radical_line);
    if (std::fabs(half) < 0.5f) continue;

    const Crossings found = intersect(circle_about(c1, r1), circle_about(c2, r2));
    ASSERT_EQ(found.count, half > 0 ? 2 : 0);
    if (found.count == 0) continue;
    ++crossings;
    for (const Vec2 point : {found.first, found.second}) {
      EXPECT_NEAR(distance(point, c1), r1, 5e-3f);
      EXPECT_NEAR(distance(point, c2), r2, 5e-3f);
    }
  }
  EXPECT_GT(crossings, rounds / 4);
}

// A guide whose start lies on the circle and whose measured point is well inside it.
struct Measured {
  Guide guide;
  float radius, length, l;
  Vec2 along, point;  // unit vector of the guide, and the measured point
};

Vec2 polar(float radius, float angle) {
  return {radius * std::cos(angle), radius * std::sin(angle)};
}

Measured random_guide(Random& random) {
  const float radius = random.real(1, 8), start = random.real(-3, 3);
  const Vec2 centre = random.point2();
  // Within a radian of the way to the centre the chord is longer than the radius. Lines close to an
  // axis are left to the worked calls: their slopes magnify errors.
  const Vec2 along = polar(1, start + pi + random.real(-1, 1));
  if (std::min(std::fabs(along.x), std::fabs(along.y)) < 0.15f) return random_guide(random);
  const Vec2 p = centre + polar(radius, start);
  const float length = random.real(1.2f, 3) * radius, l = random.real(0.2f, 0.8f) * radius;
  const auto at = [=](float t) { return Vec2{p.x + t * along.x, p.y + t * along.y}; };
  return {{centre, p, at(length)}, radius, length, l, along, at(l)};
}

float turn(Vec2 u, Vec2 w) {
  return cross(in_plane(u), in_plane(w)).z;
}

// Which crossing is returned first depends on the order of the crossings only through this test.
void expect_side(const Measured& m, int sense, Vec2 found, Vec2 other) {
  const Vec2 first = found.y > other.y ? found : other, second = found.y > other.y ? other : found;
  const float s = turn(m.guide.start - m.guide.centre, first - m.guide.centre);
  if (std::fabs(s) < 0.1f || std::fabs(found.y - other.y) < 0.1f) return;
  const Vec2 expected = static_cast<float>(sense) * s < 0 ? first : second;
  EXPECT_NEAR(distance(found, expected), 0, 5e-3f);
}

TEST(GuidedPoints, LieOnTheCircleAndSquareToTheGuideOrOnTheRay) {
  Random random(3);
  KeptCrossings ray{}, across{};
  for (int i = 0; i < rounds; ++i) {
    const Measured m = random_guide(random);
    const int sense = random.integer(-2, 2);
    const auto square = carry_across(m.guide, sense, m.l, across);
    ASSERT_TRUE(square);
    EXPECT_NEAR(distance(*square, m.guide.centre), m.radius, 5e-3f);
    EXPECT_NEAR(dot(*square - m.point, m.along), 0, 5e-3f);
    expect_side(m, sense, *square, *carry_across(m.guide, sense > 0 ? -1 : 1, m.l, across));

    const Vec2 to_point = m.point - m.guide.centre;
    if (std::fabs(to_point.y) < 0.15f * length(to_point) || length(to_point) < 0.1f) continue;
    const auto radial = carry_along_ray(m.guide, sense, m.l, ray);
    ASSERT_TRUE(radial);
    EXPECT_NEAR(distance(*radial, m.guide.centre), m.radius, 5e-3f);
    EXPECT_NEAR(turn(to_point, *radial - m.guide.centre) / length(to_point), 0, 5e-3f);
  }
}

TEST(GuidedPoints, OpeningsAreTwoPoints) {
  Random random(4);
  KeptOpening kept{};
  KeptCrossings a{}, b{};
  for (int i = 0; i < rounds; ++i) {
    const Measured m = random_guide(random);
    const float w = random.real(0.1f, 0.3f) * m.radius;
    const int sense = random.integer(-2, 2);
    const auto opening = carry_opening_across(m.guide, sense, m.l, w, kept);
    ASSERT_TRUE(opening);
    EXPECT_NEAR(distance(opening->first, *carry_across(m.guide, sense, m.l - w / 2, a)), 0, 1e-2f);
    EXPECT_NEAR(distance(opening->second, *carry_across(m.guide, sense, m.l + w / 2, b)), 0, 1e-2f);
  }
}

float turn_angle(Vec2 u, Vec2 w) {
  return std::atan2(turn(u, w), dot(u, w));
}

TEST(GuidedPoints, StandAtTheirAngleToTheGuide) {
  Random random(5);
  Vec2 kept{};
  for (int i = 0; i < rounds; ++i) {
    const Measured m = random_guide(random);
    const float theta = random.real(0.2f, 2.9f);
    const auto found = carry_at_angle(m.guide, m.l, theta, kept);
    ASSERT_TRUE(found);
    EXPECT_NEAR(distance(found->point, m.guide.centre), m.radius, 5e-3f);
    const Vec2 v = found->point - m.point;
    EXPECT_NEAR(turn(polar(1, std::atan2(m.along.y, m.along.x) + theta), v), 0, 2e-2f);
    EXPECT_NEAR(distance(found->guide.centre, m.guide.centre), 0, 1e-5f);
    EXPECT_NEAR(distance(found->guide.end, m.guide.end), 0, 1e-5f);
    EXPECT_EQ(kept.x, found->point.x);

    const float dphi = random.real(-3, 3);
    Vec2 kept_meeting{};
    const auto meeting = meet_guide(m.guide, dphi, theta, kept_meeting);
    ASSERT_TRUE(meeting);
    EXPECT_EQ(meeting->status, Meeting::one_point);
    const Vec2 turned = *turn_about(m.guide.centre, m.guide.start, dphi).point;
    const Vec2 w = meeting->result.point - turned;
    EXPECT_NEAR(turn(m.along, meeting->result.point - m.guide.start), 0, 5e-3f);
    EXPECT_NEAR(turn(polar(1, std::atan2(m.along.y, m.along.x) + theta), w), 0, 5e-3f);
  }
}

TEST(GuidedPoints, OverTheSagittaLieBehindTheRaisedPoint) {
  Random random(6);
  Vec2 kept{};
  for (int i = 0; i < rounds; ++i) {
    const Vec2 centre = random.point2();
    const float radius = random.real(2, 8), start = random.real(-3, 3), phi = random.real(0.8f, 3);
    const int sense = random.integer(0, 1) ? 1 : -1;
    // Clockwise for a positive sense, so that the arc's middle is where the raised point is sought.
    const float half = -0.5f * static_cast<float>(sense) * phi;
    const Guide chord = {centre, centre + polar(radius, start),
                         centre + polar(radius, start + 2 * half)};
    const float d = distance(chord.start, chord.end), h = random.real(0.1f, 0.3f) * radius;
    const float l = random.real(0.1f, 0.9f) * d;
    const auto found = point_over_sagitta(chord, l, sense, h, kept);
    ASSERT_TRUE(found);
    EXPECT_NEAR(distance(found->point, centre), radius, 5e-3f);
    const Vec3 foot = midpoint(in_plane(chord.start), in_plane(chord.end));
    const Vec2 up = polar(h, start + half);
    const Vec2 raised = Vec2{foot.x, foot.y} + up;
    const Vec3 measured = *point_along(in_plane(chord.start), in_plane(chord.end), l / d);
    const Vec2 q = {measured.x, measured.y};
    EXPECT_NEAR(turn(raised - q, found->point - q) / length(raised - q), 0, 2e-2f);
    EXPECT_GT(dot(found->point - q, up), 0);
  }
}

TEST(ArcCentres, AreOneRadiusFromBothPointsOnTheirSides) {
  Random random(7);
  int found = 0;
  for (int i = 0; i < rounds; ++i) {
    const Vec2 p = random.point2(), q = random.point2();
    const float c = distance(p, q), radius = random.real(0.3f, 2) * c;
    if (c < 1 || (p.y != q.y && std::fabs(p.y - q.y) < 0.2f * c)) continue;
    if (std::fabs(radius - c / 2) < 0.1f * c) continue;
    const auto centres = arc_centres(p, q, -1, radius);
    if (radius < c / 2) {
      EXPECT_EQ(centres.has_value(), p.y == q.y);
      continue;
    }
    ++found;
    ASSERT_TRUE(centres);
    EXPECT_EQ(centres->status, p.y == q.y ? CentreStatus::none_or_level_chord : CentreStatus::two);
    for (const Vec2 centre : {centres->first, centres->second}) {
      EXPECT_NEAR(distance(centre, p), radius, 2e-2f);
      EXPECT_NEAR(distance(centre, q), radius, 2e-2f);
    }
    EXPECT_LT(signed_distance(*centres->chosen, line_through(p, q)), 0);
    EXPECT_GT(signed_distance(*arc_centres(p, q, 1, radius)->chosen, line_through(p, q)), 0);
    // Half the rise that is longer than the radius belongs to the same circle.
    const float rise = radius + std::sqrt(radius * radius - c * c / 4);
    EXPECT_NEAR(arc_by_rise(p, q, 1, rise)->radius, radius, 1e-4f * radius);
  }
  EXPECT_GT(found, rounds / 4);
}

TEST(Turning, KeepsTheDistanceAndAddsTheAngle) {
  Random random(8);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 centre = random.point2(), p = random.point2();
    const float angle = random.real(-6, 6);
    const TurnedPoint turned = turn_about(centre, p, angle);
    ASSERT_EQ(turned.point.has_value(), distance(centre, p) > 1e-5f);
    if (!turned.point) continue;
    const Vec2 u = p - centre, w = *turned.point - centre, expected = polar(1, angle);
    EXPECT_NEAR(length(w), length(u), 1e-5f * (1 + length(u)));
    EXPECT_NEAR(turn(u, w) / dot(u, u), expected.y, 2e-5f);
    EXPECT_NEAR(dot(u, w) / dot(u, u), expected.x, 2e-5f);

    const LocalFrame frame(centre, angle);
    EXPECT_NEAR(distance(frame.to_global(frame.to_local(p)), p), 0, 1e-5f);
    float xs[] = {u.x}, ys[] = {u.y};
    rotate(Turn::clockwise, xs, ys, angle);
    EXPECT_EQ(frame.to_local(p).x, xs[0]);
    EXPECT_EQ(frame.to_local(p).y, ys[0]);
  }
}

// About the origin, by the angles at which the vertices are seen from there.
struct Outline {
  std::vector<float> xs, ys;

  void add(Vec2 p) {
    xs.push_back(p.x);
    ys.push_back(p.y);
  }
};

// The place for the closing vertex holds what no routine may read.
Outline closable(Outline outline) {
  outline.add({std::nanf(""), std::nanf("")});
  return outline;
}

Outline random_star(Random& random, int n, float least, float most) {
  Outline star;
  const float step = 2 * pi / static_cast<float>(n);
  for (int i = 0; i < n; ++i) {
    const float angle = step * (static_cast<float>(i) + random.real(0, 0.8f));
    star.add(polar(random.real(least, most), angle));
  }
  return star;
}

Outline moved(const Outline& outline, Vec2 origin) {
  Outline result = outline;
  translate(result.xs, result.ys, origin);
  return result;
}

Outline turned(const Outline& outline, float angle) {
  Outline result = outline;
  rotate(Turn::counter_clockwise, result.xs, result.ys, angle);
  return result;
}

struct Moments {
  float area;
  FirstMoments first;
  SecondMoments second;
};

Moments moments_of(const Outline& outline) {
  Outline o = closable(outline), p = closable(outline), q = closable(outline);
  return {polygon_area(o.xs, o.ys), polygon_first_moments(p.xs, p.ys),
          polygon_second_moments(q.xs, q.ys)};
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
    const Moments rotated = {a,
                             {c * s.x + w * s.y, c * s.y - w * s.x},
                             {c * c * j.x + w * w * j.y + 2 * c * w * j.product,
                              w * w * j.x + c * c * j.y - 2 * c * w * j.product,
                              (c * c - w * w) * j.product + c * w * (j.y - j.x)}};
    expect_moments(moments_of(turned(star, angle)), rotated, 2e-3f);

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
    if (random.integer(0, 1)) std::ranges::reverse(outline.xs), std::ranges::reverse(outline.ys);
    float least = 4, most = -4;
    for (std::size_t k = 0, size = outline.xs.size(); k < size; ++k) {
      const auto at = [&](std::size_t m) {
        return Vec2{outline.xs[m % size], outline.ys[m % size]};
      };
      const float angle = turn_angle(at(k + 1) - at(k), at(k + 2) - at(k + 1));
      least = std::min(least, angle);
      most = std::max(most, angle);
    }
    // The sum's tolerance sees neither nearly straight vertices nor needles.
    if (std::fabs(least) < 0.05f || std::fabs(most) < 0.05f || std::max(-least, most) > 3) continue;
    const bool one_way = least > 0 || most < 0;
    convex += one_way;
    outline = closable(outline);
    EXPECT_EQ(judge_convexity(outline.xs, outline.ys),
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
    const auto area = [&](Figure f) { return figure_area(f, xs, ys, 0, 2, 0); };
    const auto moments = [&](Figure f) { return figure_first_moments(f, xs, ys, 0, 2, {}); };
    const FirstMoments segment = moments(Figure::segment), rest = moments(Figure::complement);
    const FirstMoments circle = moments(Figure::circle);
    EXPECT_NEAR(area(Figure::segment) + area(Figure::complement), area(Figure::circle),
                1e-4f * r * r);
    EXPECT_NEAR(segment.x + rest.x, circle.x, 1e-2f);
    EXPECT_NEAR(segment.y + rest.y, circle.y, 1e-2f);

    // The segment and the triangle at the centre make the sector.
    const float triangle = r * r * std::sin(phi) / 2;
    EXPECT_NEAR(area(Figure::segment) / 2 + triangle, phi * r * r / 2, 1e-3f);
    const Vec2 towards = circular_segment(centre, p, q, SegmentSide::smaller).centroid - centre;
    EXPECT_GT(dot(towards, polar(1, start + phi / 2)), r * std::cos(phi / 2) - 1e-3f);
  }
}

TEST(VertexAngle, TellsTheFrontOfTheCommonSides) {
  Random random(12);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 vertex = random.point2(), p = random.point2(), q = random.point2();
    const Vec2 u = p - vertex, w = q - vertex;
    if (length(u) < 0.5f || length(w) < 0.5f || std::fabs(turn(u, w)) < 0.1f) continue;
    const Vec2 point = random.point2(), v = point - vertex;
    const float s1 = turn(u, v), s2 = turn(w, v), ahead = dot(u, v);
    if (std::min({std::fabs(s1), std::fabs(s2), std::fabs(ahead)}) < 0.1f) continue;
    std::int32_t flag = 0;
    classify_points(vertex, p, q, {&point.x, 1}, {&point.y, 1}, {&flag, 1});
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
