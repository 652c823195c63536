// Memory for a list while a routine works on it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <type_traits>

namespace kez {

// Entries that are not initialised: a few on the stack, more on the heap. Nothing may be thrown
// through the interface. If memory runs out, a list is false and must not be used.
template <typename T>
class WorkList {
 public:
  explicit WorkList(std::size_t size)
      : size_(size), heap_(size > automatic ? allocate(size) : nullptr) {}
  ~WorkList() { std::free(heap_); }

  WorkList(const WorkList&) = delete;
  WorkList& operator=(const WorkList&) = delete;

  explicit operator bool() const { return heap_ || size_ <= automatic; }

  std::span<T> entries() { return {heap_ ? heap_ : stack_.data(), size_}; }

 private:
  static_assert(std::is_trivial_v<T>);
  // 500 entries to sort and as much room. Two such lists of the longest type take 16,000 bytes.
  static constexpr std::size_t automatic = 1000;

  // A size beyond the address space must not wrap around to a small one.
  [[gnu::noinline]] static T* allocate(std::size_t size) {
    return size <= SIZE_MAX / sizeof(T) ? static_cast<T*>(std::malloc(size * sizeof(T))) : nullptr;
  }

  std::size_t size_;
  T* heap_;
  std::array<T, automatic> stack_;
};

}  // namespace kez
