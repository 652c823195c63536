#include "keys.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kez {

namespace {

constexpr Key key_in(Key entry) {
  return entry;
}

constexpr Key key_in(Keyed entry) {
  return key_of(entry);
}

// Distributes the entries by a digit of their keys, in their order; false if all have the same
// digit.
template <int bits, typename Entry>
bool distribute(std::span<const Entry> from, std::span<Entry> to, int shift) {
  const auto digit = [shift](Entry e) { return key_in(e) >> shift & ((1U << bits) - 1); };
  std::array<std::uint32_t, 1U << bits> places{};
  for (const Entry e : from) ++places[digit(e)];
  if (places[digit(from.front())] == from.size()) return false;
  std::uint32_t place = 0;
  for (std::uint32_t& p : places) place += std::exchange(p, place);
  for (const Entry e : from) to[places[digit(e)]++] = e;
  return true;
}

template <int bits, typename Entry>
Sorted<Entry> sort_by_digits(Sorted<Entry> s) {
  for (int shift = 0; shift < 32; shift += bits) {
    if (distribute<bits, Entry>(s.entries, s.room, shift)) std::swap(s.entries, s.room);
  }
  return s;
}

}  // namespace

// Fewer digits are fewer passes, but each has more places to count, which pays for long lists.
template <typename Entry>
Sorted<Entry> sort_keys(Sorted<Entry> s) {
  if (s.entries.size() >= 1024) return sort_by_digits<11>(s);
  if (s.entries.size() >= fewest_keys) return sort_by_digits<8>(s);
  std::sort(s.entries.begin(), s.entries.end());
  return s;
}

template Sorted<Key> sort_keys(Sorted<Key>);
template Sorted<Keyed> sort_keys(Sorted<Keyed>);

}  // namespace kez
