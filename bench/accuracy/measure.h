// How an error is measured: seeded calls of the installed library, each against the truth in double
// precision, and a line of results a measurement, which report.py reads.
#pragma once

#include <kezlib.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <type_traits>

#include "vectors.h"

namespace accuracy {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

// The same numbers on every platform, as the distributions of the standard library are not.
class Random {
 public:
  double between(double low, double high) {
    return low + (high - low) * static_cast<double>(engine_() >> 11) * 0x1p-53;
  }
  // Evenly spread logarithms: as many from 1 to 10 as from 10 to 100.
  double magnitude(double low, double high) {
    return std::exp(between(std::log(low), std::log(high)));
  }
  double angle() { return between(0, 2 * pi); }
  bool coin() { return engine_() >> 63 != 0; }
  std::int32_t sign() { return coin() ? 1 : -1; }
  Vec in_box(double half) {
    const double x = between(-half, half), y = between(-half, half);
    return {x, y, between(-half, half)};
  }
  Vec direction() {
    for (;;) {
      const Vec v = in_box(1);
      if (const double r = length(v); r > 0.1 && r < 1) return 1 / r * v;
    }
  }

 private:
  std::mt19937_64 engine_{20261122};
};

template <typename Argument>
auto address(Argument& argument) {
  if constexpr (std::is_pointer_v<Argument>)
    return argument;
  else
    return &argument;
}

// Calls a routine with the addresses of its arguments; an array is given as a pointer.
template <auto routine, typename... Arguments>
void call(Arguments&&... arguments) {
  routine(address(arguments)...);
}

// Writes median and largest of the errors of `calls` calls under a key. A negative error is of a
// call that does not count; one that is not a number is of a call without a result.
void measure(const std::string& key, int calls, const std::function<double(Random&)>& error);

// Writes the share of calls for which something holds.
void share(const std::string& key, int calls, const std::function<bool(Random&)>& holds);

// Where a figure is, in mm.
struct Place {
  const char* name;
  double within, away;  // of the origin, at random, or at this distance from it
  bool moved;           // by the library, so that the origin is in the middle of the figure
};

// A figure of 1 m, in mm, at a place.
class Site {
 public:
  Site(Random& random, const Place& place);

  Random& random;
  static constexpr double size = 1000;
  Vec middle;
  bool moved;

  double largest_coordinate() const { return size / 2 + (moved ? 0 : largest(middle)); }

  Vec in_figure() { return random.in_box(size / 2); }
  Point point() { return placed(middle + in_figure()); }
  // A point of the plane z = 0.
  Point flat() { return placed_flat(middle + in_figure()); }
  Point placed(Vec v) const;
  Point placed_flat(Vec v) const;
};

// An error, and the magnitude of the number whose last place is its measure. An error in mm is
// measured by the last place of the figure's largest coordinate instead.
struct Deviation {
  double error;
  double magnitude = 1;
};

constexpr Deviation no_result{none};
constexpr Deviation not_counted{-1};

// Of a point or vector, and of a number.
Deviation off(Vec found, Vec truth);
Deviation off(double found, double truth);

// Writes the errors of a routine at the three sites, in a unit and in last places.
void ordinary(const char* routine, const char* what, const char* unit,
              const std::function<Deviation(Site&)>& deviation);

void measure_plane();
void measure_circles();
void measure_space();
void claims_of_lines();
void claims_of_circles();
void claims_of_outlines();
void claims_of_space();
void claims_of_decisions();
void measure_gains();

}  // namespace accuracy
