// Keys of 32 bits that are in the order of the values, and sorting by them.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "work_list.h"

namespace kez {

using Key = std::uint32_t;

constexpr Key key_of(std::int32_t value) {
  return static_cast<Key>(value) ^ 0x80000000;
}

// -0 comes before 0; not-a-number comes first or last, by its sign.
constexpr Key key_of(float value) {
  const auto bits = std::bit_cast<Key>(value);
  return bits ^ (bits >> 31 ? 0xffffffff : 0x80000000);
}

// Zeros of either sign have the same key, and so has every not-a-number, behind all others.
inline constexpr Key key_of_not_a_number = 0xffffffff;
inline Key comparison_key(float value) {
  return std::isnan(value) ? key_of_not_a_number : key_of(value + 0.0f);
}

constexpr void set_value(Key key, std::int32_t& value) {
  value = static_cast<std::int32_t>(key ^ 0x80000000);
}

constexpr void set_value(Key key, float& value) {
  value = std::bit_cast<float>(key ^ (key >> 31 ? 0x80000000 : 0xffffffff));
}

// A key, and below it the index of what it belongs to.
using Keyed = std::uint64_t;

constexpr Keyed keyed(Key key, std::size_t index) {
  return Keyed{key} << 32 | static_cast<std::uint32_t>(index);
}

constexpr Key key_of(Keyed entry) {
  return static_cast<Key>(entry >> 32);
}

constexpr float value_of(Keyed entry) {
  float value{};
  set_value(key_of(entry), value);
  return value;
}

constexpr std::size_t index_of(Keyed entry) {
  return static_cast<std::uint32_t>(entry);
}

// Where there is no memory to sort by digits: never in quadratic time, and in half the code of
// std::sort. Ascending by default.
template <typename T, typename Less = std::less<>>
void sort_without_memory(std::span<T> list, Less less = {}) {
  std::make_heap(list.begin(), list.end(), less);
  std::sort_heap(list.begin(), list.end(), less);
}

// The entries and the memory that sorting them leaves free, of the same length.
template <typename Entry>
struct Sorted {
  std::span<Entry> entries, room;
};

// Sorts keys or keyed entries; they end up in either span. Those with the same key must ascend
// already.
template <typename Entry>
Sorted<Entry> sort_keys(Sorted<Entry> s);

// The entries 0 .. count - 1 of a list, made by entry_at(i) and sorted, with as much room besides.
// If memory runs out, they are false and must not be used.
template <typename Entry>
class SortedEntries {
 public:
  template <typename Make>
  SortedEntries(std::size_t count, Make entry_at) : memory_(2 * count) {
    if (!memory_) return;
    const auto entries = memory_.entries().first(count), room = memory_.entries().last(count);
    for (std::size_t i = 0; i < count; ++i) entries[i] = entry_at(i);
    sorted_ = sort_keys(Sorted<Entry>{entries, room});
  }

  explicit operator bool() const { return static_cast<bool>(memory_); }
  std::span<Entry> entries() const { return sorted_.entries; }
  std::span<Entry> room() const { return sorted_.room; }

 private:
  WorkList<Entry> memory_;
  Sorted<Entry> sorted_{};
};

}  // namespace kez
