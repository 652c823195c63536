// Two ways to search a real list for the entries near one of them: PairSearch looks at every entry,
// SortedSearch sorts the list first.
//
// search.visit(i, first, visitor) shows the visitor the entries near entry i, from index `first`
// on: it calls visitor(j, true) once for each of them, in any order, and may call visitor(j, false)
// for others.
// - The visitor may write list[j], and the search may then take entry j by its old value or by the
//   new one. The visitor must not depend on which, and entry i itself must be as it was.
// - A visitor that writes without a branch keeps PairSearch in vector registers.
#pragma once

#include <cstddef>
#include <span>

#include "../frame/keys.h"
#include "../frame/sorting.h"

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

// Rounded differences keep their order, so the entries near another one are one run around it in
// sorted order, whatever the tolerance. An infinite entry is not near itself, for the difference is
// not a number, and so it has no neighbours as long as the tolerance is finite.
template <typename Near>
class SortedSearch {
 public:
  SortedSearch(std::span<const float> list, Near near) : near_(near), sorted_(sort_by_value(list)) {
    if (!sorted_) return;
    for (std::size_t rank = 0; rank < list.size(); ++rank) {
      sorted_.room()[index_of(sorted_.entries()[rank])] = rank;
    }
  }

  // False if memory ran out.
  explicit operator bool() const { return static_cast<bool>(sorted_); }

  template <typename Visitor>
  void visit(std::size_t i, std::size_t first, Visitor visitor) const {
    const auto entries = sorted_.entries();
    const std::size_t rank = index_of(sorted_.room()[i]);
    const float x = value_of(entries[rank]);
    const auto visited = [&](Keyed entry) {
      if (!near_(x, value_of(entry))) return false;
      if (index_of(entry) >= first) visitor(index_of(entry), true);
      return true;
    };
    for (std::size_t r = rank + 1; r-- > 0 && visited(entries[r]);) {
    }
    for (std::size_t r = rank + 1; r < entries.size() && visited(entries[r]); ++r) {
    }
  }

  // Like that of PairSearch, if no two of the entries kept are equal.
  template <typename Keep>
  std::size_t keep_ascending(std::span<float> list, Keep keep) {
    const auto room = sorted_.room();
    std::size_t kept = 0;
    for (const Keyed entry : sorted_.entries()) {
      const float x = list[index_of(entry)];
      if (keep(x)) room[kept++] = key_of(x);
    }
    for (std::size_t k = 0; k < kept; ++k) list[k] = value_of<float>(static_cast<Key>(room[k]));
    return kept;
  }

 private:
  Near near_;
  SortedEntries<Keyed> sorted_;  // in its room the rank of each entry of the list
};

// Does the work with the search that suits the list: by pairs below `sorted_from` entries, and if
// memory runs out.
template <typename Near, typename Work>
void search_near(std::span<const float> list, std::size_t sorted_from, Near near, Work work) {
  if (list.size() >= sorted_from) {
    SortedSearch search(list, near);
    if (search) return work(search);
  }
  PairSearch search(list, near);
  work(search);
}

}  // namespace kez
