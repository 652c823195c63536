// Lines in space: their directions, points against them, and where two of them meet.
#pragma once

#include <cstdint>

#include "../frame/types.h"
#include "planes.h"

namespace kez {

// The axis or plane of coordinates that a direction is parallel to.
enum class DirectionClass : std::int32_t {
  null = 0,
  general = 1,
  along_x = 2,
  along_y = 3,
  along_z = 4,
  in_xy = 5,
  in_yz = 6,
  in_xz = 7,
};

DirectionClass classify_direction(Vec3 direction);

struct PointOnLine {
  DirectionClass direction;
  bool on_line;
};

// Whether the coordinates of p are within tol of those of the line through p0.
PointOnLine relate_point_line(Vec3 p0, Vec3 direction, Vec3 p, float tol);

struct PointOnMeetingLine {
  float l, m;  // with n the direction of the line is (l, -m, n)
  DirectionClass direction;
  bool on_line;
};

// The same test against the line in which two planes meet, with n = a1 b2 - b1 a2 from the caller.
// The line is evaluated at the coordinate of `kept` along the first axis that it is not
// perpendicular to, and the other two coordinates of `kept` become those of the line there.
PointOnMeetingLine relate_point_meeting_line(Plane p, Plane q, float n, Vec3 point, float tol,
                                             Vec3& kept);

struct SpaceMeeting {
  Obstacle obstacle;  // if there is one, the rest is zero
  Vec3 point;
  Vec3 first, second;  // the points of the lines, relative to the first
};

// Of two lines in one plane. If they turn out to have no single point in common, `fallback` counts
// as that point, in the axes of their plane.
SpaceMeeting intersect_lines_in_space(Ray first, Ray second, Vec2 fallback);

}  // namespace kez
