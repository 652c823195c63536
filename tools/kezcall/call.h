// A call of any routine with memory that shows what the routine did to it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "interface.h"

namespace kezcall {

// The bits of a real or of an integer, whichever the argument is.
using Word = std::uint32_t;

// What an output holds before the call: a signalling not-a-number and an unlikely integer.
inline constexpr Word poison = 0x7fa5a5a5;

// The words that a call starts with, argument by argument: one for a scalar, none for an output,
// and for a callback the values that it returns.
using Values = std::vector<std::vector<Word>>;

// Entries that each argument must have: 1 for a scalar, for an array what the integers among the
// values ask for, never less than 0.
std::vector<std::int64_t> extents(const Routine& routine, const Values& given);

// Largest extent for which memory is provided.
inline constexpr std::int64_t extent_limit = std::int64_t{1} << 26;

// A run of words between two guard zones. Under the address sanitizer the guards are out of
// bounds, so that reading them is caught too.
class Buffer {
 public:
  explicit Buffer(std::size_t size);
  Buffer(Buffer&& other) noexcept = default;
  ~Buffer();

  std::span<Word> values() const;
  bool intact_before() const;
  bool intact_behind() const;

 private:
  std::size_t size_;
  std::unique_ptr<Word[]> block_;
};

// The arguments of one call, each in memory of its own. Entries that are not given are poison.
class Arguments {
 public:
  // The extents must be within the limit; an array may be given more entries than its extent.
  Arguments(const Routine& routine, Values given);

  const Routine& routine() const { return *routine_; }
  std::span<const Word> given(std::size_t argument) const { return given_[argument]; }
  std::span<Word> values(std::size_t argument) const { return buffers_[place_[argument]].values(); }
  // Makes a scalar output the same variable as a scalar input, whose value it then holds.
  void share(std::size_t output, std::size_t input) { place_[output] = input; }
  // What an entry held when the arguments were made, shared ones apart.
  Word before(std::size_t argument, std::size_t entry) const;

  // What happened that no routine may do: writing outside an argument, or changing one that is
  // only read. A sentence each; empty when all is well.
  std::vector<std::string> damage() const;

 private:
  bool changed(std::size_t argument) const;
  bool is_shared(std::size_t argument) const;

  const Routine* routine_;
  Values given_;
  std::vector<std::size_t> place_;  // of each argument among the buffers
  std::vector<Buffer> buffers_;
};

using Entry = void (*)();

// Whether a host can leave the stack aligned to 4 bytes only (32-bit x86).
#ifdef __i386__
inline constexpr bool any_stack_offset = true;
#else
inline constexpr bool any_stack_offset = false;
#endif

// Whether a routine takes its arguments off the stack itself (32-bit Windows).
#if defined(_WIN32) && defined(__i386__)
inline constexpr bool callee_removes_arguments = true;
#else
inline constexpr bool callee_removes_arguments = false;
#endif

// Bytes of arguments that the routine had to remove from the stack, and that it did remove.
struct StackBytes {
  std::size_t due;
  std::size_t removed;
};

// Where the arguments of a call lie while the routine runs.
enum class Memory {
  ordinary,
  page_end,   // each ends at memory that must not be touched, and what is only read is read-only
  unaligned,  // one byte behind an address that is right for its type
};

// A host's routine that returns these values, until the next call in this thread.
void* callback_that_returns(std::span<const Word> values);

// Calls the routine at `entry`. On 32-bit x86 the stack pointer is `stack_offset` (0, 4, 8 or 12)
// bytes above a multiple of 16 at the call; elsewhere the offset is the compiler's business and
// both counts are 0. Threads may call at the same time.
StackBytes invoke(Entry entry, const Arguments& arguments, unsigned stack_offset = 0,
                  Memory memory = Memory::ordinary);

}  // namespace kezcall
