// The interface of the library as data: what include/kezlib.h says of every routine.
// interface.cpp is generated from it by tools/interface.py.
#pragma once

#include <cstdint>
#include <span>

namespace kezcall {

enum class Kind {
  real,      // 32-bit float
  integer,   // int32_t
  word,      // 32-bit entry of either kind, always an array
  callback,  // the host's routine: takes an index by reference, returns a real
};

enum class Direction { in, out, in_out };

// The values of a routine's integer arguments by position, as the caller passes them; arguments
// that are not integer scalars, and outputs, are 0.
using Integers = std::span<const std::int64_t>;

struct Argument {
  const char* name;
  Kind kind;
  Direction direction;
  std::int64_t (*extent)(Integers);  // entries of the array; null for a scalar
  const char* extent_text;           // as the header writes it; null for a scalar
  const char* text;                  // what the header says of the argument
};

struct Routine {
  const char* name;
  const char* group;    // title of the header's group
  const char* summary;  // the comment's first sentence
  const char* details;  // the rest of its description; may be empty
  const char* kept;     // what it keeps from call to call; null when re-entrant
  std::span<const Argument> arguments;
};

// All routines, in the header's order.
extern const std::span<const Routine> routines;

}  // namespace kezcall
