// Properties of circles and of constructions on them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "circles/arc_centre.h"
#include "circles/circle.h"
#include "circles/guided_points.h"
#include "circles/local_frame.h"
#include "circles/region_report.h"
#include "frame/lines.h"
#include "frame/points.h"
#include "random.h"

namespace kez {
namespace {

using test::polar;
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

    const Crossings found = intersect_line_circle(l, circle_about(centre, radius));
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

    const Crossings found = intersect_circles(circle_about(c1, r1), circle_about(c2, r2));
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

// Which crossing is returned first depends on the order of the crossings only through this test.
void expect_side(const Measured& m, int sense, Vec2 found, Vec2 other) {
  const Vec2 first = found.y > other.y ? found : other, second = found.y > other.y ? other : found;
  const float s = cross(m.guide.start - m.guide.centre, first - m.guide.centre);
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
    EXPECT_NEAR(cross(to_point, *radial - m.guide.centre) / length(to_point), 0, 5e-3f);
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
    EXPECT_NEAR(cross(polar(1, std::atan2(m.along.y, m.along.x) + theta), v), 0, 2e-2f);
    EXPECT_NEAR(distance(found->guide.centre, m.guide.centre), 0, 1e-5f);
    EXPECT_NEAR(distance(found->guide.end, m.guide.end), 0, 1e-5f);
    EXPECT_EQ(kept.x, found->point.x);

    const float dphi = random.real(-3, 3);
    Vec2 kept_meeting{};
    const auto meeting = meet_guide(m.guide, dphi, theta, kept_meeting);
    ASSERT_TRUE(meeting);
    EXPECT_EQ(meeting->status, Meeting::one_point);
    const Vec2 rotated = *rotate_about(m.guide.centre, m.guide.start, dphi).point;
    const Vec2 w = meeting->result.point - rotated;
    EXPECT_NEAR(cross(m.along, meeting->result.point - m.guide.start), 0, 5e-3f);
    EXPECT_NEAR(cross(polar(1, std::atan2(m.along.y, m.along.x) + theta), w), 0, 5e-3f);
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
    const Vec2 up = polar(h, start + half);
    const Vec2 raised = midpoint(chord.start, chord.end) + up;
    const Vec2 q = *point_along(chord.start, chord.end, l / d);
    EXPECT_NEAR(cross(raised - q, found->point - q) / length(raised - q), 0, 2e-2f);
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
    // The longer arc of the same circle.
    const float rise = radius + std::sqrt(radius * radius - c * c / 4);
    EXPECT_NEAR(arc_by_rise(p, q, 1, rise)->radius, radius, 1e-4f * radius);
  }
  EXPECT_GT(found, rounds / 4);
}

TEST(Rotation, KeepsTheDistanceAndAddsTheAngle) {
  Random random(8);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 centre = random.point2(), p = random.point2();
    const float angle = random.real(-6, 6);
    const RotatedPoint rotated = rotate_about(centre, p, angle);
    ASSERT_EQ(rotated.point.has_value(), distance(centre, p) > 1e-5f);
    if (!rotated.point) continue;
    const Vec2 u = p - centre, w = *rotated.point - centre, expected = polar(1, angle);
    EXPECT_NEAR(length(w), length(u), 1e-5f * (1 + length(u)));
    EXPECT_NEAR(cross(u, w) / dot(u, u), expected.y, 2e-5f);
    EXPECT_NEAR(dot(u, w) / dot(u, u), expected.x, 2e-5f);

    const LocalFrame frame(centre, angle);
    EXPECT_NEAR(distance(frame.to_global(frame.to_local(p)), p), 0, 1e-5f);
    float xs[] = {u.x}, ys[] = {u.y};
    rotate_each(rotation_by(angle, Sense::backwards), {xs, ys, 1});
    EXPECT_EQ(frame.to_local(p).x, xs[0]);
    EXPECT_EQ(frame.to_local(p).y, ys[0]);
  }
}

// A host's last calls may come when the process has ended the library already.
TEST(RegionReport, ClosedGoesOnWhereItEnded) {
  RegionReport report;
  const RegionFinding finding = classify_region({0, 0}, {0, 1}, {0, 1, -5});
  report.add(finding);
  const auto size = std::filesystem::file_size("OUTPUT.TXT");
  report.close();
  report.add(finding);
  report.close();
  EXPECT_EQ(std::filesystem::file_size("OUTPUT.TXT"), 2 * size);
}

}  // namespace
}  // namespace kez
