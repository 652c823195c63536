#include "placement.h"

#include <atomic>
#if defined(__linux__) && defined(__SSE__)
#include <cpuid.h>
#endif

#include "../frame/tolerance.h"

namespace kez {

namespace {

Vec3 rotate_about_x(Rotation r, Vec3 p) {
  const Vec2 q = rotate(r, {p.y, p.z});
  return {p.x, q.x, q.y};
}

Vec3 rotate_about_y(Rotation r, Vec3 p) {
  const Vec2 q = rotate(r, {p.x, p.z});
  return {q.x, p.y, q.y};
}

Vec3 rotate_about_z(Rotation r, Vec3 p) {
  const Vec2 q = rotate(r, {p.x, p.y});
  return {q.x, q.y, p.z};
}

}  // namespace

void place(const SpacePoints& points, Placement placement) {
  const auto [t, angles] = placement;
  if (non_zero(t.x) || non_zero(t.y) || non_zero(t.z)) translate(points, Vec3{-t.x, -t.y, -t.z});
  if (non_zero(angles.x)) rotate_each(rotation_by(angles.x), points.yz());
  if (non_zero(angles.y)) rotate_each(rotation_by(angles.y), points.xz());
  if (non_zero(angles.z)) rotate_each(rotation_by(angles.z), points.xy());
}

namespace {

struct LocalPlacement {
  Vec3 origin;
  AxisSystem axes;
  Vec3 translation;
  Rotation about_x, about_y, about_z;
};

// By value, so that no store into the lists can change what is in registers.
[[gnu::always_inline]] inline void place_each(SpacePoints points, LocalPlacement to) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Vec3 moved = to_local(to.axes, points[i] - to.origin) + to.translation;
    const Vec3 rotated = rotate_about_y(to.about_y, rotate_about_x(to.about_x, moved));
    points.put(i, to_global(to.axes, rotate_about_z(to.about_z, rotated)) + to.origin);
  }
}

// Not on Windows, where the compiler does not align the stack for the larger registers.
#if defined(__linux__) && defined(__SSE__)

// With registers of eight numbers. The results are the same, for AVX2 alone fuses nothing.
[[gnu::target("avx2")]] void place_eights(const SpacePoints& points, const LocalPlacement& to) {
  place_each(points, to);
}

// Whether the processor has AVX2, and the system keeps its registers.
bool find_eights() {
  unsigned a, b, c, d;
  if (!__get_cpuid(1, &a, &b, &c, &d) || !(c & bit_OSXSAVE)) return false;
  if (!__get_cpuid_count(7, 0, &a, &b, &c, &d) || !(b & bit_AVX2)) return false;
  constexpr unsigned registers = 6;
  asm volatile("xgetbv" : "=a"(a), "=d"(d) : "c"(0));
  return (a & registers) == registers;
}

// Asked once, by the first list for which that pays: on a virtual machine the questions alone can
// take as long as loading the library. That is why the compiler's own answer, made at loading, is
// not used. The answer pays for shorter lists too.
bool places_eights(std::size_t count) {
  constexpr std::size_t worth_asking = 256, worth_using = 16;
  constexpr int unknown = -1;
  static constinit std::atomic<int> known = unknown;
  if (count < worth_using) return false;
  int has = known.load(std::memory_order_relaxed);
  if (has == unknown) {
    if (count < worth_asking) return false;
    known.store(has = find_eights(), std::memory_order_relaxed);
  }
  return has;
}

#endif

void place_in_axes(const SpacePoints& points, const LocalPlacement& to) {
#if defined(__linux__) && defined(__SSE__)
  if (places_eights(points.size())) return place_eights(points, to);
#endif
  place_each(points, to);
}

}  // namespace

PlacedAxes::Status place_locally(Vec3 origin, Vec3 on_x, Vec3 in_xy, const SpacePoints& points,
                                 Placement placement) {
  const PlacedAxes placed = axes_through(origin, on_x, in_xy);
  if (placed.status != PlacedAxes::Status::placed) return placed.status;
  const auto [t, angles] = placement;
  place_in_axes(points, LocalPlacement{origin, placed.axes, t, rotation_by(angles.x),
                                       rotation_by(angles.y), rotation_by(angles.z)});
  return placed.status;
}

PlaneOfPoints rotated_plane(Vec3 p1, Vec3 p2, Vec3 p3, float angle) {
  const Position third = position_on_segment(Segment{p1, p2}, p3);
  if (third != Position::off_line) return {third, {}};
  const AxisSystem axes = axes_through(p1, p2, p3).axes;
  const Vec3 normal = to_global(axes, rotate_about_x(rotation_by(angle), {0, 0, 1}));
  const auto plane = plane_perpendicular(p1, {p1, p1 + normal});
  if (!plane) return {Position::at_first, {}};
  return {Position::off_line, *plane};
}

}  // namespace kez
