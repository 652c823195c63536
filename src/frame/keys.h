// Keys of 32 bits that are in the order of the values, and sorting by them.
#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <type_traits>

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
constexpr Key comparison_key(std::int32_t value) {
  return key_of(value);
}

// The integer or real that a key was made of.
template <typename Value>
constexpr Value value_of(Key key) {
  if constexpr (std::is_integral_v<Value>)
    return static_cast<Value>(key ^ 0x80000000);
  else
    return std::bit_cast<Value>(key ^ (key >> 31 ? 0x80000000 : 0xffffffff));
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
  return value_of<float>(key_of(entry));
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

// Sorts keys or keyed entries; they end up in either span, and the two may be exchanged for that.
// Those with the same key must ascend already.
template <typename Entry>
void sort_keys(std::span<Entry>& entries, std::span<Entry>& room);

// The entries 0 .. count - 1 of a list, made by entry_at(i) and sorted, with as much room besides.
// If memory runs out, they are false and must not be used.
template <typename Entry>
class SortedEntries {
 public:
  template <typename Make>
  SortedEntries(std::size_t count, Make entry_at) : memory_(2 * count) {
    if (!memory_) return;
    entries_ = memory_.entries().first(count);
    room_ = memory_.entries().last(count);
    for (std::size_t i = 0; i < count; ++i) entries_[i] = entry_at(i);
    sort_keys(entries_, room_);
  }

  explicit operator bool() const { return static_cast<bool>(memory_); }
  std::span<Entry> entries() const { return entries_; }
  std::span<Entry> room() const { return room_; }

 private:
  WorkList<Entry> memory_;
  std::span<Entry> entries_, room_;
};

// The entries of the list by value, with their indices; not-a-number last.
template <typename Value>
SortedEntries<Keyed> sort_by_value(std::span<const Value> list) {
  return {list.size(), [list](std::size_t i) { return keyed(comparison_key(list[i]), i); }};
}

}  // namespace kez
