// A fuzzer's bytes as one call of one routine. With KEZLIB_TRACE set each call is printed before it
// is made, as a row for kezcall:  KEZLIB_TRACE=1 build/fuzz/tests/fuzz crash-...
#include <cstdlib>
#include <iostream>

#include "hostile.h"

using namespace kezcall;

// Loaded before the first run, so that the fuzzer knows all of its code.
static const Library library(KEZLIB_LIBRARY);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(0, {data, size});
  const Routine& routine = routines[choices.below(static_cast<Word>(routines.size()))];
  const Values values = draw_values(routine, choices, Mood::hostile);
  if (std::getenv("KEZLIB_TRACE")) std::cerr << row_text(routine, values) << std::endl;
  const Arguments arguments(routine, values);
  invoke(entry_of(library, routine), arguments);
  const std::vector<std::string> found = faults(arguments);
  if (found.empty()) return 0;
  std::cerr << row_text(routine, values) << '\n' << found.front() << '\n';
  std::abort();
}
