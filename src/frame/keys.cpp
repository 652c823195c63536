#include "keys.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

#include "four.h"

namespace kez {

namespace {

// Of a key or a keyed entry.
template <typename Entry>
constexpr Key key_in(Entry entry) {
  return static_cast<Key>(entry >> (8 * sizeof(Entry) - 32));
}

// Up to so many entries are sorted by counting for each those that come before it. A processor
// guesses every second comparison of unsorted entries wrong, which takes longer than ten of them:
// nothing here branches on one.
template <typename Entry>
constexpr std::size_t few = 20;
template <>
constexpr std::size_t few<Key> = 40;

// Of equal keys the first comes first. The list is filled up to fours by what comes last.
void count_before_each(std::span<const Key> keys, std::int32_t ranks[]) {
  std::array<std::int32_t, few<Key> + 3> list;
  for (std::size_t i = 0; i < keys.size(); ++i) list[i] = value_of<std::int32_t>(keys[i]);
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

// By digits, from the lowest on: of 8 bits if Count has room for the counts of four of them, side
// by side, so that one sum turns all of them into places; else of 11 bits, for long lists.
template <int... digit, typename Count, typename Entry>
void sort_by_digits(std::integer_sequence<int, digit...>, std::span<Entry>& entries,
                    std::span<Entry>& room, std::span<Count> counts) {
  constexpr bool together = sizeof...(digit) == 4;
  constexpr int bits = together ? 8 : 11;
  const auto value = [](Key key, int d) { return key >> bits * d & ((1 << bits) - 1); };
  const auto count = [=](Key key, int d) {
    Count& c = counts[value(key, d) + (together ? 0 : d << bits)];
    return std::exchange(c, c + (Count{1} << (together ? 16 * d : 0)));
  };
  std::memset(counts.data(), 0, counts.size_bytes());
  const Key first = key_in(entries.front());
  Key differing = 0;
  for (const Entry e : entries) {
    differing |= key_in(e) ^ first;
    (count(key_in(e), digit), ...);
  }
  Count sum = 0;
  for (Count& c : counts) sum += std::exchange(c, sum);
  const auto distribute = [&](auto d) {
    // A digit in which the keys do not differ leaves their order.
    if (value(differing, d) == 0) return;
    Entry* const to = room.data();
    const auto before = static_cast<Count>(together ? 0 : d * entries.size());
    for (const Entry e : entries) {
      const Count c = count(key_in(e), d);
      to[together ? c >> 16 * d & 0xffff : c - before] = e;
    }
    std::swap(entries, room);
  };
  (distribute(std::integral_constant<int, digit>()), ...);
}

}  // namespace

template <typename Entry>
void sort_keys(std::span<Entry>& entries, std::span<Entry>& room) {
  if (entries.size() <= few<Entry>) {
    std::array<std::int32_t, few<Entry>> ranks;
    count_before_each(std::span<const Entry>(entries), ranks.data());
    for (std::size_t i = 0; i < entries.size(); ++i)
      room[static_cast<std::size_t>(ranks[i])] = entries[i];
    std::swap(entries, room);
  } else if (entries.size() <= 1000) {
    std::array<std::uint64_t, 1 << 8> counts;
    sort_by_digits(std::make_integer_sequence<int, 4>(), entries, room,
                   std::span<std::uint64_t>(counts));
  } else if (WorkList<std::uint32_t> counts(3 << 11); counts) {
    sort_by_digits(std::make_integer_sequence<int, 3>(), entries, room, counts.entries());
  } else {
    sort_without_memory(entries);
  }
}

template void sort_keys(std::span<Key>&, std::span<Key>&);
template void sort_keys(std::span<Keyed>&, std::span<Keyed>&);

}  // namespace kez
