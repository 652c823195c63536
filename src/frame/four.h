// Four numbers at once, in one register of a processor that has such registers.
#pragma once

#include <cstdint>
#include <cstring>

namespace kez {

template <typename T>
struct FourOf {
  static_assert(sizeof(T) == 4);
  typedef T type __attribute__((vector_size(16)));
};
template <typename T>
using Four = typename FourOf<T>::type;

// Neighbours in a list.
template <typename T>
Four<T> four_from(const T* first) {
  Four<T> four;
  std::memcpy(&four, first, sizeof four);
  return four;
}

template <typename T>
Four<T> four_times(T x) {
  return Four<T>{x, x, x, x};
}

}  // namespace kez
