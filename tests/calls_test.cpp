// Calls of every routine through the exported names of the built library, seeded and hostile:
//
//   calls_test [--trace] LIBRARY CHECK...
//
// With --trace each call is printed before it is made, so that one which crashes or hangs is known.
#include <algorithm>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <thread>

#include "hostile.h"
#include "kezbatch.h"

namespace {

using namespace kezcall;

// A scalar output, and the scalar input that is to be the same variable.
struct Pair {
  std::size_t output, input;
};

struct Call {
  const Routine* routine;
  Values values;
  std::optional<Pair> pair = {};
};

using Results = std::vector<std::vector<Word>>;  // of each call

bool trace = false;

Arguments called(const Library& library, const Call& call, bool shared = false,
                 Memory memory = Memory::ordinary) {
  if (trace) std::cout << row_text(*call.routine, call.values) << std::endl;
  Arguments arguments(*call.routine, call.values);
  if (shared) arguments.share(call.pair->output, call.pair->input);
  invoke(entry_of(library, *call.routine), arguments, 0, memory);
  return arguments;
}

// `each` calls of every routine, those of different routines in turns.
std::vector<Call> drawn_calls(std::size_t each) {
  std::vector<Call> calls;
  for (std::size_t number = 0; number < each; ++number)
    for (const Routine& routine : routines) {
      Choices choices = choices_for(routine, number);
      calls.push_back({&routine, draw_values(routine, choices, Mood::hostile)});
    }
  return calls;
}

class Check {
 public:
  explicit Check(const char* name) : name_(name) {}

  void expect(bool holds, const Call& call, const std::string& fault) {
    ++calls_;
    if (holds || ++failed_ > shown) return;
    std::cout << row_text(*call.routine, call.values) << "\n    " << fault << '\n';
  }

  bool close() const {
    std::cout << name_ << ": " << calls_ << " calls, " << failed_ << " failed" << std::endl;
    return calls_ > 0 && failed_ == 0;
  }

 private:
  static constexpr std::size_t shown = 20;

  const char* name_;
  std::size_t calls_ = 0;
  std::size_t failed_ = 0;
};

// Nothing outside the arguments is written, no input changes, every output is written unless the
// header says that it may be kept, and every call returns.
bool check_hostile_in(const char* name, const std::string& path, Memory memory, std::size_t each) {
  Check check(name);
  const Library library(path);
  for (std::size_t number = 0; number < each; ++number)
    for (const Routine& routine : routines) {
      Choices choices = choices_for(routine, number);
      const Call call{&routine, draw_values(routine, choices, Mood::hostile)};
      const std::vector<std::string> found = faults(called(library, call, false, memory));
      check.expect(found.empty(), call, found.empty() ? "" : found.front());
    }
  return check.close();
}

bool check_hostile(const std::string& path) {
  return check_hostile_in("hostile", path, Memory::ordinary, 3000);
}

bool check_unaligned(const std::string& path) {
  return check_hostile_in("unaligned", path, Memory::unaligned, 1000);
}

// Of one kind, since a variable has one.
std::vector<Pair> pairs(const Routine& routine) {
  std::vector<Pair> result;
  const auto arguments = routine.arguments;
  for (std::size_t o = 0; o < arguments.size(); ++o)
    for (std::size_t i = 0; i < arguments.size(); ++i)
      if (arguments[o].direction != Direction::in && arguments[i].direction == Direction::in &&
          !arguments[o].extent && !arguments[i].extent && arguments[o].kind == arguments[i].kind)
        result.push_back({o, i});
  return result;
}

// A scalar input that is the same variable as a scalar output. Routines that keep a value get the
// same history both times: the same calls from a fresh load.
bool check_overlap(const std::string& path) {
  std::vector<Call> calls;
  for (const Routine& routine : routines)
    for (const Pair pair : pairs(routine))
      for (std::size_t number = 0; number < 24; ++number) {
        Choices choices = choices_for(routine, number);
        Call call{&routine, draw_values(routine, choices, Mood::hostile), pair};
        // The variable has one value before the call, whichever of the two is looked at. An output
        // that is kept then shows it in both calls.
        call.values[pair.output] = call.values[pair.input];
        calls.push_back(call);
      }
  const auto all_results = [&](bool shared) {
    const Library library(path);
    Results all;
    for (const Call& call : calls) all.push_back(results(called(library, call, shared)));
    return all;
  };
  const auto separate = all_results(false), overlapping = all_results(true);
  Check check("overlap");
  for (std::size_t k = 0; k < calls.size(); ++k) {
    const auto arguments = calls[k].routine->arguments;
    check.expect(separate[k] == overlapping[k], calls[k],
                 std::string("differs when ") + arguments[calls[k].pair->output].name + " is " +
                     arguments[calls[k].pair->input].name);
  }
  return check.close();
}

using Order = std::vector<std::size_t>;

Results in_order(const Library& library, const std::vector<Call>& calls, const Order& order) {
  Results all(calls.size());
  for (const std::size_t k : order) all[k] = results(called(library, calls[k]));
  return all;
}

// All indexes of the calls, ascending from `first` and then from 0.
Order ascending(const std::vector<Call>& calls, std::size_t first = 0) {
  Order order(calls.size());
  for (std::size_t k = 0; k < order.size(); ++k) order[k] = (first + k) % order.size();
  return order;
}

// A routine without a kept value does not show what was called before: each call comes once after
// all calls in front of it and once after all behind it.
bool check_order(const std::string& path) {
  Check check("order");
  const std::vector<Call> calls = drawn_calls(400);
  const Library library(path);
  Order order = ascending(calls);
  const Results forwards = in_order(library, calls, order);
  std::ranges::reverse(order);
  const Results backwards = in_order(library, calls, order);
  for (std::size_t k = 0; k < calls.size(); ++k)
    if (!calls[k].routine->keeps)
      check.expect(forwards[k] == backwards[k], calls[k], "differs by what was called before");
  return check.close();
}

#ifndef _WIN32  // where this compiler has no threads, and mmap is not

bool check_page_end(const std::string& path) {
  return check_hostile_in("page-end", path, Memory::page_end, 200);
}

std::vector<Call> only(bool keeping, std::vector<Call> calls) {
  std::erase_if(calls, [&](const Call& c) { return c.routine->keeps != keeping; });
  return calls;
}

// Two threads in step and two half the calls away.
std::vector<Results> at_once(const Library& library, const std::vector<Call>& calls) {
  std::vector<Results> all(4);
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < all.size(); ++t)
    threads.emplace_back(
        [&, t] { all[t] = in_order(library, calls, ascending(calls, t / 2 * calls.size() / 2)); });
  for (std::thread& thread : threads) thread.join();
  return all;
}

// Re-entrant routines give the same from many threads at once.
bool check_threads(const std::string& path) {
  Check check("threads");
  const std::vector<Call> calls = only(false, drawn_calls(100));
  const Library library(path);
  const Results alone = in_order(library, calls, ascending(calls));
  for (const Results& one : at_once(library, calls))
    for (std::size_t k = 0; k < calls.size(); ++k)
      check.expect(alone[k] == one[k], calls[k], "differs when many threads call");
  return check.close();
}

// A kept value is the same whichever thread calls.
bool check_relay(const std::string& path) {
  Check check("relay");
  const std::vector<Call> calls = only(true, drawn_calls(100));
  const Results alone = in_order(Library(path), calls, ascending(calls));
  const Library library(path);
  for (std::size_t k = 0; k < calls.size(); ++k) {
    std::vector<Word> relayed;
    std::thread([&] { relayed = results(called(library, calls[k])); }).join();
    check.expect(alone[k] == relayed, calls[k], "differs when each call has a thread of its own");
  }
  return check.close();
}

#endif

// Calls of one routine with each argument's values a step apart, as kezbatch takes them.
class Batch {
 public:
  explicit Batch(const std::vector<Arguments>& calls, bool backward)
      : routine_(calls[0].routine()) {
    for (std::size_t i = 0; i < routine_.arguments.size(); ++i) {
      std::size_t stride = 1;
      for (const Arguments& call : calls) stride = std::max(stride, call.values(i).size());
      std::vector<Word>& block = blocks_.emplace_back(stride * calls.size(), poison);
      for (std::size_t k = 0; k < calls.size(); ++k)
        std::ranges::copy(calls[k].values(i), place(block, stride, k, backward, calls.size()));
      address_.push_back(&*place(block, stride, 0, backward, calls.size()));
      const auto bytes = static_cast<std::intptr_t>(stride * sizeof(Word));
      step_.push_back(backward ? -bytes : bytes);
      if (routine_.arguments[i].kind == Kind::callback) {
        address_.back() = callback_that_returns(calls[0].given(i));
        step_.back() = 0;
      }
    }
  }

  void share(std::size_t argument) { step_[argument] = 0; }

  std::int32_t run(const Library& library, std::int32_t count) const {
    const auto entry = reinterpret_cast<decltype(&kezbatch)>(library.find("kezbatch"));
    const auto arguments = static_cast<std::int32_t>(address_.size());
    std::int32_t status = -1;
    entry(routine_.name, &arguments, &count, address_.data(), step_.data(), &status);
    return status;
  }

  // Whether a call left what another one did with the same arguments.
  bool has_left(const Arguments& alone, std::size_t k) const {
    for (std::size_t i = 0; i < step_.size(); ++i) {
      if (routine_.arguments[i].direction == Direction::in) continue;
      const Word* first = reinterpret_cast<const Word*>(static_cast<const char*>(address_[i]) +
                                                        static_cast<std::intptr_t>(k) * step_[i]);
      if (!std::ranges::equal(alone.values(i), std::span(first, alone.values(i).size())))
        return false;
    }
    return true;
  }

 private:
  static std::vector<Word>::iterator place(std::vector<Word>& block, std::size_t stride,
                                           std::size_t k, bool backward, std::size_t count) {
    return block.begin() + static_cast<std::ptrdiff_t>(stride * (backward ? count - 1 - k : k));
  }

  const Routine& routine_;
  std::vector<std::vector<Word>> blocks_;
  std::vector<void*> address_;
  std::vector<std::intptr_t> step_;
};

constexpr std::size_t batched = 7;

// Seven calls whose first real scalar is one variable, and whose callback is one routine.
std::vector<Arguments> drawn_batch(const Routine& routine, std::size_t number, std::size_t shared) {
  std::vector<Arguments> calls;
  Choices choices = choices_for(routine, number);
  Values first;
  for (std::size_t k = 0; k < batched; ++k) {
    Values values = draw_values(routine, choices, k % 2 ? Mood::ordinary : Mood::hostile);
    if (k == 0) first = values;
    for (std::size_t i = 0; i < values.size(); ++i)
      if (i == shared || routine.arguments[i].kind == Kind::callback) values[i] = first[i];
    calls.emplace_back(routine, values);
  }
  return calls;
}

// One call for many leaves the bits of single calls, kept values included.
bool check_batch(const std::string& path) {
  Check check("batch");
  for (const Routine& routine : routines) {
    const auto shared =
        static_cast<std::size_t>(std::ranges::find_if(routine.arguments,
                                                      [](const Argument& a) {
                                                        return a.kind == Kind::real &&
                                                               a.direction == Direction::in &&
                                                               !a.extent;
                                                      }) -
                                 routine.arguments.begin());
    // What keeps a value begins each sequence with a fresh load.
    std::optional<Library> library;
    if (!routine.keeps) library.emplace(path);
    for (std::size_t number = 0; number < 30; ++number) {
      std::vector<Arguments> alone = drawn_batch(routine, number, shared);
      Batch batch(alone, number % 2 == 0);
      if (shared < routine.arguments.size()) batch.share(shared);
      if (routine.keeps) library.emplace(path);
      for (const Arguments& call : alone) invoke(entry_of(*library, routine), call);
      if (routine.keeps) library.emplace(path);
      const Call call{&routine, {}};
      check.expect(batch.run(*library, batched) == 0, call, "status");
      for (std::size_t k = 0; k < batched; ++k)
        check.expect(batch.has_left(alone[k], k), call, "differs in a batch");
    }
  }
  return check.close();
}

// What is refused calls nothing.
bool check_batch_refusals(const std::string& path) {
  Check check("batch refusals");
  const Library library(path);
  const auto entry = reinterpret_cast<decltype(&kezbatch)>(library.find("kezbatch"));
  const Routine& distance = *std::ranges::find(routines, std::string("kezpds"), &Routine::name);
  struct Refused {
    const char* name;
    std::int32_t arguments, count, status;
  };
  for (const auto& [name, arguments, count, wanted] : {Refused{"kezpds", 6, 1, 2},
                                                       {"kezpds", 8, 1, 2},
                                                       {"kezpd", 7, 1, 1},
                                                       {"kezpdsx", 7, 1, 1},
                                                       {"", 0, 1, 1},
                                                       {"zzz", 7, 1, 1},
                                                       {"kezpds", 7, 0, 0},
                                                       {"kezpds", 7, -1, 0}}) {
    std::int32_t status = -1;
    float one = 1;
    void* address[8];
    const std::intptr_t step[8] = {};
    std::ranges::fill(address, &one);
    entry(name, &arguments, &count, address, step, &status);
    check.expect(status == wanted && one == 1, {&distance, {}}, name);
  }
  return check.close();
}

bool check_batches(const std::string& path) {
  const bool same = check_batch(path);
  return check_batch_refusals(path) && same;
}

struct NamedCheck {
  std::string name;
  bool (*run)(const std::string& path);
};

const std::vector<NamedCheck> checks = {
    {"hostile", check_hostile},   {"unaligned", check_unaligned}, {"overlap", check_overlap},
    {"order", check_order},       {"batch", check_batches},
#ifndef _WIN32
    {"page-end", check_page_end}, {"threads", check_threads},     {"relay", check_relay},
#endif
};

bool run(const std::string& path, const std::vector<std::string>& wanted) {
  bool well = true;
  for (const std::string& name : wanted) {
    const auto check = std::ranges::find(checks, name, &NamedCheck::name);
    if (check == checks.end()) throw std::runtime_error("no check " + name);
    well = check->run(path) && well;
  }
  return well;
}

}  // namespace

int main(int argc, char* argv[]) {
  std::vector<std::string> words(argv + 1, argv + argc);
  trace = std::erase(words, "--trace") > 0;
  try {
    if (words.size() < 2) throw std::runtime_error("wants LIBRARY CHECK...");
    return run(words.front(), {words.begin() + 1, words.end()}) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "calls_test: " << error.what() << '\n';
    return 2;
  }
}
