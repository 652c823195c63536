// Lists of points in space: moved, and placed in a local axis system.
#include <Eigen/Geometry>

#include "harness.h"

namespace bench {

namespace {

struct Coordinates {
  std::vector<float> x, y, z;

  explicit Coordinates(std::size_t n) : x(n), y(n), z(n) {
    Random random;
    for (auto* list : {&x, &y, &z})
      // Whole numbers move to and fro without rounding.
      for (float& v : *list) v = static_cast<float>(random.between(-100, 100));
  }
};

double digest(const Coordinates& p) {
  return bench::digest(std::span(p.x)) + bench::digest(std::span(p.y)) +
         bench::digest(std::span(p.z));
}

struct Columns {
  Eigen::Matrix3Xf points;

  explicit Columns(const Coordinates& from) : points(3, from.x.size()) {
    for (Eigen::Index i = 0; i < points.cols(); ++i)
      points.col(i) << from.x[i], from.y[i], from.z[i];
  }
};

double digest(const Columns& columns) {
  double sum = 0;
  for (Eigen::Index i = 0; i < columns.points.cols(); ++i)
    sum += static_cast<double>(i + 1) * columns.points.col(i).sum();
  return sum;
}

float to_and_fro(std::size_t k) {
  return k % 2 == 0 ? 3.0f : -3.0f;
}

[[gnu::noinline]] void plain_move(std::vector<float>& x, float by) {
  for (float& v : x) v -= by;
}

void moves() {
  each_size("kez3tra", {10'000}, [](std::size_t n) {
    return [p = Coordinates(n)](std::size_t k) mutable -> Coordinates& {
      const auto count = static_cast<std::int32_t>(p.x.size());
      const float by = to_and_fro(k);
      kez3tra(p.x.data(), p.y.data(), p.z.data(), &count, &by, &by, &by);
      return p;
    };
  });
  each_size("plain_move", {10'000}, [](std::size_t n) {
    return [p = Coordinates(n)](std::size_t k) mutable -> Coordinates& {
      for (auto* list : {&p.x, &p.y, &p.z}) plain_move(*list, to_and_fro(k));
      return p;
    };
  });
}

// The plane of origin, a and b has a normal that points to growing y, which kezptrl calls upwards.
const Eigen::Vector3f origin(1, 2, 3), a(3, 3, 2), b(2, 3, 7), shift(0.1f, 0.2f, -0.3f);
const Eigen::Vector3f angles(0.1f, 0.2f, 0.3f);

Eigen::Affine3f placement() {
  const Eigen::Vector3f x = (a - origin).normalized();
  const Eigen::Vector3f normal = (a - origin).cross(b - origin).normalized();
  const Eigen::Vector3f z = normal.y() > 0 ? normal : -normal;
  Eigen::Matrix3f axes;
  axes << x, z.cross(x), z;
  // About y from x towards z, against the right-hand rule.
  const auto turn = Eigen::AngleAxisf(angles.z(), Eigen::Vector3f::UnitZ()) *
                    Eigen::AngleAxisf(-angles.y(), Eigen::Vector3f::UnitY()) *
                    Eigen::AngleAxisf(angles.x(), Eigen::Vector3f::UnitX());
  return Eigen::Translation3f(origin) * Eigen::Affine3f(axes) * turn * Eigen::Translation3f(shift) *
         Eigen::Affine3f(axes.transpose()) * Eigen::Translation3f(-origin);
}

void placements() {
  each_size("kezptrl", {100, 10'000}, [](std::size_t n) {
    return [p = Coordinates(n)](std::size_t) mutable -> Coordinates& {
      const auto count = static_cast<std::int32_t>(p.x.size());
      std::int32_t status;
      kezptrl(&origin[0], &origin[1], &origin[2], &a[0], &a[1], &a[2], &b[0], &b[1], &b[2],
              p.x.data(), p.y.data(), p.z.data(), &count, &shift[0], &shift[1], &shift[2],
              &angles[0], &angles[1], &angles[2], &status);
      return p;
    };
  });
  each_size("eigen_placement", {100, 10'000}, [](std::size_t n) {
    return [columns = Columns(Coordinates(n))](std::size_t) mutable -> Columns& {
      columns.points = placement() * columns.points;
      return columns;
    };
  });
}

}  // namespace

void register_points() {
  moves();
  placements();
}

}  // namespace bench
