#include "near_values.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "../frame/numbers.h"
#include "../frame/tables.h"
#include "extremes.h"
#include "work_list.h"

namespace kez {

namespace {

bool near(float a, float b, float tol) noexcept {
  return std::fabs(a - b) <= tol;
}

// Not the opposite of near: not-a-number is neither.
bool apart(float a, float b, float tol) noexcept {
  return std::fabs(a - b) > tol;
}

// The entries of a list by value. Rounding keeps differences in order, so that what is near a
// finite value, by whatever tolerance, is one run of them. Not-a-number is near nothing and left
// out.
class SortedEntries {
 public:
  explicit SortedEntries(std::span<const float> list) noexcept : memory_(list.size()) {
    if (!memory_) return;
    std::size_t count = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
      if (!std::isnan(list[i]))
        memory_.entries()[count++] = {list[i], static_cast<std::uint32_t>(i)};
    }
    entries_ = memory_.entries().first(count);
    std::sort(entries_.begin(), entries_.end(),
              [](const Entry& p, const Entry& q) { return p.value < q.value; });
  }

  // False where there was no memory.
  explicit operator bool() const noexcept { return static_cast<bool>(memory_); }

  template <typename Near, typename Visit>
  void visit_near(float x, Near is_near, Visit visit) const noexcept {
    const auto below = [&](const Entry& e) { return e.value < x && !is_near(x, e.value); };
    auto e = std::partition_point(entries_.begin(), entries_.end(), below);
    for (; e != entries_.end() && is_near(x, e->value); ++e) visit(e->index);
  }

 private:
  struct Entry {
    float value;
    std::uint32_t index;
  };

  WorkList<Entry> memory_;
  std::span<Entry> entries_;
};

// The entries of a list near a value: a short list is looked through, a long one is sorted first,
// where that finds the same and there is memory. With an infinite tolerance it does not: an
// infinite value is then near the finite ones but not near its equals, which is no run of sorted
// entries.
template <typename Near>
class NearSearch {
 public:
  NearSearch(std::span<const float> list, Near near, bool sortable) noexcept
      : list_(list),
        near_(near),
        sorts_(sortable && list.size() >= long_list),
        sorted_(sorts_ ? list : std::span<const float>()) {}

  template <typename Visit>
  void visit(float x, std::size_t first, Visit visit) const noexcept {
    if (sorts_ && sorted_) {
      sorted_.visit_near(x, near_, [&](std::size_t index) {
        if (index >= first) visit(index, true);
      });
    } else {
      for (std::size_t i = first; i < list_.size(); ++i) visit(i, near_(x, list_[i]));
    }
  }

 private:
  std::span<const float> list_;
  Near near_;
  bool sorts_;
  SortedEntries sorted_;
};

auto at_most(float tol) noexcept {
  return [tol](float a, float b) { return near(a, b, tol); };
}

}  // namespace

std::int32_t keep_distinct(std::span<float> list, float tol) noexcept {
  const float top = largest(list), marker = top + 1.0f + tol;
  const auto less_than_tol_apart = [tol](float a, float b) { return std::fabs(a - b) < tol; };
  // A marker less than tol away from entries strikes out more, which the sorted ones do not know.
  const NearSearch search(list, less_than_tol_apart, !less_than_tol_apart(marker, top));
  for (std::size_t i = 0; i < list.size(); ++i) {
    search.visit(list[i], i + 1,
                 [&](std::size_t j, bool is_near) { list[j] = is_near ? marker : list[j]; });
  }

  std::size_t kept = 0;
  for (const float x : list) {
    if (x < marker) list[kept++] = x;
  }
  sort_ascending(list.first(kept));
  return static_cast<std::int32_t>(kept);
}

std::int32_t pair_near(std::span<const float> a, std::span<const float> b, float tol,
                       std::int64_t cleared, std::int32_t in_a[], std::int32_t in_b[]) noexcept {
  std::fill_n(in_a, cleared, 0);
  std::fill_n(in_b, cleared, 0);
  const NearSearch search(b, at_most(tol), std::isfinite(tol));
  std::size_t count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const std::size_t first = count;
    search.visit(a[i], 0, [&](std::size_t j, bool is_near) {
      if (!is_near) return;
      in_a[count] = position_of(i);
      in_b[count++] = position_of(j);
    });
    std::sort(in_b + first, in_b + count);
  }
  return static_cast<std::int32_t>(count);
}

NearDuplicates mark_near_duplicates(std::span<float> list, float tol,
                                    std::int32_t positions[]) noexcept {
  const float marker = largest(list) + 1.0f;
  const NearSearch search(list, at_most(tol), std::isfinite(tol));
  std::size_t count = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const float x = list[i];
    if (!apart(x, marker, tol)) continue;
    const std::size_t first = count;
    search.visit(x, i + 1, [&](std::size_t j, bool is_near) {
      // The search may still know a marked entry by its old value.
      if (!is_near || list[j] == marker) return;
      list[j] = marker;
      positions[count++] = position_of(j);
    });
    std::sort(positions + first, positions + count);
  }
  return {static_cast<std::int32_t>(count), marker};
}

std::int32_t remove_near(std::span<float> list, float value, float tol) noexcept {
  std::size_t kept = 0;
  for (const float x : list) {
    if (apart(x, value, tol)) list[kept++] = x;
  }
  return static_cast<std::int32_t>(kept);
}

std::int32_t map_distinct(std::span<const float> list, float value, float tol, float distinct[],
                          std::span<std::int32_t> map) noexcept {
  const float marker = largest(list) + 1.0f;
  const NearSearch search(list, at_most(tol), std::isfinite(tol));
  // Until the map is made it tells which entries stand; the marker stands in place of the others.
  const std::span<std::int32_t> stands = map;
  for (std::size_t i = 0; i < list.size(); ++i) stands[i] = apart(list[i], value, tol);
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (!stands[i] || !apart(list[i], marker, tol)) continue;
    search.visit(list[i], i + 1,
                 [&](std::size_t j, bool is_near) { stands[j] = is_near ? 0 : stands[j]; });
  }
  std::int32_t count = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (apart(stands[i] ? list[i] : marker, marker, tol)) distinct[count++] = list[i];
  }

  std::fill(map.begin(), map.end(), 0);
  for (std::int32_t k = 0; k < count; ++k) {
    search.visit(distinct[k], 0,
                 [&](std::size_t i, bool is_near) { map[i] = is_near ? k + 1 : map[i]; });
  }
  return count;
}

}  // namespace kez
