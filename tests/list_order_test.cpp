// Sorts and lists leave what the passes leave that define them, with memory and without.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numeric>

#include "frame/sorting.h"
#include "kezlib.h"
#include "lists/lists.h"
#include "lists/near_values.h"
#include "lists/ordering.h"
#include "lists/polygons.h"
#include "random.h"

static bool out_of_memory = false;
static int refused = 0;

extern "C" {
void* __real_malloc(std::size_t size);

void* __wrap_malloc(std::size_t size) {
  if (!out_of_memory) return __real_malloc(size);
  ++refused;
  return nullptr;
}
}

namespace kez {
namespace {

using test::Random;
using Integers = std::vector<std::int32_t>;
using Reals = std::vector<float>;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float lowest = std::numeric_limits<float>::lowest();

struct OutOfMemory {
  explicit OutOfMemory(bool out = true) {
    out_of_memory = out;
    refused = 0;
  }
  ~OutOfMemory() { out_of_memory = false; }
};

Integers bits(const Reals& list) {
  Integers result;
  for (const float x : list) result.push_back(std::bit_cast<std::int32_t>(x));
  return result;
}

// Lists that are sorted by ranks, by bytes and by longer digits.
int any_length(Random& random) {
  switch (random.integer(0, 9)) {
    case 0:
      return random.integer(1000, 1100);
    case 1:
    case 2:
    case 3:
    case 4:
      return random.integer(60, 300);
    case 5:
    case 6:
      return random.integer(13, 60);
    default:
      return random.integer(0, 12);
  }
}

// Values at whole tolerances from one another, values in between, and what has no neighbours: all
// of them, or some kinds; or around where 1 is lost in a sum.
Reals any_reals(Random& random, int n) {
  const float odd[] = {-0.0f, 1e7f,   16777220.0f, -infinity, nan, std::bit_cast<float>(0xffc00001),
                       3e38f, lowest, infinity};
  const int first = random.integer(0, 8), last = random.integer(first, 9);
  const int spread = random.integer(0, 1) ? random.integer(1, 3) : random.integer(4, 200),
            kind = random.integer(0, 9);
  const float large = kind == 0 ? 16777216.0f : kind == 1 ? -33554432.0f : 0;
  return random.list(n, [&] {
    if (last > first && random.integer(0, 9) == 0) return odd[random.integer(first, last - 1)];
    if (large != 0) return large + 2 * static_cast<float>(random.integer(-spread, spread));
    if (random.integer(0, 1)) return 0.25f * static_cast<float>(random.integer(-spread, spread));
    return random.real(-10, 10);
  });
}

float any_tolerance(Random& random) {
  const float all[] = {0.25f, 0.5f, 1.0f, 0.01f, 2.9f, 4.0f, 0.0f, -1.0f, infinity, nan};
  return all[random.integer(0, 9)];
}

Integers any_integers(Random& random, int n) {
  const int high = random.integer(0, 300), scale = random.integer(0, 1) ? 1 : 6000000;
  const bool wraps = random.integer(0, 3) == 0;
  return random.list(n, [&] {
    const int v = random.integer(-high, high);
    if (wraps && v == 7) return std::numeric_limits<std::int32_t>::max();
    return wraps && v == -7 ? std::numeric_limits<std::int32_t>::min() : scale * v;
  });
}

// What the interface promises, written down as the passes that define it.

void sort_by_passes(Reals& x) {
  for (std::size_t i = 0; i + 1 < x.size(); ++i) {
    float least = x[i];
    std::size_t taken = i;
    for (std::size_t j = i + 1; j < x.size(); ++j) {
      if (x[j] <= least) {
        least = x[j];
        taken = j;
      }
    }
    x[taken] = x[i];
    x[i] = least;
  }
}

Integers distinct_by_passes(Integers a, bool repeated, std::int32_t& n) {
  if (a.empty()) return a;
  const auto m = static_cast<std::int32_t>(std::int64_t{*std::ranges::max_element(a)} + 1);
  for (auto i = a.begin(); i != a.end(); ++i) {
    if (*i == m) continue;
    const auto found = std::count(i + 1, a.end(), *i);
    std::replace(i + 1, a.end(), std::int32_t{*i}, m);
    if (repeated && found == 0) *i = m;
  }
  std::ranges::sort(a);
  n = static_cast<std::int32_t>(std::ranges::count_if(a, [m](int v) { return v < m; }));
  return a;
}

float marker_by_passes(const Reals& a) {
  float top = lowest;
  for (const float x : a) top = x > top ? x : top;
  return top + 1.0f;
}

Reals distinct_by_passes(Reals a, float tol, std::int32_t& n) {
  const float m = marker_by_passes(a) + tol;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = i + 1; j < a.size(); ++j) {
      if (std::fabs(a[i] - a[j]) < tol) a[j] = m;
    }
  }
  Reals kept;
  std::ranges::copy_if(a, std::back_inserter(kept), [m](float x) { return x < m; });
  sort_by_passes(kept);
  std::ranges::copy(kept, a.begin());
  n = static_cast<std::int32_t>(kept.size());
  return a;
}

Integers mark_by_passes(Reals& a, float m, float tol) {
  Integers marked;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = i + 1; j < a.size(); ++j) {
      if (!(std::fabs(a[i] - a[j]) <= tol && std::fabs(a[i] - m) > tol)) continue;
      a[j] = m;
      marked.push_back(static_cast<std::int32_t>(j) + 1);
    }
  }
  return marked;
}

Integers order_by_passes(Reals w, Integers order) {
  const float m = marker_by_passes(w);
  for (std::size_t k = 0; k < w.size(); ++k) {
    float least = w[k];
    std::size_t chosen = w.size();
    for (std::size_t j = 0; j < w.size(); ++j) {
      if (w[j] <= least) {
        least = w[j];
        chosen = j;
      }
    }
    if (chosen == w.size()) continue;
    w[chosen] = m;
    order[k] = static_cast<std::int32_t>(chosen) + 1;
  }
  return order;
}

void check_sorts(Random& random, int n) {
  Reals x = any_reals(random, n), expected = x;
  sort_by_passes(expected);
  sort_ascending(std::span(x));
  EXPECT_EQ(bits(x), bits(expected));

  Integers order(x.size(), -1);
  const Reals list = any_reals(random, n);
  const Integers positions = order_by_passes(list, order);
  const bool needs_memory =
      std::ranges::any_of(list, [&](float v) { return !(v < marker_by_passes(list)); });
  if (order_ascending(list, order)) {
    EXPECT_EQ(order, positions);
  } else {
    EXPECT_TRUE(out_of_memory && needs_memory);
    EXPECT_EQ(order, Integers(order.size(), -1));
  }
}

void check_integers(Random& random, int n1, int n2) {
  const Integers a = any_integers(random, n1), b = any_integers(random, n2);
  for (const bool repeated : {false, true}) {
    Integers list = a;
    std::int32_t n = 0;
    const Integers expected = distinct_by_passes(a, repeated, n);
    EXPECT_EQ(repeated ? keep_repeated(list) : keep_distinct(std::span(list)), n);
    EXPECT_EQ(list, expected);
  }
  Integers common, differing;
  for (const int v : a) common.insert(common.end(), std::size_t(std::ranges::count(b, v)), v);
  const auto not_in = [](const Integers& list) {
    return [&](int v) { return std::ranges::count(list, v) == 0; };
  };
  std::ranges::copy_if(a, std::back_inserter(differing), not_in(b));
  std::ranges::copy_if(b, std::back_inserter(differing), not_in(a));
  Integers com(common.size()), dif(differing.size());
  const Comparison got = compare(a, b, com.data(), dif.data());
  EXPECT_EQ(got.common, std::ssize(common));
  EXPECT_EQ(got.differing, std::ssize(differing));
  EXPECT_EQ(com, common);
  EXPECT_EQ(dif, differing);
}

void check_striking(const Reals& a, float value, float tol) {
  const std::size_t n = a.size();
  const float m = marker_by_passes(a);
  Reals list = a;
  std::int32_t count = 0;
  const Reals distinct = distinct_by_passes(a, tol, count);
  EXPECT_EQ(keep_distinct(list, tol), count);
  EXPECT_EQ(bits(list), bits(distinct));

  Reals marked = a;
  const Integers expected = mark_by_passes(marked, m, tol);
  Integers positions(n);
  list = a;
  const NearDuplicates duplicates = mark_near_duplicates(list, tol, positions);
  positions.resize(static_cast<std::size_t>(duplicates.count));
  EXPECT_EQ(bits({duplicates.marker}), bits({m}));
  EXPECT_EQ(positions, expected);
  EXPECT_EQ(bits(list), bits(marked));

  Reals w = a, kept, out(n);
  for (float& x : w) x = std::fabs(x - value) > tol ? x : m;
  mark_by_passes(w, m, tol);
  for (std::size_t i = 0; i < n; ++i) {
    if (std::fabs(w[i] - m) > tol) kept.push_back(a[i]);
  }
  Integers map(n), idx(n);
  for (std::size_t i = 0; i < n; ++i) {
    for (std::size_t j = 0; j < kept.size(); ++j) {
      if (std::fabs(a[i] - kept[j]) <= tol) map[i] = static_cast<std::int32_t>(j) + 1;
    }
  }
  out.resize(static_cast<std::size_t>(map_distinct(a, value, tol, out, idx)));
  EXPECT_EQ(bits(out), bits(kept));
  EXPECT_EQ(idx, map);
}

void check_pairs(const Reals& a, const Reals& b, float tol) {
  Integers in_a, in_b;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size(); ++j) {
      if (!(std::fabs(a[i] - b[j]) <= tol)) continue;
      in_a.push_back(static_cast<std::int32_t>(i) + 1);
      in_b.push_back(static_cast<std::int32_t>(j) + 1);
    }
  }
  Integers ia(in_a.size()), ib(in_b.size());
  EXPECT_EQ(pair_near(a, b, tol, {0, 0}, ia.data(), ib.data()), std::ssize(in_a));
  EXPECT_EQ(ia, in_a);
  EXPECT_EQ(ib, in_b);
}

void check_all(Random& random, int n1, int n2) {
  check_sorts(random, n1);
  check_integers(random, n1, n2);
  check_striking(any_reals(random, n1), random.coordinate(), any_tolerance(random));
  const Reals a = any_reals(random, n1);
  Reals b = any_reals(random, n2);
  for (float& x : b) {
    if (n1 > 0 && random.integer(0, 1)) x = a[static_cast<std::size_t>(random.integer(0, n1 - 1))];
  }
  check_pairs(a, b, any_tolerance(random));
}

TEST(Passes, GiveTheSameAtAnyLength) {
  Random random(61);
  for (int round = 0; round < 1000 && !testing::Test::HasFailure(); ++round) {
    check_all(random, any_length(random), any_length(random));
  }
}

TEST(Passes, ExchangeNothingWhereNothingCompares) {
  Reals list(100, nan);
  list.front() = -nan;
  const Integers before = bits(list);
  sort_ascending(std::span(list));
  EXPECT_EQ(bits(list), before);
}

TEST(Memory, IsNoneOfTheHeapUpTo500Entries) {
  Random random(62);
  const OutOfMemory memory;
  for (int round = 0; round < 40; ++round) check_all(random, 500, 500);
  EXPECT_EQ(refused, 0);
}

TEST(Memory, MayBeMissingForLongerLists) {
  Random random(63);
  for (const bool out : {false, true}) {
    const OutOfMemory memory(out);
    for (int round = 0; round < 40; ++round) {
      check_all(random, 510, random.integer(0, 1) ? 501 : 500);
      check_all(random, 500, 510);
    }
    EXPECT_EQ(refused > 0, out);
  }
}

// Of equal entries the last comes first, without memory too. The entries are even, and so large
// that only a whole 1 makes the marker larger.
TEST(Memory, IsNotNeededToOrderOrdinaryEntries) {
  Random random(64);
  const Reals list = random.list(
      9000, [&] { return 8388608.0f + 2 * static_cast<float>(random.integer(0, 999)); });
  const Integers expected = order_by_passes(list, Integers(list.size()));
  Integers order(list.size(), -1);
  const OutOfMemory memory;
  EXPECT_TRUE(order_ascending(list, order));
  EXPECT_EQ(refused, 1);
  EXPECT_EQ(order, expected);
}

TEST(Memory, IsMissedByOrdersAndPolygons) {
  const Reals zeros(9000, 0.0f), ones(9000, 1.0f), huge(9000, 1e9f);
  Reals c(9000);
  std::iota(c.begin(), c.end(), -9000.0f);
  Integers order(9000, -1), identity(9000);
  std::iota(identity.begin(), identity.end(), 1);
  const ConstSpacePoints lines = {zeros.data(), ones.data(), c.data(), c.size()};
  EXPECT_EQ(order_parallel_lines(lines, order), LineOrder::ordered);
  EXPECT_EQ(order, Integers(identity.rbegin(), identity.rend()));

  const OutOfMemory memory;
  const Integers before = order;
  EXPECT_FALSE(order_ascending(huge, order));
  EXPECT_EQ(order, before);
  EXPECT_EQ(order_parallel_lines(lines, order), LineOrder::not_ordered);
  EXPECT_EQ(order, identity);

  Reals xs(9001), ys(9001), x1(18000), y1(18000), x2(18000), y2(18000);
  PolygonPart upper({x1.data(), y1.data(), 18000}), lower({x2.data(), y2.data(), 18000});
  EXPECT_EQ(cut_polygon({xs.data(), ys.data(), 9001}, {0, 1, 0}, upper, lower), 0);
  EXPECT_EQ(upper.count() + lower.count(), 0);
}

// Positions that are written into the list bring back what was struck out.
TEST(Lists, MarkNoMoreThanTheRoomForPositions) {
  for (const std::size_t n : {std::size_t{6}, std::size_t{100}}) {
    Reals list(2 * n, -7.0f);
    for (std::size_t i = 0; i < n; ++i)
      list[i] = std::array{1.0f, 5.0f, -5.0f, 7.0f, 5.0f, -3.0f}[i % 6];
    const auto count = static_cast<std::int32_t>(n);
    const float tol = 4;
    float big;
    std::int32_t marked;
    kezmer14(&count, list.data(), &marked, reinterpret_cast<std::int32_t*>(&list[1]), &big, &tol);
    EXPECT_LT(marked, count);
    EXPECT_TRUE(std::all_of(&list[n], &list[0] + 2 * n, [](float x) { return x == -7; }));
  }
}

// Points that are written over the positions bring such as are between the planes.
TEST(Lists, SelectNoMoreThanTheRoomForPoints) {
  const float p[] = {0, 0, 1, 0}, zeros[4] = {};
  float q[3][4] = {{0, 0, 1, -1}, {0, 0, 1, -1}, {0, 0, 1, -1}};
  const std::int32_t n = 4, mode = 3;
  std::int32_t codes[8], count;
  std::ranges::fill(codes, -7);
  kezptp2(&p[0], &p[1], &p[2], &p[3], &q[0][0], &q[0][1], &q[0][2], &q[0][3], &p[0], &p[1], &p[2],
          &p[3], &q[1][0], &q[1][1], &q[1][2], &q[1][3], &p[0], &p[1], &p[2], &p[3], &q[2][0],
          &q[2][1], &q[2][2], &q[2][3], &n, zeros, zeros, zeros, &mode, codes, codes, codes, &count,
          codes);
  EXPECT_EQ(count, n);
  EXPECT_TRUE(std::all_of(codes + n, codes + 2 * n, [](int x) { return x == -7; }));
}

}  // namespace
}  // namespace kez
