// Random lists to choose from, and calls of list routines that several benchmarks make.
#pragma once

#include <type_traits>

#include "harness.h"

namespace bench {

// Anything of either sign (reals of which the next integer is one too), or about one entry for each
// whole number from 0: then few entries of a list of reals are within the tolerance of another.
enum Range { anything, one_a_value };
constexpr float tolerance = 0.01f;

// As many lists of n entries as inputs rotate, one behind the other.
template <typename Number>
class Pool {
 public:
  Pool(std::size_t n, std::size_t lists, Range range) : n_(n), numbers_(n * lists) {
    constexpr Number most = std::is_integral_v<Number> ? 1'000'000'000 : 1'000'000;
    const auto high = range == anything ? most : static_cast<Number>(n);
    Random().fill(std::span(numbers_), range == anything ? -high : Number{0}, high);
  }
  Pool(std::size_t n, Range range) : Pool(n, inputs_of(n), range) {}

  std::span<Number> list(std::size_t k) { return std::span(numbers_).subspan(k * n_, n_); }
  std::span<const Number> list(std::size_t k) const {
    return std::span(numbers_).subspan(k * n_, n_);
  }

 private:
  std::size_t n_;
  std::vector<Number> numbers_;
};

template <typename Number>
std::int32_t count_of(std::span<Number> list) {
  return static_cast<std::int32_t>(list.size());
}

// kezmer13 for lists of which few entries are near another: those pairs need far less room than
// all would.
class NearPairs {
 public:
  explicit NearPairs(std::size_t n) : in_a_(2 * n), in_b_(2 * n) {}

  std::span<const std::int32_t> operator()(std::span<const float> a, std::span<const float> b,
                                           float tol) {
    const std::int32_t n1 = count_of(a), n2 = count_of(b);
    std::int32_t count;
    kezmer13(&n1, a.data(), &n2, b.data(), &count, in_a_.data(), in_b_.data(), &tol);
    return std::span(in_b_).first(count);
  }

 private:
  std::vector<std::int32_t> in_a_, in_b_;
};

}  // namespace bench
