// Floating-point exceptions: hosts may have them unmasked, and then die of one.
//
//   exceptions_test LIBRARY ROWS...
#include <algorithm>
#include <array>
#include <bit>
#include <cfenv>
#include <cmath>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "hostile.h"
#include "rows.h"

namespace {

using namespace kezcall;

struct Excuse {
  std::string_view routine, reason;
};

constexpr std::array excused = {
    Excuse{"kezpor", "a first line that is the y axis divides by its b, which is 0, as documented"},
};

// With other than moderate values only.
constexpr std::array excused_beyond = {
    Excuse{"kezdir", "the square of a length beyond 1.8e19 overflows"},
    Excuse{"kezmer15", "not-a-number is compared with the value"},
};

bool is_one_of(const auto& excuses, const Routine& routine) {
  return std::ranges::count(excuses, routine.name, &Excuse::routine) > 0;
}

template <typename Holds>
bool all_reals(const Routine& routine, const auto& values_of, Holds holds) {
  for (std::size_t i = 0; i < routine.arguments.size(); ++i) {
    if (routine.arguments[i].kind == Kind::integer) continue;
    for (const Word word : values_of(i))
      if (word != poison && !holds(std::bit_cast<float>(word))) return false;
  }
  return true;
}

bool all_finite(const Arguments& arguments) {
  return all_reals(
      arguments.routine(), [&](std::size_t i) { return arguments.values(i); },
      [](float x) { return std::isfinite(x); });
}

// Squares, products and quotients of a few such values stay in the range of single precision.
bool all_moderate(const Routine& routine, const Values& values) {
  return all_reals(
      routine, [&](std::size_t i) -> const std::vector<Word>& { return values[i]; },
      [](float x) { return x == 0 || (std::fabs(x) >= 1e-6f && std::fabs(x) <= 1e6f); });
}

class Check {
 public:
  // A call whose results are finite raises none.
  void call(const Library& library, const Routine& routine, const Values& values) {
    const Arguments arguments(routine, values);
    const Entry entry = entry_of(library, routine);
    std::feclearexcept(FE_ALL_EXCEPT);
    invoke(entry, arguments);
    const int raised = std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
    ++calls_;
    if (!raised || !all_finite(arguments) || is_one_of(excused, routine)) return;
    if (is_one_of(excused_beyond, routine) && !all_moderate(routine, values)) return;
    if (++failed_ > 20) return;
    std::cout << row_text(routine, values) << "\n   " << (raised & FE_INVALID ? " invalid" : "")
              << (raised & FE_DIVBYZERO ? " divide-by-zero" : "")
              << (raised & FE_OVERFLOW ? " overflow" : "") << '\n';
  }

  bool close() const {
    std::cout << calls_ << " calls, " << failed_ << " failed\n";
    return calls_ > 0 && failed_ == 0;
  }

 private:
  std::size_t calls_ = 0, failed_ = 0;
};

void call_rows(Check& check, const std::string& library_path, const std::string& file) {
  const Library library(library_path);  // for the values kept from row to row
  std::ifstream stream(file);
  if (!stream) throw std::runtime_error("cannot read " + file);
  for (std::string line; std::getline(stream, line);)
    if (const auto row = parse_row(line)) check.call(library, *row->routine, row->given);
}

// Whole numbers from -size to size, so that points coincide, lines meet at right angles or not at
// all, and differences are 0.
void make_whole(const Routine& routine, Values& values, Word size) {
  for (std::size_t i = 0; i < values.size(); ++i)
    if (routine.arguments[i].kind != Kind::integer)
      for (Word& word : values[i])
        word = std::bit_cast<Word>(static_cast<float>(word % (2 * size + 1)) -
                                   static_cast<float>(size));
}

void call_drawn(Check& check, const Library& library) {
  for (std::size_t number = 0; number < 3000; ++number)
    for (const Routine& routine : routines) {
      Choices choices = choices_for(routine, number);
      Values values = draw_values(routine, choices, Mood::ordinary);
      if (const auto size = static_cast<Word>(number % 3); size > 0)
        make_whole(routine, values, size);
      if (all_moderate(routine, values)) check.call(library, routine, values);
    }
}

#ifdef __linux__

// Each in a library that has just been loaded.
bool survive_traps(const std::string& library_path) {
  std::size_t failed = 0;
  for (const char* const text : {
           "kezcer3  1 1  1 3  1.5707964  ->  1 3  ~-1 1~1e-6  1",
           "kezcer3  1 1  1 -1  1.5707964  ->  1 -1  ~3 1~1e-6  1",
           "kezcer10  0 0  0 2  -4 2  1.5707964 1.5707964  ->  0~1e-6 0~1e-6  0 2  ~-4 ~2  ~-2 ~2  "
           "0",
           "kezcer5  0 2  1 2  -3 2  1 2 1  ->  0~1e-6 ~2  1 2  -3 ~2  1 2~1e-6  1",
           "kezcer1  -3.0000002 0  -3.0000005 0  14 0.49999997",
           "kezinp  2 -2 1  ->  ~2.2360680 ~-2.2360680 ~-0.2318238",
           "kezefr  70 100 1  1 1  ->  0",
           "kezinr  1 [2] 1 3  ->  inf",
           // What stands behind the place found is not looked at, even where many are asked at
           // once.
           "kezpos  18 [1 2 3 nan 5 6 7 8 9 10 11 12 13 14 15 16 17 18]  2.5  ->  2",
           "kezpos1  18 [1 2 3 nan 5 6 7 8 9 10 11 12 13 14 15 16 17 18]  2  ->  1 2",
           "kezlul  18 [1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18]  19 nan  ->  0 [. . . . . . "
           ". . . "
           ". . . . . . . . .]  . .",
           "kezpos1  18 [-3e38 3e38 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18]  -3e38  ->  1 1",
       }) {
    std::cout << "trapping: " << text << std::endl;  // what a signal was for
    const auto row = parse_row(text);
    const Library library(library_path);
    const Entry entry = entry_of(library, *row->routine);
    const Arguments arguments(*row->routine, row->given);
    std::feclearexcept(FE_ALL_EXCEPT);
    feenableexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
    invoke(entry, arguments);
    fedisableexcept(FE_ALL_EXCEPT);
    for (const std::string& difference : differences(*row, arguments)) {
      ++failed;
      std::cout << "    " << difference << '\n';
    }
  }
  return failed == 0;
}

#endif

bool run(const std::vector<std::string>& words) {
  if (words.size() < 2) throw std::runtime_error("wants LIBRARY ROWS...");
  Check check;
  for (std::size_t i = 1; i < words.size(); ++i) call_rows(check, words[0], words[i]);
  call_drawn(check, Library(words[0]));
  bool well = check.close();
#ifdef __linux__
  well = survive_traps(words[0]) && well;
#endif
  return well;
}

}  // namespace

int main(int argc, char* argv[]) {
  try {
    return run({argv + 1, argv + argc}) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "exceptions_test: " << error.what() << '\n';
    return 2;
  }
}
