// Whether builds give the same bits.
//
//   reference check LIBRARY LIST ROWS...   holds the library against the list's hashes
//   reference write LIBRARY LIST ROWS...   writes the list: when routines or rows have changed
//   reference dump LIBRARY FILE            calls of the routines that are approximate, for
//                                          compare_dumps.py
//   reference calls FILE [ROWS...]         the arguments of the calls that are hashed, seeded or
//                                          rows, for a build that no program here can load
#include <algorithm>
#include <cstdint>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "hostile.h"
#include "rows.h"

namespace {

using namespace kezcall;

// No standard fixes the last bits of these. All other routines give the same bits everywhere.
struct Approximate {
  const char* reason;
  std::vector<std::string> routines;
};

const std::vector<Approximate> approximate = {
    {"the platform's sine, cosine, tangent, arc cosine or arc tangent",
     {"kezacp",  "kezair",  "kezapp",  "kezarc1", "kezaxph", "kezcer1", "kezcer10",
      "kezcer3", "kezcer4", "kezcer5", "kezcnv",  "kezinp",  "kezln1",  "kezmov",
      "kezphi",  "kezphi1", "kezphi3", "kezphip", "kezpl7",  "kezptr",  "kezptrl",
      "kezrot",  "kezrotx", "kezroty", "kezrotz", "kezstm"}},
    {"the start value of the reciprocal square root, which is the processor's",
     {"kez3lda", "kez3lds", "kezcer2", "kezhin", "kezlds", "kezpld", "kezpspg"}},
};

bool is_approximate(const Routine& routine) {
  return std::ranges::any_of(approximate, [&](const Approximate& group) {
    return std::ranges::count(group.routines, routine.name) > 0;
  });
}

void check_names() {
  for (const Approximate& group : approximate)
    for (const std::string& name : group.routines)
      if (!find_routine(name)) throw std::runtime_error("no routine " + name + " is approximate");
}

Arguments called(const Library& library, const Routine& routine, const Values& values) {
  Arguments arguments(routine, values);
  invoke(entry_of(library, routine), arguments);
  return arguments;
}

// FNV-1a, by words.
class Hash {
 public:
  void add(const std::vector<Word>& words) {
    for (const Word word : words) value_ = (value_ ^ word) * 0x100000001b3;
  }

  std::string text() const {
    std::ostringstream stream;
    stream << std::hex << std::setfill('0') << std::setw(16) << value_;
    return stream.str();
  }

 private:
  std::uint64_t value_ = 0xcbf29ce484222325;
};

constexpr std::size_t calls_each = 3000;

Values drawn_values(const Routine& routine, std::size_t number) {
  Choices choices = choices_for(routine, number);
  return draw_values(routine, choices, number % 4 == 0 ? Mood::ordinary : Mood::hostile);
}

// A kept value is part of the sequence, and so each sequence begins with a fresh load.
Hash hash_of_calls(const std::string& library_path, const Routine& routine) {
  const Library library(library_path);
  Hash hash;
  for (std::size_t number = 0; number < calls_each; ++number)
    hash.add(results(called(library, routine, drawn_values(routine, number))));
  return hash;
}

std::vector<Row> read_rows(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error("cannot read " + file);
  std::vector<Row> rows;
  for (std::string line; std::getline(stream, line);)
    if (auto row = parse_row(line)) rows.push_back(std::move(*row));
  return rows;
}

std::map<const Routine*, Hash> hashes_of_rows(const std::string& library_path,
                                              const std::vector<std::string>& files) {
  std::map<const Routine*, Hash> hashes;
  for (const std::string& file : files) {
    const Library library(library_path);
    for (const Row& row : read_rows(file))
      hashes[row.routine].add(results(called(library, *row.routine, row.given)));
  }
  return hashes;
}

// By routine: the hash of its seeded calls, and that of its rows.
std::map<std::string, std::string> all_hashes(const std::string& library_path,
                                              const std::vector<std::string>& row_files) {
  auto of_rows = hashes_of_rows(library_path, row_files);
  std::map<std::string, std::string> hashes;
  for (const Routine& routine : routines)
    if (!is_approximate(routine))
      hashes[routine.name] =
          hash_of_calls(library_path, routine).text() + " " + of_rows[&routine].text();
  return hashes;
}

std::map<std::string, std::string> read_list(const std::string& file) {
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error("cannot read " + file);
  std::map<std::string, std::string> hashes;
  for (std::string name, calls, rows; stream >> name >> calls >> rows;)
    hashes[name] = calls + " " + rows;
  return hashes;
}

bool check(const std::string& library_path, const std::string& list,
           const std::vector<std::string>& row_files) {
  auto wanted = read_list(list);
  const auto got = all_hashes(library_path, row_files);
  std::size_t differing = 0;
  for (const auto& [name, hashes] : got) {
    if (hashes == wanted[name]) continue;
    ++differing;
    std::cout << name << ": " << hashes << ", wanted " << wanted[name] << '\n';
  }
  for (const auto& [name, hashes] : wanted) {
    if (got.contains(name)) continue;
    ++differing;
    std::cout << name << ": not in the library\n";
  }
  if (differing) std::cout << "If a routine or its rows have changed: ./dev reference\n";
  std::cout << got.size() << " routines, " << calls_each
            << " calls of each and the rows: " << differing << " differ from " << list << '\n';
  return differing == 0;
}

bool write(const std::string& library_path, const std::string& list,
           const std::vector<std::string>& row_files) {
  std::ofstream stream(list, std::ios::binary);
  for (const auto& [name, hashes] : all_hashes(library_path, row_files))
    stream << name << ' ' << hashes << '\n';
  if (!stream.flush()) throw std::runtime_error("cannot write " + list);
  return true;
}

// A line for each call: the routine and the bits of its arguments, with r in front of a real's and
// * in front of those that the routine may write.
bool dump(const std::string& library_path, const std::string& file) {
  std::ofstream stream(file, std::ios::binary);
  stream << std::hex;
  for (const Routine& routine : routines) {
    if (!is_approximate(routine)) continue;
    const Library library(library_path);
    for (std::size_t number = 0; number < calls_each; ++number) {
      Choices choices = choices_for(routine, number);
      const Arguments done =
          called(library, routine, draw_values(routine, choices, Mood::ordinary));
      stream << routine.name;
      for (std::size_t i = 0; i < routine.arguments.size(); ++i) {
        const Argument& argument = routine.arguments[i];
        for (const Word word : done.values(i))
          stream << (argument.direction == Direction::in ? " " : " *")
                 << (argument.kind == Kind::real ? "r" : "i") << comparable(word, argument.kind);
      }
      stream << '\n';
    }
  }
  if (!stream.flush()) throw std::runtime_error("cannot write " + file);
  return true;
}

// 32-bit words: of a call the routine's place in the header, and argument by argument the number of
// entries and the entries. Where the library is loaded afresh stands a place that there is none of.
class CallFile {
 public:
  explicit CallFile(const std::string& file) : file_(file), stream_(file, std::ios::binary) {}

  void add_load() { put(~Word{0}); }

  void add(const Routine& routine, const Values& values) {
    const Arguments arguments(routine, values);
    put(static_cast<Word>(&routine - routines.data()));
    for (std::size_t i = 0; i < routine.arguments.size(); ++i) {
      put(static_cast<Word>(arguments.values(i).size()));
      for (const Word word : arguments.values(i)) put(word);
    }
  }

  void finish() {
    if (!stream_.flush()) throw std::runtime_error("cannot write " + file_);
  }

 private:
  void put(Word word) { stream_.write(reinterpret_cast<const char*>(&word), sizeof word); }

  std::string file_;
  std::ofstream stream_;
};

void write_seeded(CallFile& calls) {
  for (const Routine& routine : routines) {
    if (is_approximate(routine)) continue;
    calls.add_load();
    for (std::size_t number = 0; number < calls_each; ++number)
      calls.add(routine, drawn_values(routine, number));
  }
}

bool write_calls(const std::string& file, const std::vector<std::string>& row_files) {
  CallFile calls(file);
  if (row_files.empty()) write_seeded(calls);
  for (const std::string& rows : row_files) {
    calls.add_load();
    for (const Row& row : read_rows(rows)) calls.add(*row.routine, row.given);
  }
  calls.finish();
  return true;
}

bool run(const std::vector<std::string>& words) {
  const std::string command = words.empty() ? "" : words[0];
  check_names();
  if (words.size() > 3 && command == "check")
    return check(words[1], words[2], {words.begin() + 3, words.end()});
  if (words.size() > 3 && command == "write")
    return write(words[1], words[2], {words.begin() + 3, words.end()});
  if (words.size() == 3 && command == "dump") return dump(words[1], words[2]);
  if (words.size() > 1 && command == "calls")
    return write_calls(words[1], {words.begin() + 2, words.end()});
  throw std::runtime_error(
      "wants check|write LIBRARY LIST ROWS..., dump LIBRARY FILE or calls FILE [ROWS...]");
}

}  // namespace

int main(int argc, char* argv[]) {
  try {
    return run({argv + 1, argv + argc}) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "reference: " << error.what() << '\n';
    return 2;
  }
}
