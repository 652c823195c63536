#include "planes.h"

#include <cmath>

#include "../frame/numbers.h"
#include "../frame/points.h"
#include "../frame/tolerance.h"

namespace kez {

namespace {

Obstacle obstacle(LineRelation relation) {
  switch (relation) {
    case LineRelation::same_line_same:
      return Obstacle::same_line_same;
    case LineRelation::same_line_opposite:
      return Obstacle::same_line_opposite;
    case LineRelation::skew:
      return Obstacle::skew;
    case LineRelation::undefined:
      return Obstacle::undefined_line;
    default:
      return Obstacle::none;
  }
}

// In double precision, where the square of no component overflows or vanishes.
double precise_length(Vec3 v) {
  const auto square = [](float x) { return static_cast<double>(x) * static_cast<double>(x); };
  return std::sqrt(square(v.x) + square(v.y) + square(v.z));
}

Vec3 divided(Vec3 v, double length) {
  const auto part = [length](float x) {
    return static_cast<float>(static_cast<double>(x) / length);
  };
  return {part(v.x), part(v.y), part(v.z)};
}

}  // namespace

PlaneOfLines plane_parallel_to(Vec3 p, Segment<Vec3> first, Segment<Vec3> second) {
  const Obstacle found = obstacle(relate_lines(first, second));
  if (found != Obstacle::none && found != Obstacle::skew) return {found, {}};
  return {Obstacle::none, plane_spanned(p, first.vector(), second.vector())};
}

PlaneOfLines plane_through_lines(Ray first, Ray second) {
  // Not the directions themselves: what counts is the direction between two points of each line,
  // with their rounding.
  const Segment<Vec3> s1 = first.segment(), s2 = second.segment();
  const Obstacle found = obstacle(relate_lines(s1, s2));
  if (found != Obstacle::none) return {found, {}};
  return {Obstacle::none, plane_spanned(s1.first, s1.vector(), s2.vector())};
}

std::optional<Plane> plane_perpendicular(Vec3 p, Segment<Vec3> segment) {
  const Vec3 n = segment.vector();
  if (is_null(n)) return std::nullopt;
  return Plane{n.x, n.y, n.z, -n.x * p.x - n.y * p.y - n.z * p.z};
}

std::optional<Plane> plane_of_intercepts(Vec3 intercepts) {
  const auto [p, q, r] = intercepts;
  if (!(non_zero(p) && non_zero(q) && non_zero(r))) return std::nullopt;
  return Plane{1 / p, 1 / q, 1 / r, -1};
}

std::optional<LineRelation> relate_through_origin(Vec3 u, Vec3 w) {
  if (is_exactly_zero(u)) return std::nullopt;
  return relate_lines({{}, u}, {{}, w});
}

float signed_distance(Vec3 p, Plane plane) {
  const Vec3 n = plane.normal();
  return (dot(n, p) + plane.d) * reciprocal_sqrt(dot(n, n));
}

PlaneClass classify_plane(Plane plane) {
  const bool a = !equal(plane.a, 0), b = !equal(plane.b, 0), c = !equal(plane.c, 0);
  if (a && b && c) return PlaneClass::general;
  if (b && c) return PlaneClass::along_x;
  if (a && c) return PlaneClass::along_y;
  if (a && b) return PlaneClass::along_z;
  const bool through_origin = equal(plane.d, 0);
  if (c) return through_origin ? PlaneClass::is_xy : PlaneClass::along_xy;
  if (a) return through_origin ? PlaneClass::is_yz : PlaneClass::along_yz;
  // Deliberate: also without a normal (kezplp).
  return through_origin ? PlaneClass::is_xz : PlaneClass::along_xz;
}

Membership in_plane_by_angle(Vec3 p1, Vec3 p2, Vec3 p3, Vec3 p, float tol) {
  const PlaneOfPoints through = plane_through(p1, p2, p3);
  if (through.third != Position::off_line) return Membership::outside;

  // A point near p1 has no direction from there and counts as outside; so does a flat triangle.
  constexpr auto shortest = static_cast<double>(0.001f);
  const Vec3 w = p - p1, n = through.plane.normal();
  const double w_length = precise_length(w), n_length = precise_length(n);
  if (w_length <= shortest || n_length <= shortest) return Membership::outside;
  const float cosine = dot(divided(n, n_length), divided(w, w_length));
  return tol >= std::fabs(cosine) ? Membership::inside : Membership::outside;
}

Membership in_plane_by_distance(Vec3 p, Plane plane, float tol) {
  if (is_exactly_zero(plane.normal())) return Membership::no_normal;
  return tol >= std::fabs(signed_distance(p, plane)) ? Membership::inside : Membership::outside;
}

PlaneScan scan(const ConstSpacePoints& points, Plane plane, std::span<std::int32_t> positions) {
  const Vec3 n = plane.normal();
  PlaneScan result{0, plane.d};
  for (std::size_t i = 0; i < points.size(); ++i) {
    // Deliberate: only the first point meets the plane as given, and the sum runs on (kezpnp).
    result.sum += dot(n, points[i]);
    if (result.sum == 0) positions[static_cast<std::size_t>(result.count++)] = position_of(i);
  }
  return result;
}

}  // namespace kez
