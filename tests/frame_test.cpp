// Properties of the primitives and of line intersections.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

#include "frame/angles.h"
#include "frame/lines.h"
#include "frame/points.h"
#include "frame/sampling.h"
#include "frame/tables.h"
#include "random.h"

namespace kez {
namespace {

using test::Random;

constexpr int rounds = 5000;

TEST(Points, CrossProductIsPerpendicularAndAntisymmetric) {
  Random random(1);
  for (int i = 0; i < rounds; ++i) {
    const Vec3 u = random.point3(), w = random.point3(), c = cross(u, w), d = cross(w, u);
    EXPECT_NEAR(dot(c, u), 0, 1e-3f);
    EXPECT_NEAR(dot(c, w), 0, 1e-3f);
    EXPECT_EQ(c.x, -d.x);
    EXPECT_EQ(c.y, -d.y);
    EXPECT_EQ(c.z, -d.z);
    EXPECT_NEAR(determinant(u, w, c), dot(c, c), 1e-5f * (1 + dot(c, c)));
  }
}

TEST(Points, CosineAndSineBelongToOneAngle) {
  Random random(2);
  for (int i = 0; i < rounds; ++i) {
    const Vec3 u = random.point3(), w = random.point3();
    const auto between = angle_between(u, w);
    ASSERT_EQ(between.has_value(), !is_null(u) && !is_null(w));
    if (!between) continue;
    EXPECT_GE(between->sine, 0);
    EXPECT_NEAR(std::hypot(between->cosine, between->sine), 1, 1e-6f);
    // Rounding may carry the cosine of parallel vectors past 1; it is not clamped.
    if (std::fabs(between->cosine) <= 1) {
      EXPECT_NEAR(angle(u, w), std::atan2(between->sine, between->cosine), 1e-3f);
      EXPECT_NEAR(*line_angle(u, w), std::min(angle(u, w), angle(u, -1 * w)), 1e-3f);
    }
  }
}

void expect_angle(float found, Vec2 u, Vec2 w) {
  if (is_null(u) || is_null(w)) {
    EXPECT_EQ(found, 0);
    return;
  }
  const float expected = std::fabs(std::atan2(cross(u, w), dot(u, w)));
  // The arc cosine magnifies the rounding errors of angles near 0 and pi.
  if (std::sin(expected) < 0.01f) return;
  EXPECT_NEAR(found, expected, 1e-4f);
}

TEST(Points, ProjectedAnglesAreThoseOfTheShadows) {
  Random random(11);
  for (int i = 0; i < rounds; ++i) {
    const Vec3 u = random.point3(), w = random.point3(), angles = projected_angles(u, w);
    expect_angle(angles.x, {u.y, u.z}, {w.y, w.z});
    expect_angle(angles.y, {u.x, u.z}, {w.x, w.z});
    expect_angle(angles.z, {u.x, u.y}, {w.x, w.y});
  }
}

TEST(Lines, RunThroughWhatTheyAreMadeOf) {
  Random random(3);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 p = random.point2(), q = random.point2();
    if (distance(p, q) < 0.1f) continue;
    const Line l = line_through(p, q);
    EXPECT_NEAR(signed_distance(p, l), 0, 1e-4f);
    EXPECT_NEAR(signed_distance(q, l), 0, 1e-4f);

    const float d = random.real(-5, 5);
    const Vec2 r = random.point2();
    EXPECT_NEAR(signed_distance(r, parallel(l, d)), signed_distance(r, l) - d, 1e-4f);

    const Vec2 direction = q - p;
    if (direction.x != 0 && std::fabs(direction.x) < 0.1f) continue;
    EXPECT_NEAR(signed_distance(q, line_in_direction(p, direction)), 0, 1e-3f);
    const Line inclined = line_at_angle(p, std::atan(direction.y / direction.x));
    EXPECT_NEAR(signed_distance(q, inclined), 0, 1e-3f);
  }
}

TEST(Lines, BisectorIsAsFarFromBothRays) {
  Random random(4);
  for (int i = 0; i < rounds; ++i) {
    const Vec2 vertex = random.point2(), p = random.point2(), q = random.point2();
    const float phi = vertex_angle(vertex, p, q);
    if (!(phi > 0.1f && phi < 3)) continue;
    const Line l = bisector(vertex, p, q);
    const float dp = signed_distance(p, l) / distance(vertex, p);
    const float dq = signed_distance(q, l) / distance(vertex, q);
    EXPECT_NEAR(dp, std::sin(phi / 2), 1e-4f);
    EXPECT_NEAR(dq, -std::sin(phi / 2), 1e-4f);
  }
}

TEST(Lines, ReciprocalSquareRootIsGoodTo22Bits) {
  Random random(5);
  for (int i = 0; i < rounds; ++i) {
    const float s = std::exp2(random.real(-100, 100));
    EXPECT_NEAR(reciprocal_sqrt(s) * std::sqrt(s), 1, 5e-7f);
  }
}

TEST(Lines, PositionFollowsTheParameter) {
  Random random(6);
  for (int i = 0; i < rounds; ++i) {
    const Vec3 p = random.point3(), q = random.point3();
    const float t = 0.25f * static_cast<float>(random.integer(-4, 8));
    const auto point = point_along(p, q, t);
    if (!point) continue;
    const Position expected = t == 0   ? Position::at_first
                              : t == 1 ? Position::at_second
                              : t < 0  ? Position::before_first
                              : t > 1  ? Position::beyond_second
                                       : Position::between;
    EXPECT_EQ(position_on_segment(Segment{p, q}, *point), expected) << t;
  }
}

TEST(Relations, OfLinesAndPlanesDoNotDependOnTheOrder) {
  Random random(7);
  for (int i = 0; i < rounds; ++i) {
    const auto p = random.list(4, [&] { return random.point3(); });
    const LineRelation forward = relate_lines({p[0], p[1]}, {p[2], p[3]});
    // Of two parallel lines 4 units apart neither may be found on the other.
    const Vec3 aside = cross(p[1] - p[0], {0.3f, 0.5f, 0.7f});
    if (length(aside) > 4) {
      EXPECT_EQ(relate_lines({p[0], p[1]}, {p[1] + aside, p[0] + aside}),
                LineRelation::parallel_opposite);
      EXPECT_EQ(relate_lines({p[0], p[1]}, {p[0] + aside, p[1] + aside}),
                LineRelation::parallel_same);
    }
    if (forward == LineRelation::skew || forward == LineRelation::undefined) {
      EXPECT_EQ(relate_lines({p[2], p[3]}, {p[0], p[1]}), forward);
    }
    const Plane plane = plane_spanned(p[0], p[1] - p[0], p[2] - p[0]);
    const Plane twice = {2 * plane.a, 2 * plane.b, 2 * plane.c, 2 * plane.d};
    if (length(plane.normal()) < 0.1f) continue;
    EXPECT_EQ(relate_planes(plane, twice), PlaneRelation::same_plane_same);
    EXPECT_EQ(relate_planes(plane, -plane), PlaneRelation::same_plane_opposite);
  }
}

// Codes hold up to their thresholds whatever the lengths: the cosine is within 1e-5 of 1 up to an
// angle of sqrt(2e-5), and of 0 up to 1e-5 beside the right angle.
TEST(Relations, TellTheAngleOfLongAndShortVectors) {
  Random random(11);
  const auto vector = [&](double angle, double size) {
    return Vec3{static_cast<float>(size * std::cos(angle)), 0,
                static_cast<float>(size * std::sin(angle))};
  };
  for (int i = 0; i < 10 * rounds; ++i) {
    const int quarters = random.integer(0, 2);
    const double aside = std::pow(10, random.real(-7, -0.3f));
    const double limit = quarters == 1 ? 1e-5 : std::sqrt(2e-5), turn = random.real(-3, 3);
    if (aside > 0.95 * limit && aside < 1.05 * limit) continue;
    const double size = std::pow(10, random.real(-4, 15)),
                 ratio = std::pow(10, random.real(0.1f, 3));
    const Vec3 u = vector(turn, size);
    const Vec3 w = vector(turn + quarters * std::numbers::pi / 2 + aside, size * ratio);

    constexpr DirectionRelation found[] = {
        DirectionRelation::same, DirectionRelation::perpendicular, DirectionRelation::opposite};
    const bool within = aside < limit;
    EXPECT_EQ(relate_directions(u, w), within ? found[quarters] : DirectionRelation::oblique)
        << quarters << ' ' << aside << ' ' << size;
    constexpr Position on_line[] = {Position::before_first, Position::off_line, Position::between};
    EXPECT_EQ(position_on_segment(Segment{-1 * u, -1 * w}, {}),
              within ? on_line[quarters] : Position::off_line)
        << quarters << ' ' << aside << ' ' << size;
  }
}

// As the interface defines it, one by one.
TEST(Tables, SearchesFindWhatPlainScansFind) {
  Random random(30);
  const auto entry = [&random] {
    if (random.integer(0, 30) == 0) return random.integer(0, 1) ? NAN : INFINITY;
    return static_cast<float>(random.integer(-40, 40));
  };
  for (int call = 0; call < 20000; ++call) {
    const auto x = random.list(random.integer(0, 70), entry);
    const float v = 0.5f * static_cast<float>(random.integer(-90, 90)), high = v + 0.5f;
    std::int32_t interval = 0, inside = 0, equals = 0, in_range = 0, enclosing = 0;
    for (std::size_t i = x.size(); i-- > 0;) {
      const auto position = static_cast<std::int32_t>(i) + 1;
      if (std::fabs(x[i] - v) <= 1e-5f) equals = position;
      in_range += v <= x[i] && x[i] <= high;
      if (i + 1 == x.size()) continue;
      if (x[i] <= v && v < x[i + 1]) interval = position;
      if (x[i] < v && v < x[i + 1]) inside = position;
      if (x[i] < v && high < x[i + 1] && enclosing == 0) enclosing = position;
    }
    std::vector<std::int32_t> positions(x.size() + 2);
    EXPECT_EQ(find_interval(x, v), interval);
    EXPECT_EQ(find_place(x, v).position, equals ? equals : inside);
    const auto range = find_range(x, v, high, positions);
    EXPECT_EQ(range ? range->count : 0, in_range ? in_range : enclosing ? 2 : 0);
    if (!in_range) {
      EXPECT_EQ(positions[0], enclosing);
    }
  }
}

TEST(Sampling, PointsOfADivisionAreOneStepApart) {
  Random random(9);
  for (int i = 0; i < rounds; ++i) {
    const Vec3 p = random.point3(), q = random.point3();
    if (is_null(q - p)) continue;
    const Division division = divide(distance(p, q), random.real(0.1f, 30));
    const auto n = static_cast<std::size_t>(division.points);
    std::vector<float> xs(n), ys(n), zs(n);
    Vec3 interior{};
    const SpacePoints points = {xs.data(), ys.data(), zs.data(), n};
    sample_segment({p, q}, division.step, points, interior);
    for (std::size_t k = 1; k < n; ++k) {
      EXPECT_NEAR(distance(points[k - 1], points[k]), division.step, 1e-4f);
    }
  }
}

TEST(Lines, MeetOnBoth) {
  Random random(10);
  for (int i = 0; i < rounds; ++i) {
    const Line p = line_through(random.point2(), random.point2());
    const Line q = line_through(random.point2(), random.point2());
    const LineMeeting meeting = intersect_lines(p, q);
    const float scale = std::hypot(p.a, p.b) * std::hypot(q.a, q.b);
    if (std::fabs(p.a * q.b - q.a * p.b) < 0.1f * scale || scale < 0.1f) continue;
    ASSERT_EQ(meeting.status, Meeting::one_point);
    EXPECT_NEAR(signed_distance(meeting.point, p), 0, 1e-3f);
    EXPECT_NEAR(signed_distance(meeting.point, q), 0, 1e-3f);
  }
}

}  // namespace
}  // namespace kez
