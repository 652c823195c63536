#include "placement.h"

#include "../frame/rotation.h"
#include "../frame/tolerance.h"

namespace kez {

namespace {

Vec3 rotate_about_x(Rotation r, Vec3 p) noexcept {
  const Vec2 q = rotate(r, {p.y, p.z});
  return {p.x, q.x, q.y};
}

Vec3 rotate_about_y(Rotation r, Vec3 p) noexcept {
  const Vec2 q = rotate(r, {p.x, p.z});
  return {q.x, p.y, q.y};
}

Vec3 rotate_about_z(Rotation r, Vec3 p) noexcept {
  const Vec2 q = rotate(r, {p.x, p.y});
  return {q.x, q.y, p.z};
}

}  // namespace

void place(const SpacePoints& points, Placement placement) noexcept {
  const auto [t, angles] = placement;
  if (non_zero(t.x) || non_zero(t.y) || non_zero(t.z)) translate(points, Vec3{-t.x, -t.y, -t.z});
  if (non_zero(angles.x)) rotate_each(rotation_by(angles.x), points.yz());
  if (non_zero(angles.y)) rotate_each(rotation_by(angles.y), points.xz());
  if (non_zero(angles.z)) rotate_each(rotation_by(angles.z), points.xy());
}

PlacedAxes::Status place_locally(Vec3 origin, Vec3 on_x, Vec3 in_xy, const SpacePoints& points,
                                 Placement placement) noexcept {
  const PlacedAxes placed = axes_through(origin, on_x, in_xy);
  if (placed.status != PlacedAxes::Status::placed) return placed.status;

  // Copies that no store into the lists can change, so that they stay in registers.
  const AxisSystem axes = placed.axes;
  const auto [t, angles] = placement;
  const Rotation about_x = rotation_by(angles.x), about_y = rotation_by(angles.y);
  const Rotation about_z = rotation_by(angles.z);
  const SpacePoints list = points;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const Vec3 moved = to_local(axes, list[i] - origin) + t;
    const Vec3 rotated = rotate_about_y(about_y, rotate_about_x(about_x, moved));
    list.put(i, to_global(axes, rotate_about_z(about_z, rotated)) + origin);
  }
  return placed.status;
}

PlaneOfPoints rotated_plane(Vec3 p1, Vec3 p2, Vec3 p3, float angle) noexcept {
  const Position third = position_on_segment(Segment{p1, p2}, p3);
  if (third != Position::off_line) return {third, {}};
  const AxisSystem axes = axes_through(p1, p2, p3).axes;
  const Vec3 normal = to_global(axes, rotate_about_x(rotation_by(angle), {0, 0, 1}));
  const auto plane = plane_perpendicular(p1, {p1, p1 + normal});
  if (!plane) return {Position::at_first, {}};
  return {Position::off_line, *plane};
}

}  // namespace kez
