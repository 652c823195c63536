// Properties of lists, orders, principal axes, polygons and slabs.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <new>
#include <numeric>
#include <set>

#include "lists/lists.h"
#include "lists/near_values.h"
#include "lists/ordering.h"
#include "lists/polygons.h"
#include "lists/principal_axes.h"
#include "lists/slabs.h"
#include "random.h"

static bool out_of_memory = false;

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return out_of_memory ? nullptr : ::operator new[](size);
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
  explicit OutOfMemory(bool out = true) { out_of_memory = out; }
  ~OutOfMemory() { out_of_memory = false; }
};

Integers bits(const Reals& list) {
  Integers result;
  for (const float x : list) result.push_back(std::bit_cast<std::int32_t>(x));
  return result;
}

// Short lists, lists on both sides of what is long, and lists too long for the stack.
int any_length(Random& random) {
  return random.integer(0, 1) ? random.integer(0, 12) : random.integer(100, 400);
}

// Values at whole tolerances from one another, values in between, and what has no neighbours: all
// of them, or some kinds.
Reals any_reals(Random& random) {
  const float odd[] = {-0.0f, 1e7f, 16777220.0f, -infinity, nan, 3e38f, lowest, infinity};
  const int first = random.integer(0, 7), last = random.integer(first, 8);
  const int spread = random.integer(1, 200);
  return random.list(any_length(random), [&] {
    if (last > first && random.integer(0, 9) == 0) return odd[random.integer(first, last - 1)];
    if (random.integer(0, 1)) return 0.25f * static_cast<float>(random.integer(-spread, spread));
    return random.real(-10, 10);
  });
}

float any_tolerance(Random& random) {
  const float all[] = {0.25f, 0.5f, 1.0f, 0.01f, 2.9f, 0.0f, -1.0f, infinity, nan};
  return all[random.integer(0, 8)];
}

// What the interface promises, written down as the passes that define it.

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
  sort_ascending(kept);
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

TEST(Lists, IntegersAreThoseOfThePasses) {
  Random random(61);
  for (int round = 0; round < 400; ++round) {
    const OutOfMemory memory(round % 3 == 0);
    const int high = random.integer(0, 300);
    const auto draw = [&] {
      const auto v = random.integer(-high, high);
      return v == 7 ? std::numeric_limits<std::int32_t>::max() : v == -7 ? INT32_MIN : v;
    };
    const Integers a = random.list(any_length(random), draw);
    const Integers b = random.list(any_length(random), draw);

    for (const bool repeated : {false, true}) {
      Integers list = a;
      std::int32_t n = 0;
      const Integers expected = distinct_by_passes(a, repeated, n);
      EXPECT_EQ(repeated ? keep_repeated(list) : keep_distinct(std::span(list)), n);
      EXPECT_EQ(list, expected);
    }
    Integers common, differing;
    for (const int v : a) common.insert(common.end(), std::size_t(std::ranges::count(b, v)), v);
    const auto in = [](const Integers& list) {
      return [&](int v) { return std::ranges::count(list, v) == 0; };
    };
    std::ranges::copy_if(a, std::back_inserter(differing), in(b));
    std::ranges::copy_if(b, std::back_inserter(differing), in(a));
    Integers com(common.size()), dif(differing.size());
    const Comparison got = compare(a, b, com.data(), dif.data());
    EXPECT_EQ(got.common, std::ssize(common));
    EXPECT_EQ(got.differing, std::ssize(differing));
    EXPECT_EQ(com, common);
    EXPECT_EQ(dif, differing);
  }
}

TEST(Lists, NearValuesAreThoseOfThePasses) {
  Random random(62);
  for (int round = 0; round < 1000; ++round) {
    const OutOfMemory memory(round % 3 == 0);
    const Reals a = any_reals(random), b = any_reals(random);
    const std::size_t n = a.size();
    const float tol = any_tolerance(random), value = random.coordinate();
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
    const NearDuplicates duplicates = mark_near_duplicates(list, tol, positions.data());
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
    out.resize(static_cast<std::size_t>(map_distinct(a, value, tol, out.data(), idx)));
    EXPECT_EQ(bits(out), bits(kept));
    EXPECT_EQ(idx, map);

    Integers in_a, in_b;
    for (std::size_t i = 0; i < n; ++i) {
      for (std::size_t j = 0; j < b.size(); ++j) {
        if (!(std::fabs(a[i] - b[j]) <= tol)) continue;
        in_a.push_back(static_cast<std::int32_t>(i) + 1);
        in_b.push_back(static_cast<std::int32_t>(j) + 1);
      }
    }
    Integers ia(in_a.size()), ib(in_b.size());
    EXPECT_EQ(pair_near(a, b, tol, 0, ia.data(), ib.data()), std::ssize(in_a));
    EXPECT_EQ(ia, in_a);
    EXPECT_EQ(ib, in_b);
  }
}

TEST(Lists, OrderIsThatOfThePasses) {
  Random random(63);
  for (int round = 0; round < 1000; ++round) {
    const Reals list = any_reals(random);
    Integers order(list.size(), -1);
    const Integers expected = order_by_passes(list, order);
    order_ascending(list, order.data());
    EXPECT_EQ(order, expected);
  }
}

TEST(Lists, AgreeWithTheStandardLibrary) {
  Random random(64);
  for (int round = 0; round < 500; ++round) {
    const auto draw = [&] { return random.integer(-99, 99); };
    Integers a = random.list(random.integer(0, 200), draw);
    Integers b = random.list(random.integer(0, 200), draw);
    const std::set<std::int32_t> set_a(a.begin(), a.end()), set_b(b.begin(), b.end());
    a.resize(static_cast<std::size_t>(keep_distinct(std::span(a))));
    b.resize(static_cast<std::size_t>(keep_distinct(std::span(b))));
    EXPECT_TRUE(std::ranges::equal(a, set_a));

    Integers common, different, com(a.size() * b.size()), dif(a.size() + b.size());
    std::ranges::set_intersection(set_a, set_b, std::back_inserter(common));
    std::ranges::set_symmetric_difference(set_a, set_b, std::back_inserter(different));
    const Comparison got = compare(a, b, com.data(), dif.data());
    com.resize(static_cast<std::size_t>(got.common));
    dif.resize(static_cast<std::size_t>(got.differing));
    EXPECT_EQ(com, common);
    std::ranges::sort(dif);
    EXPECT_EQ(dif, different);
  }
}

TEST(Lists, WithoutMemoryOutputsAreEmpty) {
  const Reals zeros(300, 0.0f), ones(300, 1.0f), huge(300, 1e9f);
  Reals c(300);
  std::iota(c.begin(), c.end(), -300.0f);
  Integers order(300, -1), identity(300);
  std::iota(identity.begin(), identity.end(), 1);
  const ConstSpacePoints lines = {zeros.data(), ones.data(), c.data(), c.size()};
  EXPECT_EQ(order_parallel_lines(lines, order.data()), LineOrder::ordered);
  EXPECT_EQ(order, Integers(identity.rbegin(), identity.rend()));

  const OutOfMemory memory;
  const Integers before = order;
  EXPECT_FALSE(order_ascending(huge, order.data()));
  EXPECT_EQ(order, before);
  EXPECT_EQ(order_parallel_lines(lines, order.data()), LineOrder::not_ordered);
  EXPECT_EQ(order, identity);

  Reals xs(301), ys(301), x1(600), y1(600), x2(600), y2(600);
  PolygonPart upper({x1.data(), y1.data(), 600}), lower({x2.data(), y2.data(), 600});
  EXPECT_EQ(cut_polygon({xs.data(), ys.data(), 301}, {0, 1, 0}, upper, lower), 0);
  EXPECT_EQ(upper.count() + lower.count(), 0);
}

TEST(PrincipalAxes, HaveNoProductMoment) {
  Random random(65);
  for (int round = 0; round < 5000; ++round) {
    const float p = random.real(0.5f, 10), q = random.real(0.5f, 10), r = random.coordinate();
    const PrincipalAxes axes = principal_axes(p, q, r);
    const float two_theta = 2 * axes.theta;
    EXPECT_NEAR(axes.u + axes.v, p + q, 1e-4f);
    EXPECT_NEAR(r * std::cos(two_theta) + (p - q) / 2 * std::sin(two_theta), 0, 1e-4f);
    EXPECT_LE(std::fabs(axes.theta), 0.78539824f);
    EXPECT_NEAR(axes.u * axes.v, p * q - r * r, 1e-2f);
  }
}

// A polygon around the origin of either sense, with room to close it.
struct Star {
  Reals xs, ys;
  std::size_t n() const { return xs.size() - 1; }
  PlanePoints points() { return {xs.data(), ys.data(), xs.size()}; }
};

Star any_star(Random& random) {
  Star star;
  const int n = random.integer(3, 20), sense = random.integer(0, 1) ? 1 : -1;
  for (int i = 0; i < n; ++i) {
    const float angle = 6.2831855f * static_cast<float>(sense * i) / static_cast<float>(n) + 0.1f;
    const float radius = random.real(1, 6);
    star.xs.push_back(radius * std::cos(angle));
    star.ys.push_back(radius * std::sin(angle));
  }
  star.xs.push_back(nan);
  star.ys.push_back(nan);
  return star;
}

double twice_area(const float* x, const float* y, std::size_t n) {
  double area = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t j = (i + 1) % n;
    area += double(x[i]) * double(y[j]) - double(x[j]) * double(y[i]);
  }
  return area;
}

TEST(Polygons, PointIsInsideWhereTheOutlineWindsRoundIt) {
  Random random(66);
  int inside = 0, outside = 0;
  for (int round = 0; round < 5000; ++round) {
    Star star = any_star(random);
    const Vec2 p = {random.real(-6, 6), random.real(-6, 6)};
    float winding = 0;
    bool clear = true;
    for (std::size_t i = 0; i < star.n(); ++i) {
      const std::size_t j = (i + 1) % star.n();
      const float ux = star.xs[i] - p.x, uy = star.ys[i] - p.y;
      const float wx = star.xs[j] - p.x, wy = star.ys[j] - p.y;
      const float turn = std::atan2(ux * wy - uy * wx, ux * wx + uy * wy);
      winding += turn;
      clear &= std::fabs(turn) < 3.1f && std::fabs(uy) > 1e-2f;
    }
    if (!clear) continue;
    const bool is_inside = std::fabs(winding) > 3;
    ++(is_inside ? inside : outside);
    EXPECT_EQ(locate_in_polygon(star.points(), p),
              is_inside ? PolygonPosition::inside : PolygonPosition::outside);
  }
  EXPECT_GT(std::min(inside, outside), 1000);
}

TEST(Polygons, AreasOfBothPartsAddUp) {
  Random random(67);
  for (int round = 0; round < 5000; ++round) {
    Star star = any_star(random);
    const float shift = 0.5f * static_cast<float>(random.integer(-6, 6));
    for (float& y : star.ys) y += shift;
    const std::size_t n = star.n();
    Reals x1(2 * n), y1(2 * n), x2(2 * n), y2(2 * n);
    PolygonPart upper({x1.data(), y1.data(), 2 * n}), lower({x2.data(), y2.data(), 2 * n});
    const float length = cut_polygon(star.points(), {0, 1, 0}, upper, lower);
    const auto n1 = static_cast<std::size_t>(upper.count());
    const auto n2 = static_cast<std::size_t>(lower.count());
    const double parts =
        twice_area(x1.data(), y1.data(), n1) + twice_area(x2.data(), y2.data(), n2);
    EXPECT_NEAR(parts, twice_area(star.xs.data(), star.ys.data(), n), 1e-3);
    EXPECT_TRUE(std::all_of(&y1[0], &y1[0] + n1, [](float y) { return y >= -1e-5f; }));
    EXPECT_TRUE(std::all_of(&y2[0], &y2[0] + n2, [](float y) { return y <= 1e-5f; }));
    EXPECT_EQ(length > 0, n1 + n2 > n + 1);
  }
}

TEST(Slabs, BoxHoldsWhatItsListsSay) {
  Random random(68);
  for (int round = 0; round < 500; ++round) {
    const int n = random.integer(0, 60);
    const auto draw = [&] { return random.coordinate(); };
    const Reals xs = random.list(n, draw), ys = random.list(n, draw), zs = random.list(n, draw);
    const ConstSpacePoints points = {xs.data(), ys.data(), zs.data(), xs.size()};
    std::vector<Integers> codes(3, Integers(xs.size()));
    Integers faces, inside;
    for (std::size_t s = 0; s < 3; ++s) {
      // Between e . p = -2 and e . p = 2, where e is a direction with whole components.
      const float ex = s == 0 ? 1.0f : 0.0f, ey = s == 1 ? -2.0f : 1.0f, ez = s == 2 ? 2.0f : 0.0f;
      const float k = random.integer(0, 1) ? 1.0f : -2.0f;
      const Slab slab = {{ex, ey, ez, 2}, {k * ex, k * ey, k * ez, k * -2}};
      EXPECT_EQ(locate_in_slab(slab, points, codes[s].data()).has_value(), k > 0);
      for (std::size_t i = 0; i < xs.size(); ++i) {
        const double d =
            double(ex) * double(xs[i]) + double(ey) * double(ys[i]) + double(ez) * double(zs[i]);
        if (std::fabs(std::fabs(d) - 2) < 1e-4 && std::fabs(d) != 2) continue;
        EXPECT_EQ(codes[s][i], d == -2 ? 1 : d == 2 ? 2 : std::fabs(d) < 2 ? 3 : 4);
      }
      Integers between;
      for (int i = 1; i <= n; ++i) {
        const auto code = codes[s][std::size_t(i) - 1];
        if (code == 1 || code == 2) faces.push_back(i);
        if (code == 3) between.push_back(i);
      }
      if (s == 0) inside = between;
      inside.insert(inside.end(), between.begin(), between.end());
      inside.resize(static_cast<std::size_t>(keep_repeated(inside)));
    }
    faces.resize(static_cast<std::size_t>(keep_distinct(std::span(faces))));
    Integers both = faces, out(xs.size());
    both.insert(both.end(), inside.begin(), inside.end());
    const BoxPositions box = {codes[0], codes[1], codes[2]};
    const auto selected = [&](BoxSelection selection) {
      return Integers(out.begin(), out.begin() + *select_points(box, selection, out.data()));
    };
    EXPECT_EQ(selected(BoxSelection::on_faces), faces);
    EXPECT_EQ(selected(BoxSelection::inside), inside);
    EXPECT_EQ(selected(BoxSelection::both), both);
  }
}

}  // namespace
}  // namespace kez
