#include "near_values.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "../frame/keys.h"
#include "../frame/numbers.h"
#include "near_search.h"

namespace kez {

namespace {

bool near(float a, float b, float tol) {
  return std::fabs(a - b) <= tol;
}

// Not the opposite of near: not-a-number is neither.
bool apart(float a, float b, float tol) {
  return std::fabs(a - b) > tol;
}

auto at_most(float tol) {
  return [tol](float a, float b) { return near(a, b, tol); };
}

// From these lengths on, as measured, sorting first is faster than looking at every pair.
constexpr std::size_t sorted_to_keep = 44, sorted_to_pair = 52, sorted_to_mark = 44,
                      sorted_to_map = 72;

// Each entry in turn strikes out the later entries near it: they become the marker. Then each
// marker strikes out what is near the marker. The first one does so for all of them, by pairs,
// because the search was made before there were markers.
template <typename Search, typename Near>
void strike_out_near(std::span<float> list, float marker, const Search& search, Near near) {
  bool marker_has_struck = false;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const auto strike_out = [list, marker](std::size_t j, bool is_near) {
      list[j] = is_near ? marker : list[j];
    };
    if (list[i] != marker) {
      search.visit(i, i + 1, strike_out);
    } else if (!marker_has_struck) {
      PairSearch(list, near).visit(i, i + 1, strike_out);
      marker_has_struck = true;
    }
  }
}

struct NearPairs {
  std::span<const float> a, b;
  float tol;
  std::int32_t *in_a, *in_b;
  std::size_t count = 0;

  void by_pairs() {
    for (std::size_t i = 0; i < a.size(); ++i) look_through(i);
  }

  // False if memory runs out.
  bool by_sorting() {
    const auto sorted_a = sort_by_value(a), sorted_b = sort_by_value(b);
    if (!sorted_a || !sorted_b) return false;
    // Into the room of a: where in sorted b the run of what is near an entry starts. It never
    // starts before that of a smaller entry, so that one sweep finds all.
    std::size_t start = 0;
    for (const Keyed entry : sorted_a.entries()) {
      const float x = value_of(entry);
      const auto below = [&](float y) { return y < x && !near(x, y, tol); };
      while (start < b.size() && below(value_of(sorted_b.entries()[start]))) ++start;
      sorted_a.room()[index_of(entry)] = start;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
      write_run(i, sorted_b.entries().subspan(index_of(sorted_a.room()[i])));
    }
    return true;
  }

  void add(std::size_t i, std::size_t j) {
    in_a[count] = position_of(i);
    in_b[count++] = position_of(j);
  }

  void look_through(std::size_t i) {
    for (std::size_t j = 0; j < b.size(); ++j) {
      if (near(a[i], b[j], tol)) add(i, j);
    }
  }

  // Puts a run in the order of the list. For a long run, looking through the list is faster.
  void write_run(std::size_t i, std::span<const Keyed> run) {
    const std::size_t first = count;
    for (std::size_t k = 0; k < run.size() && near(a[i], value_of(run[k]), tol); ++k) {
      add(i, index_of(run[k]));
    }
    if (count - first > b.size() / 16) {
      count = first;
      look_through(i);
    } else if (count - first > 1) {
      sort_without_memory(std::span(in_b + first, in_b + count));
    }
  }
};

}  // namespace

std::int32_t keep_distinct(std::span<float> list, float tol) {
  const float marker = largest(list) + 1.0f + tol;
  const auto near = [tol](float a, float b) { return std::fabs(a - b) < tol; };
  const auto stands = [marker](float x) { return x < marker; };
  std::size_t kept = 0;
  if (tol > 0) {
    search_near(list, sorted_to_keep, near, [&](auto& search) {
      strike_out_near(list, marker, search, near);
      kept = search.keep_ascending(list, stands);
    });
  } else {  // nothing is near
    kept = PairSearch(list, near).keep_ascending(list, stands);
  }
  return static_cast<std::int32_t>(kept);
}

std::int32_t pair_near(std::span<const float> a, std::span<const float> b, float tol,
                       PairCounts given, std::int32_t in_a[], std::int32_t in_b[]) {
  const std::int64_t cleared = std::int64_t{given.a} + given.b;
  std::fill_n(in_a, cleared, 0);
  std::fill_n(in_b, cleared, 0);
  if (!(tol >= 0)) return 0;
  NearPairs pairs{a, b, tol, in_a, in_b};
  // With an infinite tolerance there are no runs: infinity is near the finite values, but not near
  // itself.
  const bool sorts = std::min(a.size(), b.size()) >= sorted_to_pair && !std::isinf(tol);
  if (!sorts || !pairs.by_sorting()) pairs.by_pairs();
  return static_cast<std::int32_t>(pairs.count);
}

NearDuplicates mark_near_duplicates(std::span<float> list, float tol,
                                    std::span<std::int32_t> positions) {
  const float marker = largest(list) + 1.0f;
  std::size_t count = 0;
  search_near(list, sorted_to_mark, at_most(tol), [&](const auto& search) {
    for (std::size_t i = 0; i < list.size(); ++i) {
      if (!apart(list[i], marker, tol)) continue;
      const std::size_t first = count;
      search.visit(i, i + 1, [&](std::size_t j, bool is_near) {
        // The room ends the count if the host lets the positions overlap the list.
        if (!is_near || list[j] == marker || count + 1 >= list.size()) return;
        list[j] = marker;
        positions[count++] = position_of(j);
      });
      if (count - first > 1) sort_without_memory(positions.subspan(first, count - first));
    }
  });
  return {static_cast<std::int32_t>(count), marker};
}

std::int32_t remove_near(std::span<float> list, float value, float tol) {
  std::size_t kept = 0;
  for (const float x : list) {
    if (apart(x, value, tol)) list[kept++] = x;
  }
  return static_cast<std::int32_t>(kept);
}

std::int32_t map_distinct(std::span<const float> list, float value, float tol,
                          std::span<float> distinct, std::span<std::int32_t> map) {
  const float marker = largest(list) + 1.0f;
  std::int32_t count = 0;
  std::fill(map.begin(), map.end(), 0);
  search_near(list, sorted_to_map, at_most(tol), [&](const auto& search) {
    for (std::size_t i = 0; i < list.size(); ++i) {
      // An entry that is mapped is near an earlier one, which has struck it out. What does not
      // stand has become the marker, and is not taken. But with a negative tolerance the marker is
      // apart even from itself, and every entry is taken.
      const bool stands = apart(list[i], value, tol) && map[i] == 0;
      if (!apart(stands ? list[i] : marker, marker, tol)) continue;
      distinct[static_cast<std::size_t>(count++)] = list[i];
      search.visit(i, 0, [map, position = count](std::size_t j, bool is_near) {
        map[j] = is_near ? position : map[j];
      });
    }
  });
  return count;
}

}  // namespace kez
