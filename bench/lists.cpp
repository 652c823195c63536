// Lists: sorted, made distinct, compared, paired.
#include <absl/container/flat_hash_map.h>
#include <absl/container/flat_hash_set.h>

#include <bit>
#include <boost/sort/spreadsort/spreadsort.hpp>
#include <numeric>

#include "harness.h"
#include "pool.h"

namespace bench {

namespace {

namespace sort = boost::sort::spreadsort;

const std::vector<std::int64_t> sizes{10, 30, 100, 1'000, 10'000, 100'000, 1'000'000};

// Registers run on a fresh copy of a list of n entries.
template <typename Number, typename Run>
void in_place(const char* name, const std::vector<std::int64_t>& of, Range range, Run run) {
  each_size(name, of, [range, run](std::size_t n) {
    return
        [pool = Pool<Number>(n, range), work = std::vector<Number>(n), run](std::size_t k) mutable {
          std::ranges::copy(pool.list(k), work.begin());
          return run(std::span(work));
        };
  });
}

// A routine (list, n), as a run.
template <auto routine>
constexpr auto sorted_by = [](auto list) {
  const std::int32_t n = count_of(list);
  routine(list.data(), &n);
  return list;
};

void sorts() {
  in_place<float>("kezord", sizes, anything, sorted_by<kezord>);
  in_place<float>("spreadsort_reals", sizes, anything, [](std::span<float> list) {
    sort::spreadsort(list.begin(), list.end());
    return list;
  });
  in_place<std::int32_t>("kezord1", sizes, anything, sorted_by<kezord1>);
  in_place<std::int32_t>("spreadsort_integers", sizes, anything, [](std::span<int32_t> list) {
    sort::spreadsort(list.begin(), list.end());
    return list;
  });
}

// Sorts by value.
std::uint64_t packed(float value, std::uint32_t index) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  const std::uint32_t key =
      bits ^ (static_cast<std::int32_t>(bits) < 0 ? 0xffffffffu : 0x80000000u);
  return std::uint64_t{key} << 32 | index;
}

// Three stable passes of 11 bits over the upper words.
void radix_sort(std::vector<std::uint64_t>& entries, std::vector<std::uint64_t>& other) {
  for (const int shift : {32, 43, 54}) {
    const auto digit = [shift](std::uint64_t entry) { return entry >> shift & 2047; };
    std::array<std::uint32_t, 2048> place{};
    for (const std::uint64_t entry : entries) ++place[digit(entry)];
    std::exclusive_scan(place.begin(), place.end(), place.begin(), 0u);
    for (const std::uint64_t entry : entries) other[place[digit(entry)]++] = entry;
    entries.swap(other);
  }
}

class PackedOrder {
 public:
  PackedOrder(std::size_t n, bool by_radix)
      : by_radix_(by_radix), order_(n), entries_(n), other_(n) {}

  std::span<std::int32_t> operator()(std::span<const float> list) {
    const auto n = static_cast<std::uint32_t>(list.size());
    // From behind, so that the last of equals comes first.
    for (std::uint32_t i = 0; i < n; ++i) entries_[i] = packed(list[n - 1 - i], n - i);
    if (by_radix_) {
      radix_sort(entries_, other_);
    } else {
      std::ranges::sort(entries_);
    }
    for (std::uint32_t i = 0; i < n; ++i) order_[i] = static_cast<std::int32_t>(entries_[i]);
    return order_;
  }

 private:
  bool by_radix_;
  std::vector<std::int32_t> order_;
  std::vector<std::uint64_t> entries_, other_;
};

void orders() {
  each_size("kezordi", sizes, [](std::size_t n) {
    return [pool = Pool<float>(n, anything),
            order = std::vector<std::int32_t>(n)](std::size_t k) mutable {
      const std::span list = pool.list(k);
      const std::int32_t count = count_of(list);
      kezordi(list.data(), &count, order.data());
      return std::span(order);
    };
  });
  const auto packed_by = [](bool radix) {
    return [radix](std::size_t n) {
      return [pool = Pool<float>(n, anything),
              order = PackedOrder(n, radix)](std::size_t k) mutable { return order(pool.list(k)); };
    };
  };
  each_size("packed_sort", {10, 30, 100}, packed_by(false));
  each_size("radix_order", {1'000, 10'000, 100'000, 1'000'000}, packed_by(true));
}

// In any order, which a hash set leaves open.
struct Unordered {
  std::span<std::int32_t> values;
};

double digest(const Unordered& distinct) {
  std::vector<std::int32_t> sorted(distinct.values.begin(), distinct.values.end());
  std::ranges::sort(sorted);
  return bench::digest(std::span(sorted));
}

Unordered hash_distinct(std::span<std::int32_t> list) {
  absl::flat_hash_set<std::int32_t> seen(list.size());
  auto end = list.begin();
  for (const std::int32_t value : list)
    if (seen.insert(value).second) *end++ = value;
  return {{list.begin(), end}};
}

void distinct_values() {
  in_place<std::int32_t>("kezmer2", sizes, one_a_value, [](std::span<std::int32_t> list) {
    std::int32_t n = count_of(list);
    kezmer2(&n, list.data());
    return list.first(n);
  });
  in_place<std::int32_t>("spreadsort_unique", sizes, one_a_value, [](std::span<int32_t> list) {
    sort::spreadsort(list.begin(), list.end());
    return list.first(std::unique(list.begin(), list.end()) - list.begin());
  });
  in_place<std::int32_t>("hash_distinct", {1'000, 10'000, 100'000, 1'000'000}, one_a_value,
                         hash_distinct);
  in_place<float>("kezmer12", sizes, one_a_value, [](std::span<float> list) {
    std::int32_t n = count_of(list);
    kezmer12(&n, list.data(), &tolerance);
    return list.first(n);
  });
  in_place<float>("sort_unique", sizes, one_a_value, [](std::span<float> list) {
    std::ranges::sort(list);
    const auto rest = std::ranges::unique(list, [](float a, float b) { return b - a < tolerance; });
    return list.first(rest.begin() - list.begin());
  });
}

using Integers = std::span<const std::int32_t>;

struct Compared {
  Integers common, differing;
};

double digest(const Compared& lists) {
  return bench::digest(lists.common) + bench::digest(lists.differing);
}

auto kezmer4_of(std::size_t n) {
  return [n, pool = Pool<std::int32_t>(2 * n, inputs_of(n), one_a_value),
          com = std::vector<std::int32_t>(4 * n),
          dif = std::vector<std::int32_t>(2 * n)](std::size_t k) mutable {
    const auto a = pool.list(k).first(n), b = pool.list(k).last(n);
    const std::int32_t n1 = count_of(a), n2 = count_of(b);
    std::int32_t ncom, ndif;
    kezmer4(&n1, a.data(), &n2, b.data(), &ncom, com.data(), &ndif, dif.data());
    return Compared{Integers(com).first(ncom), Integers(dif).first(ndif)};
  };
}

auto hash_compare_of(std::size_t n) {
  return [n, pool = Pool<std::int32_t>(2 * n, inputs_of(n), one_a_value),
          com = std::vector<std::int32_t>(4 * n),
          dif = std::vector<std::int32_t>(2 * n)](std::size_t k) mutable {
    const auto a = pool.list(k).first(n), b = pool.list(k).last(n);
    const absl::flat_hash_set<std::int32_t> in_a(a.begin(), a.end());
    absl::flat_hash_map<std::int32_t, std::int32_t> in_b(n);
    for (const std::int32_t value : b) ++in_b[value];
    auto com_end = com.begin(), dif_end = dif.begin();
    for (const std::int32_t value : a) {
      const auto found = in_b.find(value);
      if (found == in_b.end())
        *dif_end++ = value;
      else
        com_end = std::fill_n(com_end, found->second, value);
    }
    for (const std::int32_t value : b)
      if (!in_a.contains(value)) *dif_end++ = value;
    return Compared{Integers(com.begin(), com_end), Integers(dif.begin(), dif_end)};
  };
}

// The pairs as kezmer13 gives them: by position in a, then in b.
class TwoPointers {
 public:
  Integers operator()(std::span<const float> a, std::span<const float> b) {
    sort_by_value(a, by_a_);
    sort_by_value(b, by_b_);
    pairs_.clear();
    auto first = by_b_.begin();
    for (const auto& [x, i] : by_a_) {
      while (first != by_b_.end() && x - first->first > tolerance) ++first;
      for (auto e = first; e != by_b_.end() && e->first - x <= tolerance; ++e)
        pairs_.emplace_back(i, e->second);
    }
    std::ranges::sort(pairs_);
    in_b_.resize(pairs_.size());
    std::ranges::transform(pairs_, in_b_.begin(), [](auto pair) { return pair.second; });
    return in_b_;
  }

 private:
  using Entries = std::vector<std::pair<float, std::int32_t>>;

  static void sort_by_value(std::span<const float> list, Entries& entries) {
    entries.clear();
    for (const float x : list)
      entries.emplace_back(x, static_cast<std::int32_t>(entries.size()) + 1);
    std::ranges::sort(entries, {}, &Entries::value_type::first);
  }

  Entries by_a_, by_b_;
  std::vector<std::pair<std::int32_t, std::int32_t>> pairs_;
  std::vector<std::int32_t> in_b_;
};

void two_lists() {
  each_size("kezmer4", sizes, kezmer4_of);
  each_size("hash_compare", sizes, hash_compare_of);
  each_size("kezmer13", sizes, [](std::size_t n) {
    return [n, pool = Pool<float>(2 * n, inputs_of(n), one_a_value),
            pairs = NearPairs(n)](std::size_t k) mutable {
      return pairs(pool.list(k).first(n), pool.list(k).last(n), tolerance);
    };
  });
  each_size("two_pointers", sizes, [](std::size_t n) {
    return [n, pool = Pool<float>(2 * n, inputs_of(n), one_a_value),
            pairs = TwoPointers()](std::size_t k) mutable {
      return pairs(pool.list(k).first(n), pool.list(k).last(n));
    };
  });
}

}  // namespace

void register_lists() {
  sorts();
  orders();
  distinct_values();
  two_lists();
}

}  // namespace bench
