// Outlines: areas and moments, points in polygons, polygons cut in two.
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/ring.hpp>
#include <cmath>
#include <numbers>
#include <polyclipping/clipper.hpp>

#include "harness.h"

namespace bench {

namespace {

namespace bg = boost::geometry;
using Point = bg::model::d2::point_xy<float>;
using Ring = bg::model::ring<Point, false>;
using Area = std::tuple<float>;
using Moments = std::tuple<float, float, float>;

// Wavy outlines about the origin, with room to close each. Their edges are short and turn little:
// by a long one kezppp would find points on it, and leave.
struct Outline {
  std::vector<float> x, y;
  std::int32_t n;

  Outline(std::size_t count, Random& random)
      : x(count + 1), y(count + 1), n(static_cast<std::int32_t>(count)) {
    for (std::size_t i = 0; i < count; ++i) {
      const double angle = 2 * std::numbers::pi * (static_cast<double>(i) + 0.5) / n;
      const double r = 75 + 20 * std::sin(5 * angle) + random.between(-100.0, 100.0) / n;
      x[i] = static_cast<float>(r * std::cos(angle));
      y[i] = static_cast<float>(r * std::sin(angle));
    }
    x[count] = x[0], y[count] = y[0];
  }
};

// As many as inputs rotate, each made by made_of(outline).
template <typename Make>
auto outlines(std::size_t n, Make made_of) {
  Random random;
  std::vector<decltype(made_of(Outline(n, random)))> all;
  for (std::size_t k = 0; k < inputs_of(n); ++k) all.push_back(made_of(Outline(n, random)));
  return all;
}
constexpr auto as_given = [](const Outline& outline) { return outline; };

Ring ring_of(const Outline& outline) {
  Ring ring;
  for (std::size_t i = 0; i < outline.x.size(); ++i) ring.emplace_back(outline.x[i], outline.y[i]);
  return ring;
}

const std::vector<std::int64_t> section_and_more{12, 100, 1'000, 10'000, 100'000};

// The loops that a host would have instead, in functions of their own.
[[gnu::noinline]] float plain_area(float* x, float* y, std::int32_t n) {
  x[n] = x[0], y[n] = y[0];
  float sum = 0;
  for (std::int32_t i = 0; i < n; ++i) sum += (y[i + 1] - y[i]) * (x[i + 1] + x[i]);
  return sum / 2;
}

[[gnu::noinline]] void plain_moments(float* x, float* y, std::int32_t n, Moments& out) {
  x[n] = x[0], y[n] = y[0];
  float ix = 0, iy = 0, ixy = 0;
  for (std::int32_t i = 0; i < n; ++i) {
    const float x1 = x[i], y1 = y[i], x2 = x[i + 1], y2 = y[i + 1];
    const float dx = x1 - x2, dy = y2 - y1, sx = x1 + x2, sy = y1 + y2;
    ix += (y1 * y1 + y2 * y2) * sy * dx;
    iy += (x1 * x1 + x2 * x2) * sx * dy;
    ixy += dy * (sx * sx * sy + 2 * (y1 * (x1 * x1) + y2 * (x2 * x2)));
  }
  out = {ix / 12, iy / 12, ixy / 24};
}

// Registers run(outline, output).
template <typename Output, typename Run>
void of_outline(const char* name, Run run,
                const std::vector<std::int64_t>& sizes = section_and_more) {
  each_size(name, sizes, [run](std::size_t n) {
    return [all = outlines(n, as_given), out = Output(), run](std::size_t k) mutable -> Output& {
      run(all[k], out);
      return out;
    };
  });
}

void areas_and_moments() {
  of_outline<Area>("kezapl", [](Outline& p, Area& out) {
    kezapl(p.x.data(), p.y.data(), &p.n, &std::get<0>(out));
  });
  of_outline<Area>("plain_area",
                   [](Outline& p, Area& out) { out = {plain_area(p.x.data(), p.y.data(), p.n)}; });
  of_outline<Moments>("kezipl", [](Outline& p, Moments& out) {
    auto& [ix, iy, ixy] = out;
    kezipl(p.x.data(), p.y.data(), &p.n, &ix, &iy, &ixy);
  });
  of_outline<Moments>("plain_moments", [](Outline& p, Moments& out) {
    plain_moments(p.x.data(), p.y.data(), p.n, out);
  });
}

using FirstMoments = std::tuple<float, float>;

// Of few vertices: those of long outlines are nearly 0 and differ. The area by which the moments
// differ from the centroid is not measured.
void first_moments() {
  const auto run = [](Outline& p, FirstMoments& out) {
    auto& [about_x, about_y] = out;
    kezspl(p.x.data(), p.y.data(), &p.n, &about_x, &about_y);
  };
  const std::vector<std::int64_t> sizes{12, 100};
  of_outline<FirstMoments>("kezspl", run, sizes);
  const auto with_area = [](const Outline& outline) {
    const Ring ring = ring_of(outline);
    return std::pair(ring, static_cast<float>(bg::area(ring)));
  };
  each_size("boost_centroid", sizes, [with_area](std::size_t n) {
    return [all = outlines(n, with_area),
            out = FirstMoments()](std::size_t k) mutable -> FirstMoments& {
      const auto& [ring, area] = all[k];
      Point centroid;
      bg::centroid(ring, centroid);
      out = {centroid.y() * area, centroid.x() * area};
      return out;
    };
  });
}

ClipperLib::cInt to_clipper(float coordinate) {
  return static_cast<ClipperLib::cInt>(coordinate * 1000);
}

using PositionCode = std::tuple<std::int32_t>;
const Inputs<Floats<2>> points_about = random_inputs<2>(-100, 100);
const std::vector<std::int64_t> up_to_1e4{12, 100, 1'000, 10'000};

void points_in_polygons() {
  // kezppp moves the polygon, so that it is given a copy each time, which counts as its work.
  const auto kezlib = [](std::size_t n) {
    return [all = outlines(n, as_given), work = outlines(n, as_given).front(),
            out = PositionCode()](std::size_t k) mutable -> PositionCode& {
      const Outline& p = all[k];
      std::copy(p.x.begin(), p.x.end(), work.x.begin());
      std::copy(p.y.begin(), p.y.end(), work.y.begin());
      const auto& [px, py] = points_about[k % input_count];
      kezppp(&p.n, work.x.data(), work.y.data(), &px, &py, &std::get<0>(out));
      return out;
    };
  };
  const auto boost_within = [](std::size_t n) {
    return
        [all = outlines(n, ring_of), out = PositionCode()](std::size_t k) mutable -> PositionCode& {
          const auto& [px, py] = points_about[k % input_count];
          out = {bg::within(Point(px, py), all[k]) ? 0 : -1};
          return out;
        };
  };
  const auto clipper = [](std::size_t n) {
    const auto path_of = [n](const Outline& outline) {
      ClipperLib::Path path;
      for (std::size_t i = 0; i < n; ++i)
        path.emplace_back(to_clipper(outline.x[i]), to_clipper(outline.y[i]));
      return path;
    };
    return
        [all = outlines(n, path_of), out = PositionCode()](std::size_t k) mutable -> PositionCode& {
          const auto& [px, py] = points_about[k % input_count];
          const ClipperLib::IntPoint p(to_clipper(px), to_clipper(py));
          out = {ClipperLib::PointInPolygon(p, all[k]) == 1 ? 0 : -1};
          return out;
        };
  };
  each_size("kezppp", up_to_1e4, kezlib, input_count);
  each_size("boost_within", up_to_1e4, boost_within, input_count);
  each_size("clipper_point_in_polygon", up_to_1e4, clipper, input_count);
}

// The two halves of a polygon, by Boost or as coordinate lists.
struct Rings {
  std::vector<Ring> upper, lower;
};

double digest(const Rings& halves) {
  double area = 0;
  for (const Ring& ring : halves.upper) area += bg::area(ring);
  for (const Ring& ring : halves.lower) area -= 2 * bg::area(ring);
  return area;
}

struct Half {
  std::vector<float> x, y;
  std::int32_t n = 0;

  explicit Half(std::size_t edges) : x(2 * edges), y(2 * edges) {}
};

double area(const Half& half) {
  Ring ring;
  for (std::int32_t i = 0; i < half.n; ++i) ring.emplace_back(half.x[i], half.y[i]);
  bg::correct(ring);
  return bg::area(ring);
}

double digest(const std::pair<Half, Half>& halves) {
  return area(halves.first) - 2 * area(halves.second);
}

// The loop that a host would have instead: both parts, and the gaps between the crossings.
[[gnu::noinline]] float plain_cut(const Outline& p, Half& upper, Half& lower,
                                  std::vector<float>& chord) {
  const auto add = [](Half& half, float x, float y) {
    half.x[half.n] = x;
    half.y[half.n++] = y;
  };
  upper.n = lower.n = 0;
  chord.clear();
  for (std::int32_t i = 0; i < p.n; ++i) {
    const float x1 = p.x[i], y1 = p.y[i], x2 = p.x[i + 1], y2 = p.y[i + 1];
    if (y1 >= 0) add(upper, x1, y1);
    if (y1 <= 0) add(lower, x1, y1);
    if (y1 * y2 < 0) {
      chord.push_back(x1 - y1 * (x2 - x1) / (y2 - y1));
      add(upper, chord.back(), 0);
      add(lower, chord.back(), 0);
    }
  }
  std::sort(chord.begin(), chord.end());
  float length = 0;
  for (std::size_t k = 1; k < chord.size(); k += 2) length += chord[k] - chord[k - 1];
  return length;
}

void cuts() {
  const std::vector<std::int64_t> sizes{12, 100, 1'000, 10'000};
  each_size("kezpin", sizes, [](std::size_t n) {
    return [all = outlines(n, as_given),
            halves = std::pair(Half(n), Half(n))](std::size_t k) mutable -> std::pair<Half, Half>& {
      Outline& p = all[k];
      auto& [upper, lower] = halves;
      const float a = 0, b = 1, c = 0;
      float length;
      kezpin(&p.n, p.x.data(), p.y.data(), &a, &b, &c, &upper.n, upper.x.data(), upper.y.data(),
             &lower.n, lower.x.data(), lower.y.data(), &length);
      return halves;
    };
  });
  each_size("plain_cut", sizes, [](std::size_t n) {
    return [all = outlines(n, as_given), halves = std::pair(Half(n), Half(n)),
            chord = std::vector<float>()](std::size_t k) mutable -> std::pair<Half, Half>& {
      benchmark::DoNotOptimize(plain_cut(all[k], halves.first, halves.second, chord));
      return halves;
    };
  });
  each_size("boost_cut", sizes, [](std::size_t n) {
    return [all = outlines(n, ring_of), halves = Rings()](std::size_t k) mutable -> Rings& {
      // With rings Boost is three times as fast as with boxes.
      static const Ring above{{-200, 0}, {200, 0}, {200, 200}, {-200, 200}, {-200, 0}};
      static const Ring below{{-200, -200}, {200, -200}, {200, 0}, {-200, 0}, {-200, -200}};
      halves = {};
      bg::intersection(all[k], above, halves.upper);
      bg::intersection(all[k], below, halves.lower);
      return halves;
    };
  });
}

}  // namespace

void register_polygons() {
  areas_and_moments();
  first_moments();
  points_in_polygons();
  cuts();
}

}  // namespace bench
