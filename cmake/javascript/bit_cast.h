// The standard library of Debian's Emscripten lacks std::bit_cast, which its compiler has built in.
#pragma once

#include <bit>
#include <version>

#if !defined(__cpp_lib_bit_cast)
namespace std {

template <typename To, typename From>
constexpr To bit_cast(const From& from) noexcept {
  return __builtin_bit_cast(To, from);
}

}  // namespace std
#endif
