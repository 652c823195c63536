// kezcall: KezLib's host on the command line.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <filesystem>
#include <iostream>
#include <span>
#include <string>
#include <system_error>
#include <vector>

#include "library.h"
#include "memory.h"
#include "print.h"
#include "rows.h"
#include "run.h"

namespace {

using namespace kezcall;

constexpr const char* usage =
    R"(usage: kezcall [--library PATH] ROW                call a routine, show what it wrote
       kezcall [--library PATH] [--memory WHERE] [--trace] FILE...
                                                   run files of rows
       kezcall --list                              all routines
       kezcall --help [ROUTINE...]                 this text, or what a routine does:
                                                   kezpds, or distance

A row is a call: the routine's name and its inputs in argument order. Behind an
arrow it may say what the outputs must be, in argument order too:

  kezlci  1 0 0  0 0 -1  ->  2  0 1  0 -1   # line x = 0 across the unit circle

On the command line quote a row that has an arrow. An argument that is read and
written stands on both sides; [1 2 3] is an array; # begins a comment.

  inputs    1.5  -2  1e-3  nan  inf  -inf  0x3f800000 (the bits of either kind)
            .         leaves an argument, or an entry, that is also written unset
  outputs   1.5       equal as a number (0 is -0; but -0 demands the sign)
            nan       any not-a-number
            0x...     exactly these bits
            ~1.5      within a millionth of the value
            1.5~0.01  within 0.01
            .         untouched; so are array entries that the row leaves out

Files hold a row a line; a row without an arrow is just called. Before each call
the outputs are filled with a pattern, and a routine that writes outside of its
arguments, or to one that it may only read, fails. With --memory page-end the
arguments end at memory that kills who touches it, and those that are only read
cannot be written; with --memory unaligned they begin at odd addresses. --trace
prints each row before its call, so that one which kills is known. Exit status:
0 all well, 1 a row failed, 2 bad input.
)";

struct Options {
  std::string library = Library::default_path;
  Memory memory = Memory::ordinary;
  bool trace = false;
  std::vector<std::string> operands;
};

class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A path that exists is meant, even where the loader would look elsewhere for a bare name.
std::string library_path(const std::string& path) {
  namespace fs = std::filesystem;
  return fs::exists(path) ? fs::absolute(path).make_preferred().string() : path;
}

Options parse_options(std::span<char*> arguments) {
  Options options;
  std::size_t i = 0;
  for (; i < arguments.size() && arguments[i][0] == '-'; ++i) {
    const std::string option = arguments[i];
    if (option == "--trace") {
      options.trace = true;
    } else if (option == "--library") {
      if (++i == arguments.size()) throw UsageError("--library wants a path");
      options.library = library_path(arguments[i]);
    } else if (option == "--memory") {
      const auto memory = ++i < arguments.size() ? memory_called(arguments[i]) : std::nullopt;
      if (!memory)
        throw UsageError("--memory wants ordinary, unaligned or (not on Windows) page-end");
      options.memory = *memory;
    } else {
      throw UsageError("unknown option " + option);
    }
  }
  options.operands.assign(arguments.begin() + static_cast<std::ptrdiff_t>(i), arguments.end());
  return options;
}

// By its name or by the one for people.
const Routine* find_described(std::string_view name) {
  const auto found = std::ranges::find(routines, name, &Routine::readable);
  return found == routines.end() ? find_routine(name) : &*found;
}

int help(std::span<char*> names) {
  if (names.empty()) std::cout << usage;
  for (const char* name : names) {
    const Routine* routine = find_described(name);
    if (!routine) throw UsageError(std::string("unknown routine '") + name + "'");
    if (name != names.front()) std::cout << '\n';
    print_help(std::cout, *routine);
  }
  return all_well;
}

// What looks like no path and is no file is a row, so that a misspelt routine is reported as one.
bool names_files(const std::vector<std::string>& operands) {
  const std::string& operand = operands.front();
  const std::string_view name = next_token(operand, 0).text;
  if (find_routine(name)) return false;
  std::error_code too_long_a_name;
  return name.find_first_of("./\\") != name.npos ||
         std::filesystem::exists(operand, too_long_a_name);
}

std::string joined(const std::vector<std::string>& words) {
  std::string result;
  for (const std::string& word : words) result += (result.empty() ? "" : " ") + word;
  return result;
}

int run(std::span<char*> arguments) {
  const std::string first = arguments.empty() ? "" : arguments.front();
  if (first == "--help") return help(arguments.subspan(1));
  if (first == "--list") {
    print_list(std::cout);
    return all_well;
  }
  const Options options = parse_options(arguments);
  if (options.operands.empty()) throw UsageError("neither a row nor a file is given");
  if (names_files(options.operands))
    return run_files(options.library, options.operands, options.memory, options.trace);
  return run_row(options.library, joined(options.operands));
}

}  // namespace

int main(int argc, char* argv[]) {
  try {
    const int status = run(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
    if (std::cout.flush()) return status;
    std::cerr << "kezcall: the output could not be written: " << std::strerror(errno) << '\n';
  } catch (const UsageError& error) {
    std::cerr << "kezcall: " << shown(error.what()) << "; see kezcall --help\n";
  } catch (const std::exception& error) {
    std::cerr << "kezcall: " << shown(error.what()) << '\n';
  }
  return bad_input;
}
