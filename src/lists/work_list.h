// Memory for a list while a routine works on it.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <new>
#include <span>

namespace kez {

// From this length on, sorting first is about as fast as looking at every pair, or faster.
inline constexpr std::size_t long_list = 64;

// On the stack while it is small, on the heap beyond; its entries are not initialised. Running out
// of memory must not throw through the interface: such a list is false and not to be used.
template <typename T>
class WorkList {
 public:
  explicit WorkList(std::size_t size) noexcept
      : size_(size), heap_(size > small ? new (std::nothrow) T[size] : nullptr) {}

  WorkList(const WorkList&) = delete;

  explicit operator bool() const noexcept { return heap_ || size_ <= small; }

  std::span<T> entries() noexcept { return {heap_ ? heap_.get() : stack_.data(), size_}; }
  std::span<const T> entries() const noexcept {
    return {heap_ ? heap_.get() : stack_.data(), size_};
  }

 private:
  static constexpr std::size_t small = 256;

  std::size_t size_;
  std::unique_ptr<T[]> heap_;
  std::array<T, small> stack_;
};

}  // namespace kez
