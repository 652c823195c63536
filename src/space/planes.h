// Planes: how they are built, and points and lines against them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "../frame/angles.h"
#include "../frame/lines.h"
#include "../frame/point_lists.h"
#include "../frame/types.h"

namespace kez {

// If the third point is not off the line of the other two, the plane is zero.
struct PlaneOfPoints {
  Position third;
  Plane plane;
};

inline PlaneOfPoints plane_through(Vec3 p1, Vec3 p2, Vec3 p3) {
  const Position third = position_on_segment(Segment{p1, p2}, p3);
  if (third != Position::off_line) return {third, {}};
  return {third, plane_spanned(p1, p2 - p1, p3 - p1)};
}

// What keeps two lines from determining a plane: the relation in which they stand.
enum class Obstacle : std::int32_t {
  none = 0,
  same_line_same = 3,
  same_line_opposite = 4,
  skew = 6,
  undefined_line = 7,
};

struct PlaneOfLines {
  Obstacle obstacle;
  Plane plane;  // zero if there is an obstacle
};

// Through p, parallel to both lines. Skew lines are no obstacle; parallel ones are none either, and
// leave the plane without a normal.
PlaneOfLines plane_parallel_to(Vec3 p, Segment<Vec3> first, Segment<Vec3> second);

// A line as a point and a direction.
struct Ray {
  Vec3 point, direction;

  Segment<Vec3> segment() const { return {point, point + direction}; }
};

PlaneOfLines plane_through_lines(Ray first, Ray second);

// Perpendicular to a segment, unless its ends coincide.
std::optional<Plane> plane_perpendicular(Vec3 p, Segment<Vec3> segment);

// From its intercepts on the axes, if all are non-zero.
std::optional<Plane> plane_of_intercepts(Vec3 intercepts);

// Of the lines through the origin in these directions, unless the first is exactly zero.
std::optional<LineRelation> relate_through_origin(Vec3 u, Vec3 w);

// Positive on the side to which the normal points.
float signed_distance(Vec3 p, Plane plane);

// The axis or plane of coordinates that a plane is parallel to or is.
enum class PlaneClass : std::int32_t {
  general = 1,
  along_x = 2,
  along_y = 3,
  along_z = 4,
  along_xy = 5,
  along_yz = 6,
  along_xz = 7,
  is_xy = 8,
  is_yz = 9,
  is_xz = 10,
};

PlaneClass classify_plane(Plane plane);

struct LinePlaneMeeting {
  enum class Status : std::int32_t { one_point = 0, parallel = 3, null_direction = 4 };
  Status status;
  Vec3 point;  // zero unless there is one
};

inline LinePlaneMeeting intersect_line_plane(Ray line, Plane plane) {
  using enum LinePlaneMeeting::Status;
  const auto [p, direction] = line;
  const Vec3 n = plane.normal();
  const DirectionRelation relation = relate_directions(direction, n);
  if (relation == DirectionRelation::perpendicular) return {parallel, {}};
  if (relation == DirectionRelation::null) return {null_direction, {}};
  const float t = -(dot(n, p) + plane.d) / dot(n, direction);
  return {one_point, p + t * direction};
}

enum class Membership : std::int32_t { outside = -1, inside = 0, no_normal = 1 };

// Whether the cosine of the angle between the plane's normal and p - p1 is within tol.
Membership in_plane_by_angle(Vec3 p1, Vec3 p2, Vec3 p3, Vec3 p, float tol);

Membership in_plane_by_distance(Vec3 p, Plane plane, float tol);

struct PlaneScan {
  std::int32_t count;
  float sum;
};

// Adds a x + b y + c z of one point after the other to plane.d and writes the positions at which
// the sum is exactly zero.
PlaneScan scan(const ConstSpacePoints& points, Plane plane, std::span<std::int32_t> positions);

}  // namespace kez
