#include "near_values.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "../frame/tables.h"
#include "extremes.h"
#include "work_list.h"

namespace kez {

namespace {

std::int32_t position(std::size_t index) noexcept {
  return static_cast<std::int32_t>(index) + 1;
}

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
// where there is memory.
class NearSearch {
 public:
  NearSearch(std::span<const float> list, float tol) noexcept
      : list_(list), tol_(tol), sorted_(worth_sorting() ? list : std::span<const float>()) {}

  // Calls visit(index, is_near) for each near entry from `first` on, in any order, and perhaps for
  // others: that makes looking through the list a loop without branches.
  template <typename Visit>
  void visit(float x, std::size_t first, Visit visit) const noexcept {
    if (worth_sorting() && sorted_) {
      const auto is_near = [this](float a, float b) { return near(a, b, tol_); };
      sorted_.visit_near(x, is_near, [&](std::size_t index) {
        if (index >= first) visit(index, true);
      });
    } else {
      for (std::size_t i = first; i < list_.size(); ++i) visit(i, near(x, list_[i], tol_));
    }
  }

 private:
  // With an infinite tolerance an infinite value is near the finite ones, but not near its equals:
  // that is no run of sorted entries.
  bool worth_sorting() const noexcept { return list_.size() >= long_list && std::isfinite(tol_); }

  std::span<const float> list_;
  float tol_;
  SortedEntries sorted_;
};

// Every pair, as struck out entries stay in the list and are compared like others: where the marker
// is not truly larger than the list, they can strike out more.
void strike_out(std::span<float> list, float tol, float marker) noexcept {
  for (std::size_t i = 0; i < list.size(); ++i) {
    const float x = list[i];
    for (std::size_t j = i + 1; j < list.size(); ++j) {
      list[j] = std::fabs(x - list[j]) < tol ? marker : list[j];
    }
  }
}

// The same where a marker is not less than tol away from any entry.
void strike_out(std::span<float> list, float tol, float marker,
                const SortedEntries& sorted) noexcept {
  const auto is_near = [tol](float a, float b) { return std::fabs(a - b) < tol; };
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (list[i] == marker) continue;
    sorted.visit_near(list[i], is_near, [&](std::size_t j) {
      if (j > i) list[j] = marker;
    });
  }
}

}  // namespace

std::int32_t keep_distinct(std::span<float> list, float tol) noexcept {
  const float top = largest(list), marker = top + 1.0f + tol;
  const bool sorting_helps = list.size() >= long_list && !(std::fabs(marker - top) < tol);
  const SortedEntries sorted(sorting_helps ? list : std::span<const float>());
  if (sorting_helps && sorted) {
    strike_out(list, tol, marker, sorted);
  } else {
    strike_out(list, tol, marker);
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
  const NearSearch search(b, tol);
  std::size_t count = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const std::size_t first = count;
    search.visit(a[i], 0, [&](std::size_t j, bool is_near) {
      if (!is_near) return;
      in_a[count] = position(i);
      in_b[count++] = position(j);
    });
    std::sort(in_b + first, in_b + count);
  }
  return static_cast<std::int32_t>(count);
}

NearDuplicates mark_near_duplicates(std::span<float> list, float tol,
                                    std::int32_t positions[]) noexcept {
  const float marker = largest(list) + 1.0f;
  const NearSearch search(list, tol);
  std::size_t count = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const float x = list[i];
    if (!apart(x, marker, tol)) continue;
    const std::size_t first = count;
    search.visit(x, i + 1, [&](std::size_t j, bool is_near) {
      // The search may still know a marked entry by its old value.
      if (!is_near || list[j] == marker) return;
      list[j] = marker;
      positions[count++] = position(j);
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
  const NearSearch search(list, tol);
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
