// Searches in ascending tables beside plain scans.
#include <cmath>

#include "harness.h"
#include "pool.h"

namespace bench {

namespace {

using Found = std::tuple<std::int32_t, std::int32_t>;
using Table = std::span<const float>;

// Registers run(table, value, found), with a table and a value of its own for each input.
template <typename Run>
void in_tables(const char* name, Run run) {
  each_size(
      name, {10, 30, 100, 1'000, 10'000},
      [run](std::size_t n) {
        Pool<float> tables(n, anything);
        std::vector<float> values(inputs_of(n));
        Random().fill(std::span(values), -1e6f, 1e6f);
        for (std::size_t k = 0; k < values.size(); ++k) std::ranges::sort(tables.list(k));
        return [tables, values, out = Found(), run](std::size_t k) mutable -> Found& {
          run(Table(tables.list(k)), values[k], out);
          return out;
        };
      },
      input_count);
}

std::int32_t plain_interval(Table x, float v) {
  for (std::size_t i = 0; i + 1 < x.size(); ++i)
    if (x[i] <= v && v < x[i + 1]) return static_cast<std::int32_t>(i) + 1;
  return 0;
}

std::int32_t plain_entry(Table x, float v) {
  for (std::size_t i = 0; i < x.size(); ++i)
    if (std::fabs(x[i] - v) <= 1e-5f) return static_cast<std::int32_t>(i) + 1;
  return 0;
}

// The entries within a range of a hundredth of the table's, and the first of them.
constexpr float half_range = 1e4f;

}  // namespace

void register_searches() {
  in_tables("kezpos", [](Table x, float v, Found& out) {
    const std::int32_t n = count_of(x);
    kezpos(&n, x.data(), &v, &std::get<0>(out));
  });
  in_tables("plain_interval",
            [](Table x, float v, Found& out) { std::get<0>(out) = plain_interval(x, v); });
  in_tables("kezpos1", [](Table x, float v, Found& out) {
    const std::int32_t n = count_of(x);
    kezpos1(&n, x.data(), &v, &std::get<0>(out), &std::get<1>(out));
  });
  in_tables("plain_place", [](Table x, float v, Found& out) {
    const std::int32_t entry = plain_entry(x, v);
    const std::int32_t place = entry != 0 ? entry : plain_interval(x, v);
    out = {entry != 0 ? 1 : place != 0 ? 2 : 0, place};
  });
  in_tables("kezlul",
            [places = std::vector<std::int32_t>(10'000)](Table x, float v, Found& out) mutable {
              const std::int32_t n = count_of(x);
              const float low = v - half_range, high = v + half_range;
              float below, above;
              kezlul(&n, x.data(), &low, &high, &std::get<0>(out), places.data(), &below, &above);
              std::get<1>(out) = std::get<0>(out) > 0 ? places[0] : 0;
            });
  in_tables("plain_range",
            [places = std::vector<std::int32_t>(10'000)](Table x, float v, Found& out) mutable {
              const float low = v - half_range, high = v + half_range;
              std::int32_t count = 0;
              for (std::size_t i = 0; i < x.size(); ++i)
                if (low <= x[i] && x[i] <= high) places[count++] = static_cast<std::int32_t>(i) + 1;
              if (count == 0)
                for (std::size_t i = 0; i + 1 < x.size(); ++i)
                  if (x[i] < low && high < x[i + 1]) {
                    places[0] = static_cast<std::int32_t>(i) + 1;
                    count = 2;
                  }
              out = {count, count > 0 ? places[0] : 0};
            });
}

}  // namespace bench
