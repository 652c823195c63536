#include "placement.h"

#include "../frame/rotation.h"
#include "../frame/tolerance.h"

namespace kez {

namespace {

Vec3 turned_about_x(Rotation r, Vec3 p) noexcept {
  const Vec2 q = turned(r, {p.y, p.z});
  return {p.x, q.x, q.y};
}

Vec3 turned_about_y(Rotation r, Vec3 p) noexcept {
  const Vec2 q = turned(r, {p.x, p.z});
  return {q.x, p.y, q.y};
}

Vec3 turned_about_z(Rotation r, Vec3 p) noexcept {
  const Vec2 q = turned(r, {p.x, p.y});
  return {q.x, q.y, p.z};
}

struct Turns {
  Rotation about_x, about_y, about_z;
};

Turns turns_by(Vec3 angles) noexcept {
  return {rotation_by(angles.x), rotation_by(angles.y), rotation_by(angles.z)};
}

template <typename Map>
void replace_each(PointList points, Map map) noexcept {
  for (std::size_t i = 0; i < points.xs.size(); ++i) {
    const Vec3 p = map(Vec3{points.xs[i], points.ys[i], points.zs[i]});
    points.xs[i] = p.x;
    points.ys[i] = p.y;
    points.zs[i] = p.z;
  }
}

}  // namespace

void place(PointList points, Placement placement) noexcept {
  const auto [xs, ys, zs] = points;
  const auto [t, angles] = placement;
  if (non_zero(t.x) || non_zero(t.y) || non_zero(t.z)) translate(xs, ys, zs, {-t.x, -t.y, -t.z});
  if (non_zero(angles.x)) turn(rotation_by(angles.x), ys, zs);
  if (non_zero(angles.y)) turn(rotation_by(angles.y), xs, zs);
  if (non_zero(angles.z)) turn(rotation_by(angles.z), xs, ys);
}

PlacedAxes::Status place_locally(Vec3 origin, Vec3 on_x, Vec3 in_xy, PointList points,
                                 Placement placement) noexcept {
  const auto [status, axes] = axes_through(origin, on_x, in_xy);
  if (status != PlacedAxes::Status::placed) return status;

  const Vec3 t = placement.translation;
  const Turns turns = turns_by(placement.angles);
  replace_each(points, [=, axes = axes](Vec3 p) {
    const Vec3 moved = to_local(axes, p - origin) + t;
    const Vec3 turned_twice = turned_about_y(turns.about_y, turned_about_x(turns.about_x, moved));
    return to_global(axes, turned_about_z(turns.about_z, turned_twice)) + origin;
  });
  return status;
}

PlaneOfPoints plane_turned(Vec3 p1, Vec3 p2, Vec3 p3, float angle) noexcept {
  const Position third = position_on_segment(p1, p2, p3);
  if (third != Position::off_line) return {third, {}};
  const AxisSystem axes = axes_through(p1, p2, p3).axes;
  const Vec3 normal = to_global(axes, turned_about_x(rotation_by(angle), {0, 0, 1}));
  const auto plane = plane_perpendicular(p1, p1, p1 + normal);
  if (!plane) return {Position::at_first, {}};
  return {Position::off_line, *plane};
}

}  // namespace kez
