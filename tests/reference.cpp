// Whether builds give the same bits.
//
//   reference check LIBRARY LIST ROWS...   holds the library against the list's hashes
//   reference write LIBRARY LIST ROWS...   writes the list: when routines or rows have changed
//   reference dump LIBRARY FILE            results of the routines that are approximate
//   reference compare FILE FILE            how far two such files lie apart
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "hostile.h"
#include "library.h"
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
  const Entry entry = library.find(routine.name);
  if (!entry) throw LibraryError(std::string("no routine ") + routine.name);
  Arguments arguments(routine, values);
  invoke(entry, arguments);
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

// A kept value is part of the sequence, and so each sequence begins with a fresh load.
Hash hash_of_calls(const std::string& library_path, const Routine& routine) {
  const Library library(library_path);
  Hash hash;
  for (std::size_t number = 0; number < calls_each; ++number) {
    Choices choices = choices_for(routine, number);
    const Mood mood = number % 4 == 0 ? Mood::ordinary : Mood::hostile;
    hash.add(results(called(library, routine, draw_values(routine, choices, mood))));
  }
  return hash;
}

std::map<const Routine*, Hash> hashes_of_rows(const std::string& library_path,
                                              const std::vector<std::string>& files) {
  std::map<const Routine*, Hash> hashes;
  for (const std::string& file : files) {
    const Library library(library_path);
    std::ifstream stream(file);
    if (!stream) throw std::runtime_error("cannot read " + file);
    for (std::string line; std::getline(stream, line);)
      if (const auto row = parse_row(line))
        hashes[row->routine].add(results(called(library, *row->routine, row->given)));
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
  for (const auto& [name, hashes] : wanted)
    if (!got.contains(name)) std::cout << name << ": not in the library\n", ++differing;
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

// A line for each call: the routine and its results, with r before the bits of a real.
bool dump(const std::string& library_path, const std::string& file) {
  std::ofstream stream(file, std::ios::binary);
  for (const Routine& routine : routines) {
    if (!is_approximate(routine)) continue;
    const Library library(library_path);
    for (std::size_t number = 0; number < calls_each; ++number) {
      Choices choices = choices_for(routine, number);
      const Arguments done =
          called(library, routine, draw_values(routine, choices, Mood::ordinary));
      stream << routine.name << std::hex;
      for (std::size_t i = 0; i < routine.arguments.size(); ++i)
        for (const Word word : done.values(i))
          if (routine.arguments[i].direction != Direction::in)
            stream << (routine.arguments[i].kind == Kind::real ? " r" : " i") << word;
      stream << '\n';
    }
  }
  if (!stream.flush()) throw std::runtime_error("cannot write " + file);
  return true;
}

// Steps of single precision from one real to another.
std::int64_t steps(Word a, Word b) {
  const auto place = [](Word word) {
    const std::int64_t magnitude = word & 0x7fffffff;
    return word >> 31 ? -magnitude : magnitude;
  };
  return std::abs(place(a) - place(b));
}

struct Distance {
  std::size_t calls = 0;
  std::size_t differing = 0;
  std::size_t decided_otherwise = 0;  // another integer, or a real where the other has none
  std::int64_t largest = 0;           // of the rest, in units in the last place
};

void compare_results(std::istringstream one, std::istringstream other, Distance& distance) {
  ++distance.calls;
  if (one.str() == other.str()) return;
  bool otherwise = false;
  std::int64_t largest = 0;
  std::string a, b;
  while (one >> a && other >> b) {
    if (a == b) continue;
    const auto real = [](const std::string& text) {
      return static_cast<Word>(std::stoul(text.substr(1), nullptr, 16));
    };
    const bool comparable = a[0] == 'r' && !is_nan(real(a)) && !is_nan(real(b));
    if (comparable)
      largest = std::max(largest, steps(real(a), real(b)));
    else
      otherwise = true;
  }
  ++distance.differing;
  if (otherwise)
    ++distance.decided_otherwise;
  else
    distance.largest = std::max(distance.largest, largest);
}

bool compare(const std::string& one, const std::string& other) {
  std::ifstream first(one), second(other);
  std::map<std::string, Distance> distances;
  for (std::string a, b; std::getline(first, a) && std::getline(second, b);)
    compare_results(std::istringstream(a), std::istringstream(b),
                    distances[a.substr(0, a.find(' '))]);
  std::cout << "routine   calls  differ  decided otherwise  largest difference (ulp)\n";
  for (const auto& [name, d] : distances)
    std::cout << std::left << std::setw(9) << name << std::right << std::setw(6) << d.calls
              << std::setw(8) << d.differing << std::setw(19) << d.decided_otherwise
              << std::setw(26) << d.largest << '\n';
  if (distances.empty()) throw std::runtime_error("nothing to compare");
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
  if (words.size() == 3 && command == "compare") return compare(words[1], words[2]);
  throw std::runtime_error(
      "check|write LIBRARY LIST ROWS..., dump LIBRARY FILE, compare FILE FILE");
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
