// The entries of a real list that are near one of them, for the routines that strike out
// neighbours.
//
// A search is called visit(i, first, visitor) and calls visitor(j, is_near) at most once for an
// index j from `first` on: for every entry near entry i, in any order, and perhaps for others, with
// is_near false. A visitor that writes list[j] without a branch keeps the search by pairs in vector
// registers. Entries that were written since the search was made may be taken by their old value or
// by the new one: entry i must be as it was, and the visitor must do the same either way.
#pragma once

#include <cstddef>
#include <span>

#include "../frame/keys.h"
#include "../frame/tables.h"
#include "../frame/work_list.h"

namespace kez {

// Looks at every pair.
template <typename Near>
class PairSearch {
 public:
  PairSearch(std::span<const float> list, Near near) : list_(list), near_(near) {}

  template <typename Visitor>
  void visit(std::size_t i, std::size_t first, Visitor visitor) const {
    const float x = list_[i];
    for (std::size_t j = first; j < list_.size(); ++j) visitor(j, near_(x, list_[j]));
  }

  // Moves the entries that keep(x) allows to the front, ascending, and returns their number.
  template <typename Keep>
  std::size_t keep_ascending(std::span<float> list, Keep keep) {
    std::size_t kept = 0;
    for (const float x : list) {
      if (keep(x)) list[kept++] = x;
    }
    sort_ascending(list.first(kept));
    return kept;
  }

 private:
  std::span<const float> list_;
  Near near_;
};

// The entries of the list by value, with their indices; not-a-number last.
inline Sorted<Keyed> sort_by_value(std::span<const float> list, std::span<Keyed> entries,
                                   std::span<Keyed> room) {
  for (std::size_t i = 0; i < list.size(); ++i) entries[i] = keyed(comparison_key(list[i]), i);
  return sort_keys(entries.first(list.size()), room.first(list.size()));
}

inline float value_of(Keyed entry) {
  float value;
  set_value(key_of(entry), value);
  return value;
}

// Sorts first. Rounding keeps differences in order, so that what is near an entry, by whatever
// tolerance, is one run of the sorted entries, which the entry itself is part of; an infinite one
// has no neighbours as long as nothing is infinitely near.
template <typename Near>
class SortedSearch {
 public:
  SortedSearch(std::span<const float> list, Near near) : near_(near), memory_(2 * list.size()) {
    if (!memory_) return;
    const auto memory = memory_.entries();
    const auto [entries, room] =
        sort_by_value(list, memory.first(list.size()), memory.last(list.size()));
    for (std::size_t rank = 0; rank < list.size(); ++rank) room[index_of(entries[rank])] = rank;
    entries_ = entries;
    ranks_ = room;
  }

  // False where there was no memory.
  explicit operator bool() { return static_cast<bool>(memory_); }

  template <typename Visitor>
  void visit(std::size_t i, std::size_t first, Visitor visitor) const {
    const std::size_t rank = index_of(ranks_[i]);
    const float x = value_of(entries_[rank]);
    const auto visited = [&](Keyed entry) {
      if (!near_(x, value_of(entry))) return false;
      if (index_of(entry) >= first) visitor(index_of(entry), true);
      return true;
    };
    for (std::size_t r = rank + 1; r-- > 0 && visited(entries_[r]);) {
    }
    for (std::size_t r = rank + 1; r < entries_.size() && visited(entries_[r]); ++r) {
    }
  }

  // As that of the other search, where no two of the entries kept are equal.
  template <typename Keep>
  std::size_t keep_ascending(std::span<float> list, Keep keep) {
    std::size_t kept = 0;
    for (const Keyed entry : entries_) {
      const float x = list[index_of(entry)];
      if (keep(x)) ranks_[kept++] = key_of(x);
    }
    for (std::size_t k = 0; k < kept; ++k) set_value(static_cast<Key>(ranks_[k]), list[k]);
    return kept;
  }

 private:
  Near near_;
  WorkList<Keyed> memory_;
  std::span<Keyed> entries_, ranks_;
};

// Not inlined, so that a short list does not take the stack of a long one.
template <typename Near, typename Work>
[[gnu::noinline]] bool search_sorted(std::span<const float> list, Near near, Work& work) {
  SortedSearch search(list, near);
  if (!search) return false;
  work(search);
  return true;
}

// Does the work with the search that suits a list: that by pairs below `sorted_from` entries, and
// where there is no memory.
template <typename Near, typename Work>
void search_near(std::span<const float> list, std::size_t sorted_from, Near near, Work work) {
  if (list.size() >= sorted_from && search_sorted(list, near, work)) return;
  PairSearch search(list, near);
  work(search);
}

}  // namespace kez
