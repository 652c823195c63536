// Lists with entries, or a tolerance, that a quick way may not take.
#include <limits>

#include "harness.h"
#include "pool.h"

namespace bench {

namespace {

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float not_a_number = std::numeric_limits<float>::quiet_NaN();

using Reals = std::span<float>;

// Long enough to tell what grows with the square, short enough to wait for it.
const std::vector<std::int64_t> two_sizes{10'000, 100'000};

// Registers make(n)(list), given a fresh list each time, spoilt.
template <typename Spoil, typename Make>
void spoilt(const std::string& name, Spoil spoil, Make make) {
  each_size(name, two_sizes, [spoil, make](std::size_t n) {
    return [pool = Pool<float>(n, one_a_value), work = std::vector<float>(n), spoil,
            run = make(n)](std::size_t k) mutable {
      std::ranges::copy(pool.list(k), work.begin());
      spoil(Reals(work));
      run(Reals(work));
      return Reals();
    };
  });
}

constexpr auto with_both_zeros = [](Reals list) {
  list[list.size() / 3] = 0.0f;
  list[list.size() / 2] = -0.0f;
};
constexpr auto with_not_a_number = [](Reals list) { list[list.size() / 3] = not_a_number; };
constexpr auto with_infinity = [](Reals list) { list[list.size() / 3] = infinity; };
constexpr auto with_minus_infinity = [](Reals list) { list[list.size() / 3] = -infinity; };
// Where the next integer is no float.
constexpr auto beyond_2_to_24 = [](Reals list) {
  for (float& x : list) x *= 1.0e6f;
};
constexpr auto not_spoilt = [](Reals) {};

auto sort(std::size_t) {
  return [](Reals list) {
    const std::int32_t n = count_of(list);
    kezord(list.data(), &n);
  };
}

auto order(std::size_t size) {
  return [order = std::vector<std::int32_t>(size)](Reals list) mutable {
    const std::int32_t n = count_of(list);
    kezordi(list.data(), &n, order.data());
  };
}

// Lines x + y + c = 0, whose intercepts are -c.
auto order_lines(std::size_t size) {
  return [ones = std::vector<float>(size, 1.0f),
          order = std::vector<std::int32_t>(size)](Reals list) mutable {
    const std::int32_t n = count_of(list);
    std::int32_t status;
    kezpor(&n, ones.data(), ones.data(), list.data(), order.data(), &status);
  };
}

auto make_distinct(std::size_t) {
  return [](Reals list) {
    std::int32_t n = count_of(list);
    kezmer12(&n, list.data(), &tolerance);
  };
}

auto pair_near(float tol) {
  return [tol](std::size_t n) {
    return [tol, pairs = NearPairs(n)](Reals list) mutable {
      pairs(list.first(list.size() / 2), list.last(list.size() / 2), tol);
    };
  };
}

auto mark_near(float tol) {
  return [tol](std::size_t size) {
    return [tol, idx = std::vector<std::int32_t>(size)](Reals list) mutable {
      const std::int32_t n = count_of(list);
      std::int32_t nd;
      float big;
      kezmer14(&n, list.data(), &nd, idx.data(), &big, &tol);
    };
  };
}

auto map_distinct(float tol) {
  return [tol](std::size_t size) {
    return [tol, out = std::vector<float>(size),
            idx = std::vector<std::int32_t>(size)](Reals list) mutable {
      const std::int32_t n = count_of(list);
      const float value = 0;
      std::int32_t nout;
      kezmer19(&n, list.data(), out.data(), &value, &nout, idx.data(), &tol);
    };
  };
}

}  // namespace

void register_unfriendly() {
  spoilt("kezord_zeros", with_both_zeros, sort);
  spoilt("kezord_nan", with_not_a_number, sort);
  spoilt("kezordi_nan", with_not_a_number, order);
  spoilt("kezordi_infinity", with_infinity, order);
  spoilt("kezordi_large", beyond_2_to_24, order);
  spoilt("kezpor_infinity", with_minus_infinity, order_lines);
  spoilt("kezmer12_large", beyond_2_to_24, make_distinct);
  spoilt("kezmer13_nan", not_spoilt, pair_near(not_a_number));
  spoilt("kezmer13_infinity", not_spoilt, pair_near(-infinity));
  spoilt("kezmer14_infinity", not_spoilt, mark_near(-infinity));
  spoilt("kezmer19_infinity", not_spoilt, map_distinct(-infinity));
}

}  // namespace bench
