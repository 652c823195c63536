// Lists with entries, or a tolerance, that a quick way may not take: no quadratic time.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <limits>
#include <numeric>
#include <random>
#include <vector>

#include "kezlib.h"

namespace {

using Reals = std::vector<float>;
using Integers = std::vector<std::int32_t>;
using Work = std::function<void(Reals&)>;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();
constexpr float near = 0.4f;

// Values a unit apart in random order, with the odd ones among them.
Reals list_with(std::size_t n, float scale, const Reals& odd) {
  Reals list(n);
  std::iota(list.begin(), list.end(), 1.0f);
  for (float& value : list) value *= scale;
  std::ranges::copy(odd, list.begin());
  std::ranges::shuffle(list, std::mt19937(7));
  return list;
}

// The least of several times, in seconds.
double time_of(const Work& work, const Reals& list) {
  double least = std::numeric_limits<double>::max();
  for (int round = 0; round < 5; ++round) {
    Reals copy = list;
    const auto begin = std::chrono::steady_clock::now();
    work(copy);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    least = std::min(least, taken.count());
  }
  return least;
}

// Sixteen times the entries take about 20 times as long with n log n, and 256 times where time is
// quadratic.
void expect_no_square(const char* name, const Work& work, float scale = 1, const Reals& odd = {}) {
  const double few = time_of(work, list_with(4'000, scale, odd));
  const double many = time_of(work, list_with(64'000, scale, odd));
  EXPECT_LT(many, 80 * few) << name;
}

std::int32_t count_of(const Reals& list) {
  return static_cast<std::int32_t>(list.size());
}

TEST(Growth, IsNotQuadraticInUnfriendlyLists) {
  const Work sort = [](Reals& list) {
    const std::int32_t n = count_of(list);
    kezord(list.data(), &n);
  };
  const Work order = [](Reals& list) {
    const std::int32_t n = count_of(list);
    Integers places(list.size());
    kezordi(list.data(), &n, places.data());
  };
  // Lines x + y + c = 0, whose intercepts are -c.
  const Work order_lines = [](Reals& list) {
    const std::int32_t n = count_of(list);
    std::int32_t status;
    Integers places(list.size());
    const Reals ones(list.size(), 1.0f);
    kezpor(&n, ones.data(), ones.data(), list.data(), places.data(), &status);
  };
  const Work distinct = [](Reals& list) {
    std::int32_t n = count_of(list);
    kezmer12(&n, list.data(), &near);
  };
  expect_no_square("kezord, both zeros", sort, 1, {0.0f, -0.0f});
  expect_no_square("kezord, a not-a-number", sort, 1, {not_a_number});
  expect_no_square("kezordi, a not-a-number", order, 1, {not_a_number});
  expect_no_square("kezordi, an infinity", order, 1, {infinity});
  expect_no_square("kezordi, beyond 2^24", order, 1e6f);
  expect_no_square("kezpor, an infinity", order_lines, 1, {-infinity});
  expect_no_square("kezmer12, beyond 2^24", distinct, 1e6f);
}

TEST(Growth, IsNotQuadraticWithUnfriendlyTolerances) {
  for (const float tol : {not_a_number, -infinity}) {
    expect_no_square("kezmer13", [tol](Reals& list) {
      const std::int32_t half = count_of(list) / 2;
      std::int32_t pairs;
      Integers in_a(list.size()), in_b(list.size());
      kezmer13(&half, list.data(), &half, list.data() + half, &pairs, in_a.data(), in_b.data(),
               &tol);
    });
    expect_no_square("kezmer14", [tol](Reals& list) {
      const std::int32_t n = count_of(list);
      std::int32_t nd;
      float big;
      Integers marks(list.size());
      kezmer14(&n, list.data(), &nd, marks.data(), &big, &tol);
    });
    expect_no_square("kezmer19", [tol](Reals& list) {
      const std::int32_t n = count_of(list);
      const float value = 0;
      std::int32_t nout;
      Integers map(list.size());
      Reals out(list.size());
      kezmer19(&n, list.data(), out.data(), &value, &nout, map.data(), &tol);
    });
  }
}

}  // namespace
