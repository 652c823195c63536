// Runs rows against the library.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "call.h"

namespace kezcall {

enum ExitStatus : int { all_well = 0, some_failed = 1, bad_input = 2 };

// Both throw LibraryError when the library cannot be loaded.

// One row from the command line: prints its outputs and compares them if it has results.
ExitStatus run_row(const std::string& library_path, const std::string& text);

// Files of rows, each file with a freshly loaded library; ends with the counts. With `trace` every
// row is printed before its call, so that one which crashes is known.
ExitStatus run_files(const std::string& library_path, const std::vector<std::string>& files,
                     Memory memory, bool trace);

}  // namespace kezcall
