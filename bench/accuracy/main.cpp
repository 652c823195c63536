#include <cstdio>
#include <string_view>
#include <vector>

#include "measure.h"

namespace accuracy {
namespace {

constexpr int calls_at_a_site = 20'000;

struct Spread {
  double median = 0, worst = 0;
};

Spread spread(std::vector<double>& errors) {
  if (errors.empty()) return {none, none};
  const auto middle = errors.begin() + static_cast<std::ptrdiff_t>(errors.size() / 2);
  std::nth_element(errors.begin(), middle, errors.end());
  return {*middle, *std::max_element(middle, errors.end())};
}

double last_place(double magnitude) {
  const auto number = static_cast<float>(magnitude);
  return std::nextafter(number, std::numeric_limits<float>::infinity()) - number;
}

}  // namespace

void measure(const std::string& key, int calls, const std::function<double(Random&)>& error) {
  Random random;
  std::vector<double> errors;
  errors.reserve(static_cast<std::size_t>(calls));
  int without = 0;
  for (int i = 0; i < calls; ++i) {
    const double e = error(random);
    if (!std::isfinite(e))
      ++without;
    else if (e >= 0)
      errors.push_back(e);
  }
  const Spread found = spread(errors);
  std::printf("errors\t%s\t%.4g\t%.4g\t%.4g\n", key.c_str(), found.median, found.worst,
              without / static_cast<double>(calls));
}

void share(const std::string& key, int calls, const std::function<bool(Random&)>& holds) {
  Random random;
  int found = 0;
  for (int i = 0; i < calls; ++i) found += holds(random);
  std::printf("share\t%s\t%.4g\n", key.c_str(), found / static_cast<double>(calls));
}

Site::Site(Random& r, const Place& place) : random(r), moved(place.moved) {
  if (place.within > 0) middle = random.in_box(place.within);
  if (place.away > 0) middle = place.away * random.direction();
}

Point Site::placed(Vec v) const {
  Point p(v);
  const Point origin(middle);
  if (moved) call<kez3tra>(&p.x, &p.y, &p.z, std::int32_t{1}, origin.x, origin.y, origin.z);
  return p;
}

Point Site::placed_flat(Vec v) const {
  Point p(v);
  const Point origin(middle);
  p.z = 0;
  if (moved) call<keztra>(&p.x, &p.y, std::int32_t{1}, origin.x, origin.y);
  return p;
}

Deviation off(Vec found, Vec truth) {
  return {length(found - truth), largest(truth)};
}

Deviation off(double found, double truth) {
  return {std::fabs(found - truth), std::fabs(truth)};
}

void ordinary(const char* routine, const char* what, const char* unit,
              const std::function<Deviation(Site&)>& deviation) {
  constexpr Place places[] = {{"origin", 0, 0, false},
                              {"site", 1e5, 0, false},
                              {"moved", 1e5, 0, true},
                              {"far", 0, 1e6, false}};
  for (const auto& place : places) {
    Random random;
    std::vector<double> errors, places_off;
    int calls = 0;
    for (int i = 0; i < calls_at_a_site; ++i) {
      Site site(random, place);
      const Deviation found = deviation(site);
      calls += !(found.error < 0);
      if (!(found.error >= 0)) continue;
      errors.push_back(found.error);
      const bool in_mm = std::string_view(unit) == "mm";
      places_off.push_back(found.error /
                           last_place(in_mm ? site.largest_coordinate() : found.magnitude));
    }
    const double without = 1 - static_cast<double>(errors.size()) / calls;
    const Spread in_unit = spread(errors), in_places = spread(places_off);
    std::printf("ordinary\t%s\t%s\t%s\t%s\t%.4g\t%.4g\t%.4g\t%.4g\t%.4g\n", routine, what, unit,
                place.name, in_unit.median, in_unit.worst, in_places.median, in_places.worst,
                without);
  }
}

}  // namespace accuracy

int main() {
  accuracy::measure_plane();
  accuracy::measure_circles();
  accuracy::measure_space();
  accuracy::claims_of_lines();
  accuracy::claims_of_circles();
  accuracy::claims_of_outlines();
  accuracy::claims_of_space();
  accuracy::claims_of_decisions();
  accuracy::measure_gains();
}
