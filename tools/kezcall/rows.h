// Rows: a call and what it must result in, on one line.
//
//   kezlci  1 0 0  0 0 -1  ->  2  0 1  0 -1   # line x = 0 across the unit circle
//
// Inputs stand in argument order, behind the arrow the outputs; [1 2 3] is an array; an argument
// that is read and written stands on both sides. Without an arrow the routine is just called.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "call.h"
#include "literal.h"

namespace kezcall {

struct Row {
  const Routine* routine;
  std::string text;
  bool real_words;  // the entries of word arrays are reals
  Values given;
  bool compares;
  std::vector<std::vector<Wanted>> wanted;  // by argument; empty for inputs
};

// Null when there is none of this name.
const Routine* find_routine(std::string_view name);

// The next thing on a line: an arrow, a bracket or a value; empty at its end. Blanks and what a
// # begins are skipped.
Token next_token(std::string_view line, std::size_t from);

// Nothing for a line without a call. Throws InputError.
std::optional<Row> parse_row(std::string_view line);

// What kind of values an argument's entries are: real or integer.
Kind entry_kind(const Argument& argument, bool real_words);

// How the results differ from what the row wants, a sentence each.
std::vector<std::string> differences(const Row& row, const Arguments& arguments);

}  // namespace kezcall
