#include "keys.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <utility>

#include "sort_few.h"

namespace kez {

namespace {

constexpr Key key_in(Key entry) {
  return entry;
}

constexpr Key key_in(Keyed entry) {
  return key_of(entry);
}

// Distributes the entries by a digit, in their order: place(key) is where the next one of that
// digit belongs.
template <typename Entry, typename Place>
void distribute(Sorted<Entry>& s, Place place) {
  Entry* const to = s.room.data();
  for (const Entry e : s.entries) to[place(key_in(e))] = e;
  std::swap(s.entries, s.room);
}

// In which bits the keys differ: no other digit changes their order.
template <typename Entry, typename Count>
Key count_each(std::span<const Entry> entries, Count count) {
  Key differing = 0;
  for (const Entry e : entries) {
    differing |= key_in(e) ^ key_in(entries.front());
    count(key_in(e));
  }
  return differing;
}

// By four digits of eight bits. Their counts stand side by side in one word, so that one sum turns
// all of them into places.
constexpr std::size_t most_for_bytes = 1000;

template <typename Entry>
void sort_by_bytes(Sorted<Entry>& s) {
  using Counts = std::uint64_t;
  std::array<Counts, 256> counts{};
  const Key differing = count_each<Entry>(s.entries, [&counts](Key key) {
    counts[key & 255] += 1;
    counts[key >> 8 & 255] += Counts{1} << 16;
    counts[key >> 16 & 255] += Counts{1} << 32;
    counts[key >> 24] += Counts{1} << 48;
  });
  Counts sum = 0;
  for (Counts& c : counts) sum += std::exchange(c, sum);
  const auto by = [&](auto byte) {
    if ((differing >> 8 * byte & 255) == 0) return;
    constexpr Counts one = Counts{1} << 16 * byte;
    distribute(s, [&counts, byte](Key key) {
      Counts& c = counts[key >> 8 * byte & 255];
      return std::exchange(c, c + one) >> 16 * byte & 0xffff;
    });
  };
  by(std::integral_constant<int, 0>());
  by(std::integral_constant<int, 1>());
  by(std::integral_constant<int, 2>());
  by(std::integral_constant<int, 3>());
}

// By digits of 11, 11 and 10 bits, for long lists: fewer passes over the entries. False if memory
// runs out.
template <typename Entry>
bool sort_by_digits(Sorted<Entry>& s) {
  constexpr std::size_t values = 2048;
  WorkList<std::uint32_t> counts(3 * values);
  if (!counts) return false;
  std::uint32_t* of_digit = counts.entries().data();
  std::fill_n(of_digit, 3 * values, 0);
  const Key differing = count_each<Entry>(s.entries, [of_digit](Key key) {
    ++of_digit[key & (values - 1)];
    ++of_digit[values + (key >> 11 & (values - 1))];
    ++of_digit[2 * values + (key >> 22)];
  });
  for (int shift = 0; shift < 32; shift += 11, of_digit += values) {
    if ((differing >> shift & (values - 1)) == 0) continue;
    std::uint32_t sum = 0;
    for (std::size_t v = 0; v < values; ++v) sum += std::exchange(of_digit[v], sum);
    distribute(s, [of_digit, shift](Key key) { return of_digit[key >> shift & (values - 1)]++; });
  }
  return true;
}

}  // namespace

template <typename Entry>
Sorted<Entry> sort_keys(Sorted<Entry> s) {
  if (s.entries.size() <= few<Entry>) {
    sort_few(s.entries);
  } else if (s.entries.size() <= most_for_bytes) {
    sort_by_bytes(s);
  } else if (!sort_by_digits(s)) {
    sort_without_memory(s.entries);
  }
  return s;
}

template Sorted<Key> sort_keys(Sorted<Key>);
template Sorted<Keyed> sort_keys(Sorted<Keyed>);

}  // namespace kez
