#include "run.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <new>

#include "library.h"
#include "print.h"
#include "rows.h"

namespace kezcall {
namespace {

// Hosts differ in how they leave the stack aligned and, where the routines remove their arguments
// themselves, in the exported name that they resolve; a file must pass with all of them.
struct Pass {
  bool decorated = false;
  unsigned stack_offset = 0;
  Memory memory = Memory::ordinary;
};

std::vector<Pass> passes(Memory memory) {
  std::vector<Pass> result;
  for (const bool decorated : {false, true})
    for (const unsigned offset : {0u, 4u, 8u, 12u})
      if ((!decorated || callee_removes_arguments) && (!offset || any_stack_offset))
        result.push_back({decorated, offset, memory});
  return result;
}

std::string exported_name(const Routine& routine, const Pass& pass) {
  const std::string name = routine.name;
  if (!pass.decorated) return name;
  return "_" + name + "@" + std::to_string(sizeof(Word) * routine.arguments.size());
}

std::string pass_text(const Routine& routine, const Pass& pass) {
  if (!any_stack_offset) return "";
  return "\n    called as " + exported_name(routine, pass) + ", stack " +
         std::to_string(pass.stack_offset) + " bytes above a multiple of 16";
}

struct PlacedRow {
  std::string place;  // file:line
  std::size_t column;
  Row row;
};

struct Totals {
  std::size_t passed = 0;
  std::size_t failed = 0;
  bool bad_input = false;
};

void report_bad_input(const std::string& place, std::size_t column, const std::string& message) {
  std::cout << std::flush;  // the two streams often end up in one file
  std::cerr << shown(place) << ':' << column << ": " << shown(message) << '\n';
}

// Calls the row's routine and returns what is wrong with what it did. Throws InputError, at column
// 1 of the row, when it cannot be called.
std::vector<std::string> call_row(const Library& library, const Row& row, const Pass& pass,
                                  const Arguments& arguments) {
  const std::string name = exported_name(*row.routine, pass);
  const Entry entry = library.find(name);
  if (!entry) throw InputError(1, "the library has no routine '" + name + "'");
  const StackBytes bytes = invoke(entry, arguments, pass.stack_offset, pass.memory);
  std::vector<std::string> troubles = arguments.damage();
  if (bytes.removed != bytes.due)
    troubles.push_back("removed " + std::to_string(static_cast<std::ptrdiff_t>(bytes.removed)) +
                       " bytes from the stack, wanted " + std::to_string(bytes.due));
  const std::vector<std::string> differing = differences(row, arguments);
  troubles.insert(troubles.end(), differing.begin(), differing.end());
  return troubles;
}

void run_placed(const Library& library, const PlacedRow& placed, const Pass& pass, bool trace,
                Totals& totals) {
  const Row& row = placed.row;
  if (trace) std::cout << shown(placed.place) << ": " << shown(row.text) << std::endl;
  std::vector<std::string> troubles;
  try {
    troubles = call_row(library, row, pass, Arguments(*row.routine, row.given));
  } catch (const InputError& error) {
    report_bad_input(placed.place, placed.column, error.what());
    totals.bad_input = true;
    return;
  } catch (const std::bad_alloc&) {
    report_bad_input(placed.place, placed.column, "not enough memory for the arrays");
    totals.bad_input = true;
    return;
  }
  ++(troubles.empty() ? totals.passed : totals.failed);
  if (troubles.empty()) return;
  std::cout << shown(placed.place) << ": " << shown(row.text) << pass_text(*row.routine, pass)
            << '\n';
  for (const std::string& trouble : troubles) std::cout << "    " << trouble << '\n';
}

std::vector<PlacedRow> read_rows(const std::string& file, Totals& totals) {
  std::vector<PlacedRow> rows;
  std::ifstream stream(file);
  std::string line;
  std::size_t number = 0;
  while (std::getline(stream, line)) {
    const std::string place = file + ":" + std::to_string(++number);
    try {
      if (auto row = parse_row(line))
        rows.push_back({place, next_token(line, 0).column, std::move(*row)});
    } catch (const InputError& error) {
      report_bad_input(place, error.column(), error.what());
      totals.bad_input = true;
    }
  }
  if (stream.is_open() && !stream.bad()) return rows;
  std::cerr << "kezcall: cannot read " << shown(file) << ": " << std::strerror(errno) << '\n';
  totals.bad_input = true;
  return rows;
}

}  // namespace

ExitStatus run_row(const std::string& library_path, const std::string& text) {
  const std::string place = "argument row";
  try {
    const auto row = parse_row(text);
    if (!row) throw InputError(1, "no row");
    const Library library(library_path);
    const Arguments arguments(*row->routine, row->given);
    const std::vector<std::string> troubles = call_row(library, *row, Pass{}, arguments);
    print_outputs(std::cout, *row, arguments);
    for (const std::string& trouble : troubles) std::cout << "failed: " << trouble << '\n';
    return troubles.empty() ? all_well : some_failed;
  } catch (const InputError& error) {
    report_bad_input(place, error.column(), error.what());
  } catch (const std::bad_alloc&) {
    report_bad_input(place, 1, "not enough memory for the arrays");
  }
  return bad_input;
}

ExitStatus run_files(const std::string& library_path, const std::vector<std::string>& files,
                     Memory memory, bool trace) {
  Totals totals;
  for (const std::string& file : files) {
    const std::vector<PlacedRow> rows = read_rows(file, totals);
    for (const Pass& pass : passes(memory)) {
      const Library library(library_path);
      for (const PlacedRow& placed : rows) run_placed(library, placed, pass, trace, totals);
    }
  }
  if (callee_removes_arguments) std::cout << "both names, ";
  if (any_stack_offset) std::cout << "four stack alignments\n";
  std::cout << totals.passed << " passed, " << totals.failed << " failed\n";
  if (totals.bad_input) return bad_input;
  return totals.failed ? some_failed : all_well;
}

}  // namespace kezcall
