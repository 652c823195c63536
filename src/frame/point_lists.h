// Points given as lists of their coordinates, as hosts pass them, outlines made of them, and how
// they are moved and rotated. The lists are views. Pass them by const reference: by value they cost
// more than a small polygon.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>

#include "types.h"

namespace kez {

template <typename Real>
class PlaneList {
 public:
  PlaneList(Real* xs, Real* ys, std::size_t size) : xs_(xs), ys_(ys), size_(size) {}

  std::size_t size() const { return size_; }
  Vec2 operator[](std::size_t i) const { return {xs_[i], ys_[i]}; }
  void put(std::size_t i, Vec2 p) const {
    xs_[i] = p.x;
    ys_[i] = p.y;
  }

  operator PlaneList<const Real>() const { return {xs_, ys_, size_}; }

  Real* xs() const { return xs_; }
  Real* ys() const { return ys_; }

 private:
  Real *xs_, *ys_;
  std::size_t size_;
};

template <typename Real>
class SpaceList {
 public:
  SpaceList(Real* xs, Real* ys, Real* zs, std::size_t size)
      : xs_(xs), ys_(ys), zs_(zs), size_(size) {}

  std::size_t size() const { return size_; }
  Vec3 operator[](std::size_t i) const { return {xs_[i], ys_[i], zs_[i]}; }
  void put(std::size_t i, Vec3 p) const {
    xs_[i] = p.x;
    ys_[i] = p.y;
    zs_[i] = p.z;
  }

  Real* xs() const { return xs_; }
  Real* ys() const { return ys_; }
  Real* zs() const { return zs_; }
  // Seen along the x, the y and the z axis.
  PlaneList<Real> yz() const { return {ys_, zs_, size_}; }
  PlaneList<Real> xz() const { return {xs_, zs_, size_}; }
  PlaneList<Real> xy() const { return {xs_, ys_, size_}; }

 private:
  Real *xs_, *ys_, *zs_;
  std::size_t size_;
};

using PlanePoints = PlaneList<float>;
using ConstPlanePoints = PlaneList<const float>;
using SpacePoints = SpaceList<float>;
using ConstSpacePoints = SpaceList<const float>;

// The origin moves to `origin`; to move back, translate by its negative.
void translate(const PlanePoints& points, Vec2 origin);
void translate(const SpacePoints& points, Vec3 origin);

// Of a list of n entries with the place for one more, such as an outline's closing vertex. A
// negative n has no such place: it would lie before the list.
inline std::size_t size_with_place(std::int32_t n) {
  return n >= 0 ? static_cast<std::size_t>(n) + 1 : 0;
}

// Writes the closing vertex of an outline, and returns the number of the others.
inline std::size_t close_outline(const PlanePoints& outline) {
  if (outline.size() == 0) return 0;
  const std::size_t n = outline.size() - 1;
  outline.put(n, outline[0]);
  return n;
}

// Rotation in a coordinate plane about the origin. A positive angle rotates the first coordinate
// towards the second.
struct Rotation {
  float sine, cosine;
};

// Any other number means forwards too.
enum class Sense : std::int32_t { forwards = 0, backwards = 1 };

// Exact: rotating back differs only in the sign of the sine.
inline Rotation inverse(Rotation r) {
  return {-r.sine, r.cosine};
}

inline Rotation rotation_by(float angle, Sense sense = Sense::forwards) {
  const Rotation forwards = {std::sin(angle), std::cos(angle)};
  return sense == Sense::backwards ? inverse(forwards) : forwards;
}

inline Vec2 rotate(Rotation r, Vec2 p) {
  return {r.cosine * p.x - r.sine * p.y, r.sine * p.x + r.cosine * p.y};
}

void rotate_each(Rotation r, const PlanePoints& points);

}  // namespace kez
