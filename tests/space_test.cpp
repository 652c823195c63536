// Properties of lines, planes, axis systems and placements in space.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "frame/point_lists.h"
#include "frame/points.h"
#include "kezlib.h"
#include "random.h"
#include "space/axis_systems.h"
#include "space/lines_in_space.h"
#include "space/placement.h"
#include "space/planes.h"
#include "space/quadrilateral.h"

namespace kez {
namespace {

using test::Random;

constexpr int rounds = 5000;

void expect_near(Vec3 p, Vec3 q, float tolerance) {
  EXPECT_NEAR(p.x, q.x, tolerance);
  EXPECT_NEAR(p.y, q.y, tolerance);
  EXPECT_NEAR(p.z, q.z, tolerance);
}

// Three points that no rounding makes collinear.
std::array<Vec3, 3> triangle(Random& random) {
  for (;;) {
    const Vec3 p = random.point3(), q = random.point3(), r = random.point3();
    const float sides = length(q - p) * length(r - p);
    if (sides > 1 && length(cross(q - p, r - p)) > 0.2f * sides) return {p, q, r};
  }
}

TEST(Axes, AreRightHandedUprightAndThroughTheirPoints) {
  Random random(1);
  for (int i = 0; i < rounds; ++i) {
    const auto [origin, a, b] = triangle(random);
    const auto [status, axes] = axes_through(origin, a, b);
    ASSERT_EQ(status, PlacedAxes::Status::placed);
    expect_near(cross(axes.x, axes.y), axes.z, 1e-5f);
    EXPECT_NEAR(length(axes.y), 1, 1e-5f);
    EXPECT_GE(axes.z.y, -1e-5f);
    expect_near(to_local(axes, a - origin), {distance(origin, a), 0, 0}, 1e-4f);
    EXPECT_NEAR(to_local(axes, b - origin).z, 0, 1e-4f);
    const Vec3 p = random.point3();
    expect_near(to_global(axes, to_local(axes, p)), p, 1e-4f);
  }
}

TEST(Planes, ContainWhatTheyAreMadeOf) {
  Random random(2);
  for (int i = 0; i < rounds; ++i) {
    const auto [p, q, r] = triangle(random);
    const Vec3 beside = random.point3();
    for (const Plane plane :
         {plane_through(p, q, r).plane, plane_through_lines({p, q - p}, {r, p - r}).plane,
          plane_parallel_to(p, {beside, beside + q - p}, {p, r}).plane}) {
      for (const Vec3 point : {p, q, r}) EXPECT_NEAR(signed_distance(point, plane), 0, 1e-4f);
      const float d = random.real(-5, 5);
      const Vec3 n = (1 / length(plane.normal())) * plane.normal();
      EXPECT_NEAR(signed_distance(q + d * n, plane), d, 1e-4f);
      EXPECT_EQ(in_plane_by_distance(q + d * n, plane, std::fabs(d) + 1e-3f), Membership::inside);
      EXPECT_EQ(in_plane_by_distance(q + d * n, plane, std::fabs(d) - 1e-3f), Membership::outside);
    }
    EXPECT_NEAR(signed_distance(p, *plane_perpendicular(p, {q, r})), 0, 1e-4f);
    const float s = random.real(1, 9);
    const Plane cut = *plane_of_intercepts({s, -s, 2 * s});
    EXPECT_NEAR(signed_distance({s, 0, 0}, cut), 0, 1e-5f);
    EXPECT_NEAR(signed_distance({0, 0, 2 * s}, cut), 0, 1e-5f);
  }
}

TEST(Planes, MeetLinesOnBoth) {
  Random random(3);
  for (int i = 0; i < rounds; ++i) {
    const auto [p, q, r] = triangle(random);
    const Plane plane = plane_through(p, q, r).plane;
    const Vec3 from = random.point3(), direction = random.point3();
    if (length(direction) < 0.5f || std::fabs(cosine(direction, plane.normal())) < 0.1f) {
      continue;
    }
    const LinePlaneMeeting meeting = intersect_line_plane({from, direction}, plane);
    ASSERT_EQ(meeting.status, LinePlaneMeeting::Status::one_point);
    EXPECT_NEAR(signed_distance(meeting.point, plane), 0, 1e-3f);
    EXPECT_NEAR(length(cross(meeting.point - from, direction)) / length(direction), 0, 1e-3f);
  }
}

TEST(Planes, RotatedMakeTheAngleAboutTheirLine) {
  Random random(4);
  for (int i = 0; i < rounds; ++i) {
    const auto [p, q, r] = triangle(random);
    const float angle = random.real(-3, 3);
    const auto [status, rotated] = rotated_plane(p, q, r, angle);
    ASSERT_EQ(status, Position::off_line);
    const Vec3 z = axes_through(p, q, r).axes.z, n = rotated.normal();
    EXPECT_NEAR(length(n), 1, 1e-4f);
    EXPECT_NEAR(dot(n, z), std::cos(angle), 1e-4f);
    EXPECT_NEAR(dot(cross(z, n), q - p) / distance(p, q), std::sin(angle), 1e-4f);
    EXPECT_NEAR(signed_distance(p, rotated), 0, 1e-4f);
    EXPECT_NEAR(signed_distance(q, rotated), 0, 1e-4f);
  }
}

TEST(SpaceLines, MeetWhereTheyCross) {
  Random random(5);
  int crossings = 0;
  for (int i = 0; i < rounds; ++i) {
    const auto [p, q, r] = triangle(random);
    const Vec3 d1 = 0.25f * (q - p), d2 = 0.25f * (r - p);
    const Vec3 p1 = p - random.real(0.5f, 3) * d1, p2 = p - random.real(1.5f, 3) * d2;
    const SpaceMeeting meeting = intersect_lines_in_space({p1, d1}, {p2, d2}, {});
    if (meeting.obstacle == Obstacle::skew) continue;  // by rounding
    ASSERT_EQ(meeting.obstacle, Obstacle::none);
    ++crossings;
    expect_near(meeting.point, p, 5e-3f);
    expect_near(meeting.second, p2 - p1, 0);
  }
  EXPECT_GT(crossings, rounds / 2);
}

TEST(SpaceLines, ContainTheirPoints) {
  Random random(6);
  for (int i = 0; i < rounds; ++i) {
    const Vec3 p = random.point3(), direction = random.point3();
    // The coordinate that serves as the parameter must not change too slowly.
    const float fastest = direction.x != 0 ? direction.x : direction.y;
    if (fastest != 0 && std::fabs(fastest) < 1) continue;
    const Vec3 on = p + random.real(-2, 2) * direction;
    EXPECT_EQ(relate_point_line(p, direction, on, 1e-3f).on_line, !is_exactly_zero(direction));
    const Vec3 aside = cross(direction, {0.3f, 0.5f, 0.7f});
    if (length(aside) < 1) continue;
    EXPECT_FALSE(relate_point_line(p, direction, on + aside, 1e-3f).on_line);
  }
}

TEST(SpaceLines, OfTwoPlanesLieInBoth) {
  Random random(7);
  for (int i = 0; i < rounds; ++i) {
    // Steep lines magnify errors, so the normals are small whole numbers.
    const auto whole = [&] { return static_cast<float>(random.integer(-2, 2)); };
    const Plane a = {whole(), whole(), whole(), random.coordinate()};
    const Plane b = {whole(), whole(), whole(), random.coordinate()};
    const Vec3 direction = cross(a.normal(), b.normal());
    if (is_exactly_zero(direction)) continue;
    Vec3 kept = {random.coordinate(), 0, random.coordinate()};  // at y = 0 all branches are true
    const auto found = relate_point_meeting_line(a, b, direction.z, {}, 0, kept);
    EXPECT_EQ(found.direction, classify_direction(direction));
    EXPECT_NEAR(signed_distance(kept, a), 0, 1e-4f);
    EXPECT_NEAR(signed_distance(kept, b), 0, 1e-4f);
    Vec3 again = kept;
    EXPECT_TRUE(relate_point_meeting_line(a, b, direction.z, kept, 0, again).on_line);
  }
}

TEST(Distances, InThePlaneAndByCrossAreTheSameLength) {
  Random random(8);
  for (int i = 0; i < rounds; ++i) {
    auto [p, q, r] = triangle(random);
    const float d = length(cross(q - p, r - p)) / distance(p, q);
    EXPECT_NEAR(std::fabs(distance_in_plane({p, q}, r)), d, 1e-3f);
    p.z = p.y;
    if (distance(p, q) < 1) continue;
    EXPECT_NEAR(distance_by_cross({p, q}, r), length(cross(q - p, r - p)) / distance(p, q), 1e-3f);
  }
}

struct List {
  std::vector<float> xs, ys, zs;

  List(Random& random, int n)
      : xs(random.list(n, [&] { return random.coordinate(); })),
        ys(random.list(n, [&] { return random.coordinate(); })),
        zs(random.list(n, [&] { return random.coordinate(); })) {}
  SpacePoints points() { return {xs.data(), ys.data(), zs.data(), xs.size()}; }
  std::size_t size() const { return xs.size(); }
  Vec3 at(std::size_t i) const { return {xs[i], ys[i], zs[i]}; }
};

TEST(Distances, AskForEachHeightOnceAndInOrder) {
  std::vector<float> xs(5, 0), ys(5, 0);
  std::vector<std::int32_t> asked, near(5);
  const auto z_of = [&](std::int32_t position) {
    asked.push_back(position);
    return static_cast<float>(position);
  };
  EXPECT_EQ(points_near_line({{0, 0, 0}, {1, 0, 0}}, {xs.data(), ys.data(), 5}, z_of, 2, near), 2);
  EXPECT_EQ(asked, (std::vector<std::int32_t>{1, 2, 3, 4, 5}));
}

TEST(Distances, AreThoseOfTheHostsPointsThoughItWritesItsIndex) {
  const auto z_of = [](const std::int32_t* i) {
    return static_cast<float>(std::exchange(const_cast<std::int32_t&>(*i), -7));
  };
  const std::vector<float> xs(4, 0), ys(4, 0);
  const float zero = 0, one = 1, tol = 2;
  const std::int32_t n = 4;
  std::int32_t status = 0, count = 0;
  std::vector<std::int32_t> near(4, -1);
  kezpnl(&zero, &zero, &zero, &one, &zero, &zero, xs.data(), ys.data(), z_of, &n, &tol, &status,
         &count, near.data());
  EXPECT_EQ(count, 2);
  EXPECT_EQ(near, (std::vector<std::int32_t>{1, 2, -1, -1}));
}

TEST(Placements, OfAListAreThoseOfItsPoints) {
  Random random(9);
  const auto maybe = [&] { return random.integer(0, 2) == 0 ? 1e-5f : random.real(-3, 3); };
  for (int i = 0; i < 500; ++i) {
    const List before(random, random.integer(0, 40));
    const Placement placement = {{maybe(), maybe(), maybe()}, {maybe(), maybe(), maybe()}};
    List placed = before, local = before;
    place(placed.points(), placement);
    place_locally({}, {1, 0, 0}, {0, 1, 0}, local.points(), placement);
    for (std::size_t k = 0; k < before.size(); ++k) {
      expect_near(placed.at(k), local.at(k), 1e-3f);
      List one = before;
      place({&one.xs[k], &one.ys[k], &one.zs[k], 1}, placement);
      EXPECT_EQ(one.xs[k], placed.xs[k]);
      EXPECT_EQ(one.ys[k], placed.ys[k]);
      EXPECT_EQ(one.zs[k], placed.zs[k]);
    }
  }
}

TEST(Placements, AreRigidAndUndoneByTheInverse) {
  Random random(10);
  for (int i = 0; i < 500; ++i) {
    const auto [origin, a, b] = triangle(random);
    const List before(random, i % 10 == 0 ? 261 : random.integer(2, 40));
    const Placement placement = {random.point3(), random.point3()};
    const AxisSystem axes = axes_through(origin, a, b).axes;
    List list = before;
    place_locally(origin, a, b, list.points(), placement);
    for (std::size_t k = 0; k < list.size(); ++k) {
      EXPECT_NEAR(distance(list.at(0), list.at(k)), distance(before.at(0), before.at(k)), 1e-3f);
      // To the bit, whatever registers the list went through.
      Vec3 p = to_local(axes, before.at(k) - origin) + placement.translation;
      place({&p.x, &p.y, &p.z, 1}, {{}, placement.angles});
      expect_near(list.at(k), to_global(axes, p) + origin, 0);
    }
    const Rotation r = rotation_by(random.real(-9, 9));
    List rotated = before;
    rotate_each(r, rotated.points().yz());
    rotate_each(inverse(r), rotated.points().yz());
    for (std::size_t k = 0; k < before.size(); ++k) {
      expect_near(rotated.at(k), before.at(k), 1e-4f);
    }
  }
}

TEST(Quadrilateral, OutlineDoesNotCrossItself) {
  Random random(11);
  for (int i = 0; i < rounds; ++i) {
    const auto [origin, a, b] = triangle(random);
    const AxisSystem axes = axes_through(origin, a, b).axes;
    Corners corners;
    for (Vec3& corner : corners) corner = to_global(axes, in_plane(random.point2())) + origin;
    const auto order = outline_order(corners);
    EXPECT_EQ(order[0], 1);
    EXPECT_TRUE(std::ranges::is_permutation(order, std::array{1, 2, 3, 4}));

    // Twice the area of the triangle of three corners, by their place in the outline.
    const auto area = [&](std::size_t u, std::size_t v, std::size_t w) {
      const auto at = [&](std::size_t k) {
        return corners[static_cast<std::size_t>(order[k % 4]) - 1];
      };
      return dot(cross(at(v) - at(u), at(w) - at(u)), axes.z);
    };
    for (const std::size_t k : {0u, 1u}) {  // side k, k + 1 against the opposite one
      const float c = area(k, k + 1, k + 2), d = area(k, k + 1, k + 3);
      const float e = area(k + 2, k + 3, k), f = area(k + 2, k + 3, k + 1);
      const bool in_doubt =
          std::min({std::fabs(c), std::fabs(d), std::fabs(e), std::fabs(f)}) < 0.1f;
      EXPECT_TRUE(in_doubt || c * d > 0 || e * f > 0);
    }
  }
}

}  // namespace
}  // namespace kez
