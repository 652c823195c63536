// An I section anywhere in the plane, by the library and exactly.
#pragma once

#include "measure.h"

namespace accuracy {

struct Moments {
  double area;
  Vec centroid;
  double central;  // of y^2 about the centroid
};

class ISection {
 public:
  ISection(Random& random, Vec middle) : ISection(random, random.between(100, 1000), middle) {}

  // At a distance from the origin, in depths, in any direction.
  static ISection away(Random& random, double depths) {
    const double h = random.between(100, 1000);
    return {random, h, polar(depths * h, random.angle())};
  }

  double depth() const { return depth_; }

  // Moves the origin to the middle of the box around the section.
  void centre() {
    const auto x = std::minmax_element(x_, x_ + n_), y = std::minmax_element(y_, y_ + n_);
    call<keztra>(&x_[0], &y_[0], n_, (*x.first + *x.second) / 2, (*y.first + *y.second) / 2);
  }

  Moments by_library() {
    float area, sx, sy, ix, iy, ixy;
    call<kezapl>(&x_[0], &y_[0], n_, area);
    call<kezspl>(&x_[0], &y_[0], n_, sx, sy);
    call<kezipl>(&x_[0], &y_[0], n_, ix, iy, ixy);
    return {area, {double{sy} / area, double{sx} / area}, ix - double{sx} * sx / area};
  }

  // Of the rounded vertices, with vertex 1 as the origin: nothing cancels.
  Moments exact() const {
    double area = 0, sx = 0, sy = 0, ix = 0;
    for (int i = 0; i < n_; ++i) {
      const Vec p = from_first(i), q = from_first((i + 1) % n_);
      const double c = p.x * q.y - q.x * p.y;
      area += c / 2;
      sx += c * (p.y + q.y) / 6;
      sy += c * (p.x + q.x) / 6;
      ix += c * (p.y * p.y + p.y * q.y + q.y * q.y) / 12;
    }
    return {area, {sy / area + x_[0], sx / area + y_[0]}, ix - sx * sx / area};
  }

 private:
  ISection(Random& random, double h, Vec middle) : depth_(h) {
    const double b = h * random.between(0.35, 1), tw = h * random.between(0.015, 0.06);
    const double tf = tw * random.between(1.3, 2);
    const double x[n_] = {-b, b, b, tw, tw, b, b, -b, -b, -tw, -tw, -b};
    const double y[n_] = {-h, -h, -h + 2 * tf, -h + 2 * tf, h - 2 * tf,  h - 2 * tf,
                          h,  h,  h - 2 * tf,  h - 2 * tf,  -h + 2 * tf, -h + 2 * tf};
    for (int i = 0; i < n_; ++i) {
      x_[i] = static_cast<float>(middle.x + x[i] / 2);
      y_[i] = static_cast<float>(middle.y + y[i] / 2);
    }
  }

  Vec from_first(int i) const { return {double{x_[i]} - x_[0], double{y_[i]} - y_[0]}; }

  static constexpr std::int32_t n_ = 12;
  double depth_;
  float x_[n_ + 1], y_[n_ + 1];
};

}  // namespace accuracy
