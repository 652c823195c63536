#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "../frame/arguments.h"
#include "kezbatch.h"

namespace {

// Once for all routines that take as many arguments. Addresses are integers here: behind the last
// call they may lead anywhere.
template <std::size_t... i, typename... Argument>
[[gnu::noinline]] void call_each(std::int32_t count, void* const* address,
                                 const std::intptr_t* step, std::index_sequence<i...>,
                                 void(KEZ_CALL* routine)(Argument...)) {
  for (std::uintptr_t k = 0; k < static_cast<std::uintptr_t>(count); ++k)
    routine(reinterpret_cast<Argument>(reinterpret_cast<std::uintptr_t>(address[i]) +
                                       k * static_cast<std::uintptr_t>(step[i]))...);
}

template <typename... Argument>
constexpr std::size_t arguments_of(void(KEZ_CALL*)(Argument...)) {
  return sizeof...(Argument);
}

template <auto routine>
void calls_of(std::int32_t count, void* const* address, const std::intptr_t* step) {
  call_each(count, address, step, std::make_index_sequence<arguments_of(routine)>(), routine);
}

// The name stands in the table, which then has one address a routine for the loader to set.
struct Routine {
  std::array<char, 12> name;
  std::int32_t arguments;
  void (*calls)(std::int32_t, void* const*, const std::intptr_t*);

  constexpr std::string_view view() const { return {name.data()}; }
};

template <auto routine, std::size_t size>
constexpr Routine described(const char (&name)[size]) {
  Routine result{{}, arguments_of(routine), calls_of<routine>};
  static_assert(size <= result.name.size());
  std::copy_n(name, size, result.name.begin());
  return result;
}

constexpr Routine routines[] = {
#define KEZ_ROUTINE(name) described<name>(#name),
#include "routines.inc"
};

// Not of std::ranges, whose algorithms Debian's Emscripten lacks.
constexpr bool operator<(const Routine& a, const Routine& b) {
  return a.view() < b.view();
}
static_assert(std::is_sorted(std::begin(routines), std::end(routines)));

}  // namespace

extern "C" void KEZ_CALL kezbatch(const char* routine, const int32_t* arguments,
                                  const int32_t* count, void* const address[],
                                  const intptr_t step[], int32_t* status) {
  const std::string_view name = routine;
  const Routine* found =
      std::lower_bound(std::begin(routines), std::end(routines), name,
                       [](const Routine& a, std::string_view b) { return a.view() < b; });
  if (found == std::end(routines) || found->view() != name) {
    *status = 1;
  } else if (found->arguments != *arguments) {
    *status = 2;
  } else {
    found->calls(*count, address, step);
    *status = 0;
  }
}
