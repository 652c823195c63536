// The interface of the library as data: what include/kezlib.h says of every routine.
// The data themselves are generated from it at build time by tools/interface.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <span>
#include <vector>

namespace kezcall {

enum class Kind {
  real,      // 32-bit float
  integer,   // int32_t
  word,      // 32-bit entry of either kind, always an array
  callback,  // the host's routine: takes an index by reference, returns a real
};

enum class Direction { in, out, in_out };

// The integers of one argument as the caller passes them. Positions are 1-based, and an entry that
// is not there is 0.
class Entries {
 public:
  explicit Entries(std::span<const std::uint32_t> words) : words_(words) {}

  std::int64_t size() const { return std::ssize(words_); }
  std::int64_t operator()(std::int64_t position) const {
    if (position < 1 || position > size()) return 0;
    return static_cast<std::int32_t>(words_[static_cast<std::size_t>(position) - 1]);
  }

 private:
  std::span<const std::uint32_t> words_;
};

// Of the first `count` entries, and wraps as 32-bit sums do.
inline std::int64_t sum(Entries entries, std::int64_t count) {
  std::uint32_t total = 0;
  for (std::int64_t i = 1; i <= std::min(count, entries.size()); ++i)
    total += static_cast<std::uint32_t>(entries(i));
  return static_cast<std::int32_t>(total);
}

// The integers of all arguments by position: what an extent is computed from.
class Integers {
 public:
  explicit Integers(std::span<const std::vector<std::uint32_t>> arguments)
      : arguments_(arguments) {}

  Entries array(std::size_t argument) const { return Entries(arguments_[argument]); }
  std::int64_t operator[](std::size_t scalar) const { return array(scalar)(1); }

 private:
  std::span<const std::vector<std::uint32_t>> arguments_;
};

// Of an array and of a scalar, which is one entry.
inline constexpr std::int64_t every_entry = std::numeric_limits<std::int64_t>::max();

struct Argument {
  const char* name;
  Kind kind;
  Direction direction;
  std::int64_t (*extent)(Integers);  // entries of the array; null for a scalar
  const char* extent_text;           // as the header writes it; null for a scalar
  const char* text;                  // what the header says of the argument
  const char* kept;                  // the cases in which it is not written; null for none
  // How many first entries are written and no others; null where the integers do not tell.
  std::int64_t (*written)(Integers);
};

struct Routine {
  const char* name;
  const char* readable;     // a name for people, or which routine it is under a second name
  const char* group;        // title of the header's group
  const char* summary;      // the comment's first sentence
  const char* description;  // all that the comment says, except of the arguments
  bool keeps;               // whether it remembers something from call to call
  std::span<const Argument> arguments;
};

// All routines, in the header's order.
extern const std::span<const Routine> routines;

}  // namespace kezcall
