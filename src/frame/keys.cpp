#include "keys.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

#include "four.h"

namespace kez {

namespace {

constexpr Key key_in(Key entry) {
  return entry;
}

constexpr Key key_in(Keyed entry) {
  return key_of(entry);
}

// Up to so many entries are sorted by counting for each those that come before it. A processor
// guesses every second comparison of unsorted entries wrong, which takes longer than ten of them:
// nothing here branches on one.
template <typename Entry>
constexpr std::size_t few = 32;
template <>
constexpr std::size_t few<Key> = 40;

// Of equal keys the first comes first. The list is filled up to fours by what comes last.
void count_before_each(std::span<const Key> keys, std::int32_t ranks[]) {
  std::array<std::int32_t, few<Key> + 3> list;
  for (std::size_t i = 0; i < keys.size(); ++i) set_value(keys[i], list[i]);
  std::fill_n(&list[keys.size()], 3, std::numeric_limits<std::int32_t>::max());
  const Four<std::int32_t> lanes = {0, 1, 2, 3};
  for (std::size_t first = 0, j = 0; first < keys.size(); first += 4, j = 0) {
    const auto four = four_from(&list[first]);
    Four<std::int32_t> less{};  // each comparison is -1 or 0
    for (; j < first; ++j) less += four_times(list[j]) <= four;
    for (std::int32_t lane = 0; lane < 4; ++lane, ++j) {
      const auto x = four_times(list[j]);
      less += (x < four) | ((x == four) & (lanes > lane));
    }
    for (; j < keys.size(); ++j) less += four_times(list[j]) < four;
    less = -less;
    std::memcpy(ranks + first, &less, sizeof less);
  }
}

void count_before_each(std::span<const Keyed> entries, std::int32_t ranks[]) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    std::int32_t rank = 0;
    for (std::size_t j = 0; j < i; ++j) {
      const bool before = entries[i] < entries[j];
      ranks[j] += before;
      rank += !before;
    }
    ranks[i] = rank;
  }
}

template <typename Entry>
void sort_few(Sorted<Entry>& s) {
  std::array<std::int32_t, few<Entry>> ranks;
  count_before_each(s.entries, ranks.data());
  for (std::size_t i = 0; i < s.entries.size(); ++i)
    s.room[static_cast<std::size_t>(ranks[i])] = s.entries[i];
  std::swap(s.entries, s.room);
}

// By digits, from the lowest on: of 8 bits if Count has room for the counts of four of them, side
// by side, so that one sum turns all of them into places; else of 11 bits, for long lists.
template <int... digit, typename Count, typename Entry>
void sort_by_digits(std::integer_sequence<int, digit...>, Sorted<Entry>& s,
                    std::span<Count> counts) {
  constexpr bool together = sizeof...(digit) == 4;
  constexpr int bits = together ? 8 : 11;
  const auto value = [](Key key, int d) { return key >> bits * d & ((1 << bits) - 1); };
  const auto count = [=](Key key, int d) {
    Count& c = counts[value(key, d) + (together ? 0 : d << bits)];
    return std::exchange(c, c + (Count{1} << (together ? 16 * d : 0)));
  };
  std::fill(counts.begin(), counts.end(), 0);
  Key differing = 0;
  for (const Entry e : s.entries) {
    differing |= key_in(e) ^ key_in(s.entries.front());
    (count(key_in(e), digit), ...);
  }
  Count sum = 0;
  for (Count& c : counts) sum += std::exchange(c, sum);
  const auto distribute = [&](auto d) {
    // A digit in which the keys do not differ leaves their order.
    if (value(differing, d) == 0) return;
    Entry* const to = s.room.data();
    const auto before = static_cast<Count>(together ? 0 : d * s.entries.size());
    for (const Entry e : s.entries) {
      const Count c = count(key_in(e), d);
      to[together ? c >> 16 * d & 0xffff : c - before] = e;
    }
    std::swap(s.entries, s.room);
  };
  (distribute(std::integral_constant<int, digit>()), ...);
}

}  // namespace

template <typename Entry>
Sorted<Entry> sort_keys(Sorted<Entry> s) {
  if (s.entries.size() <= few<Entry>) {
    sort_few(s);
  } else if (s.entries.size() <= 1000) {
    std::array<std::uint64_t, 1 << 8> counts;
    sort_by_digits(std::make_integer_sequence<int, 4>(), s, std::span<std::uint64_t>(counts));
  } else if (WorkList<std::uint32_t> counts(3 << 11); counts) {
    sort_by_digits(std::make_integer_sequence<int, 3>(), s, counts.entries());
  } else {
    sort_without_memory(s.entries);
  }
  return s;
}

template Sorted<Key> sort_keys(Sorted<Key>);
template Sorted<Keyed> sort_keys(Sorted<Keyed>);

}  // namespace kez
