#include <array>
#include <bit>
#include <limits>
#include <utility>

#include "call.h"
#include "kezlib.h"
#include "memory.h"

namespace kezcall {
namespace {

// A callback gets nothing but an index, so what it returns waits here. The call table has at most
// one callback a routine.
thread_local std::span<const Word> callback_values;

#ifdef __i386__
__attribute__((force_align_arg_pointer))  // the routine's stack may be off by our own doing
#endif
float KEZ_CALL
callback(const std::int32_t* index) {
  if (*index < 1 || static_cast<std::size_t>(*index) > callback_values.size())
    return std::numeric_limits<float>::quiet_NaN();
  return std::bit_cast<float>(callback_values[static_cast<std::size_t>(*index) - 1]);
}

}  // namespace

void* callback_that_returns(std::span<const Word> values) {
  callback_values = values;
  return reinterpret_cast<void*>(&callback);
}

namespace {

std::vector<void*> addresses(const Arguments& arguments, const Placed& placed) {
  std::vector<void*> result;
  for (std::size_t i = 0; i < arguments.routine().arguments.size(); ++i) {
    if (arguments.routine().arguments[i].kind == Kind::callback) {
      result.push_back(callback_that_returns(arguments.given(i)));
    } else {
      result.push_back(placed.address(i));
    }
  }
  return result;
}

#ifdef __i386__

// Without SSE the compiler has nothing in these registers, and no name for them.
#ifdef __SSE__
#define CLOBBERED_SSE , "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7"
#else
#define CLOBBERED_SSE
#endif

// Returns the bytes that the callee removed. The stack pointer from before waits in ebx, which a
// callee preserves, so that one which removes a wrong number does no harm.
__attribute__((noinline)) std::size_t call(Entry entry, const std::vector<void*>& words,
                                           unsigned stack_offset) {
  auto accumulator = reinterpret_cast<std::uint32_t>(entry);
  std::uint32_t count = words.size();
  void* const* source = words.data();
  asm volatile(
      "movl %%esp, %%ebx\n\t"
      "leal (,%%ecx,4), %%edi\n\t"
      "subl %%edi, %%esp\n\t"
      "andl $-16, %%esp\n\t"
      "leal -16(%%esp,%%edx), %%esp\n\t"
      "movl %%esp, %%edi\n\t"
      "cld\n\t"
      "rep movsl\n\t"
      "movl %%esp, %%edi\n\t"
      "call *%%eax\n\t"
      "movl %%esp, %%eax\n\t"
      "subl %%edi, %%eax\n\t"
      "movl %%ebx, %%esp"
      : "+a"(accumulator), "+c"(count), "+d"(stack_offset), "+S"(source)
      :
      : "ebx", "edi", "memory", "cc", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)",
        "st(7)" CLOBBERED_SSE);
  return accumulator;
}

#else

constexpr std::size_t max_arguments = 48;

template <std::size_t>
using Pointer = void*;

// The routine's own type has typed pointers; to the machine they are the same.
template <std::size_t... place>
#ifdef __clang__
__attribute__((no_sanitize("function")))
#endif
void call_with(Entry entry, void* const* words, std::index_sequence<place...>) {
  reinterpret_cast<void (*)(Pointer<place>...)>(entry)(words[place]...);
}

using Caller = void (*)(Entry, void* const*);

template <std::size_t... count>
constexpr std::array<Caller, sizeof...(count)> caller_table(std::index_sequence<count...>) {
  return {[](Entry entry, void* const* words) {
    call_with(entry, words, std::make_index_sequence<count>{});
  }...};
}

constexpr auto callers = caller_table(std::make_index_sequence<max_arguments + 1>{});

#endif

}  // namespace

StackBytes invoke(Entry entry, const Arguments& arguments, [[maybe_unused]] unsigned stack_offset,
                  Memory memory) {
  const Placed placed(arguments, memory);
  const std::vector<void*> words = addresses(arguments, placed);
#ifdef __i386__
  const std::size_t due = callee_removes_arguments ? words.size() * sizeof(Word) : 0;
  return {due, call(entry, words, stack_offset)};
#else
  callers.at(words.size())(entry, words.data());
  return {0, 0};
#endif
}

}  // namespace kezcall
