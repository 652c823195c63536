#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
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
  for (std::int32_t k = 0; k < count; ++k)
    routine(reinterpret_cast<Argument>(reinterpret_cast<std::uintptr_t>(address[i]) +
                                       static_cast<std::uintptr_t>(k) *
                                           static_cast<std::uintptr_t>(step[i]))...);
}

template <typename... Argument>
constexpr auto indices_of(void(KEZ_CALL*)(Argument...)) {
  return std::index_sequence_for<Argument...>();
}

constexpr char names[][12] = {
#define KEZ_ROUTINE(name) #name,
#include "routines.inc"
#undef KEZ_ROUTINE
};
constexpr std::uint8_t arguments_of[] = {
#define KEZ_ROUTINE(name) indices_of(name).size(),
#include "routines.inc"
#undef KEZ_ROUTINE
};

constexpr bool is_before(std::string_view a, std::string_view b) {
  return a < b;
}
static_assert(std::is_sorted(std::begin(names), std::end(names), is_before));

constexpr std::size_t number_of(std::string_view name) {
  const auto place = std::lower_bound(std::begin(names), std::end(names), name, is_before);
  return static_cast<std::size_t>(place - std::begin(names));
}

// Not a table of the routines: the loader would have to set each of its addresses.
[[gnu::noinline]] void call_each(std::size_t number, std::int32_t count, void* const* address,
                                 const std::intptr_t* step) {
  switch (number) {
#define KEZ_ROUTINE(name) \
  case number_of(#name):  \
    return call_each(count, address, step, indices_of(name), name);
#include "routines.inc"
#undef KEZ_ROUTINE
  }
}

}  // namespace

extern "C" void KEZ_CALL kezbatch(const char* routine, const int32_t* arguments,
                                  const int32_t* count, void* const address[],
                                  const intptr_t step[], int32_t* status) {
  const std::size_t number = number_of(routine);
  if (number == std::size(names) || names[number] != std::string_view(routine)) {
    *status = 1;
  } else if (arguments_of[number] != *arguments) {
    *status = 2;
  } else {
    call_each(number, *count, address, step);
    *status = 0;
  }
}
