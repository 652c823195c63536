// Arguments for any routine of the call table, made to break it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "call.h"
#include "library.h"

namespace kezcall {

// Decisions in a sequence that is the same on every platform.
class Choices {
 public:
  // The bytes decide first, and what the seed begins goes on where they end.
  explicit Choices(std::uint64_t seed, std::span<const std::uint8_t> bytes = {})
      : state_(seed), bytes_(bytes) {}

  Word word();
  Word below(Word limit);  // 0 to limit - 1
  bool one_in(Word n) { return below(n) == 0; }

 private:
  std::uint64_t state_;
  std::span<const std::uint8_t> bytes_;
};

// The same for the same routine and number, whatever other routines there are.
Choices choices_for(const Routine& routine, std::size_t number);

enum class Mood {
  ordinary,  // reals of a few digits before the point, counts of a few
  hostile,   // all that comes
};

// Arrays have exactly the entries that the header asks for.
Values draw_values(const Routine& routine, Choices& choices, Mood mood);

// One not-a-number for all, since nothing fixes which one comes out of an operation, but for the
// poison of what is unwritten.
Word comparable(Word word, Kind kind);

// What a call left in the arguments that it may write, comparable.
std::vector<Word> results(const Arguments& arguments);

// What a call did wrong, a sentence each: damage, entries unwritten although the header does not
// say that they are kept, and entries written although it says so.
std::vector<std::string> faults(const Arguments& arguments);

// Throws LibraryError when the library has no such routine.
Entry entry_of(const Library& library, const Routine& routine);

// As `kezcall` takes it on the command line.
std::string row_text(const Routine& routine, const Values& values);

}  // namespace kezcall
