// What kezcall tells: the outputs of a call, and the interface.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "rows.h"

namespace kezcall {

// A text from outside in a message: control characters as \x1b, and at most some 400 bytes of it.
std::string shown(std::string_view text);

// Every output by name, one a line, and of each whether it was written.
void print_outputs(std::ostream& out, const Row& row, const Arguments& arguments);

// All routines by group, those marked that keep a value.
void print_list(std::ostream& out);

// What the header says of a routine, and the form of its row.
void print_help(std::ostream& out, const Routine& routine);

}  // namespace kezcall
