// Four numbers at once, in one register of a processor that has such registers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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

// The last three of four, then the first of the next. gcc packs them one by one if left to it.
inline Four<float> shifted(Four<float> four, Four<float> next) {
#if defined(__SSE2__)
  const __m128 replaced = _mm_move_ss(four, next);
  return _mm_shuffle_ps(replaced, replaced, _MM_SHUFFLE(0, 3, 2, 1));
#else
  return Four<float>{four[1], four[2], four[3], next[0]};
#endif
}

// Of n + 1 entries, of which the last repeats the first, the ends of the edges that begin at the
// four from i on. The closing entry has often just been stored: a load that spans it would wait
// until that is done.
inline Four<float> four_ends(const float* list, std::size_t i, std::size_t n) {
  return i + 4 < n ? four_from(list + i + 1) : shifted(four_from(list + i), Four<float>{list[0]});
}

inline Four<std::int32_t> bits(Four<float> four) {
  return reinterpret_cast<Four<std::int32_t>>(four);
}

inline Four<float> reals(Four<std::int32_t> four) {
  return reinterpret_cast<Four<float>>(four);
}

// The bits of the absolute values. They are in the order of these, with not-a-number behind all
// others, and may be compared without an exception.
inline Four<std::int32_t> magnitudes(Four<float> four) {
  return bits(four) & 0x7fffffff;
}

inline Four<float> absolute(Four<float> four) {
  return reals(magnitudes(four));
}

// Bit k says whether number k is below 0, or whether a comparison of four holds for it.
inline unsigned lanes(Four<std::int32_t> four) {
#if defined(__SSE2__)
  return static_cast<unsigned>(_mm_movemask_ps(reinterpret_cast<__m128>(four)));
#else
  const auto bit = [=](int k) { return static_cast<unsigned>(four[k] < 0) << k; };
  return bit(0) | bit(1) | bit(2) | bit(3);
#endif
}

// Whether a comparison of four holds for one of them.
inline bool any(Four<std::int32_t> holds) {
#if defined(__SSE2__)
  return lanes(holds) != 0;
#else
  return (holds[0] | holds[1] | holds[2] | holds[3]) != 0;
#endif
}

// So many are asked by one branch.
inline constexpr std::size_t stride = 16;

// Of test(j), which compares the four from j on.
template <typename Test>
bool any_of_stride(std::size_t i, Test test) {
  return any(test(i) | test(i + 4) | test(i + 8) | test(i + 12));
}

// Visits 0 .. count - 1 in turn until a visit returns true, and leaves out those strides from i on
// for which passes_by(i) holds.
template <typename PassesBy, typename Visit>
void visit_until(std::size_t count, PassesBy passes_by, Visit visit) {
  for (std::size_t i = 0; i < count;) {
    const std::size_t end = i + stride <= count ? i + stride : count;
    if (end == i + stride && passes_by(i)) i = end;
    for (; i < end; ++i) {
      if (visit(i)) return;
    }
  }
}

}  // namespace kez
