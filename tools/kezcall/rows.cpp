#include "rows.h"

#include <algorithm>
#include <utility>

namespace kezcall {
namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view arrow = "->";

// The literals of one argument on one side of the arrow.
struct Operand {
  std::size_t column = 0;
  std::vector<Token> literals;
};

bool stands(const Argument& argument, bool left) {
  if (argument.direction == Direction::in_out) return true;
  return (argument.direction == Direction::in) == left;
}

class Parser {
 public:
  Parser(std::string_view line, const Routine& routine, std::size_t from)
      : line_(line), routine_(routine), next_(next_token(line, from)) {}

  // The operands of one side by argument, up to the arrow or the end.
  std::vector<Operand> side(bool left) {
    std::vector<Operand> operands;
    for (const Argument& argument : routine_.arguments)
      operands.push_back(stands(argument, left) ? operand(argument) : Operand{});
    if (!at_end_of_side())
      throw InputError(next_.column, std::string(routine_.name) + " has no more " +
                                         (left ? "inputs" : "outputs") + " for '" +
                                         std::string(next_.text) + "'");
    return operands;
  }

  // Steps over the arrow, if that comes next.
  bool take_arrow() {
    if (next_.text != arrow) return false;
    take();
    return true;
  }

  void expect_end() const {
    if (!next_.text.empty()) throw InputError(next_.column, "unexpected '->'");
  }

 private:
  bool at_end_of_side() const { return next_.text.empty() || next_.text == arrow; }

  Token take() {
    return std::exchange(next_, next_token(line_, next_.column - 1 + next_.text.size()));
  }

  Operand operand(const Argument& argument) {
    const std::string name = argument.name;
    if (at_end_of_side()) throw InputError(next_.column, "the value of " + name + " is missing");
    if (argument.extent) return array(argument);
    if (next_.text == "[")
      throw InputError(next_.column, "unexpected '[': " + name + " is a single value");
    if (next_.text == "]") throw InputError(next_.column, "unexpected ']'");
    const std::size_t column = next_.column;
    return {column, {take()}};
  }

  Operand array(const Argument& argument) {
    const std::string name = argument.name;
    if (next_.text != "[")
      throw InputError(next_.column,
                       "'[' expected: " + name + " is an array [" + argument.extent_text + "]");
    Operand result{take().column, {}};
    while (next_.text != "]") {
      if (at_end_of_side()) throw InputError(next_.column, "the ']' of " + name + " is missing");
      if (next_.text == "[") throw InputError(next_.column, "'[' inside an array");
      result.literals.push_back(take());
    }
    take();
    return result;
  }

  std::string_view line_;
  const Routine& routine_;
  Token next_;
};

bool has_real_words(const Routine& routine, const std::vector<Operand>& operands) {
  for (std::size_t i = 0; i < operands.size(); ++i) {
    if (routine.arguments[i].kind != Kind::word) continue;
    for (const Token& literal : operands[i].literals)
      if (looks_real(literal.text)) return true;
  }
  return false;
}

std::vector<Word> given_words(const Argument& argument, const Operand& operand, bool real_words) {
  std::vector<Word> words;
  for (const Token& literal : operand.literals) {
    if (literal.text != ".")
      words.push_back(given_word(literal, entry_kind(argument, real_words)));
    else if (argument.direction == Direction::in_out)
      words.push_back(poison);
    else
      throw InputError(literal.column,
                       std::string(argument.name) + " is only read, '.' gives it no value");
  }
  return words;
}

void check_extents(const Row& row, const std::vector<Operand>& left,
                   const std::vector<Operand>& right, std::size_t start) {
  const std::vector<std::int64_t> counts = extents(*row.routine, row.given);
  for (std::size_t i = 0; i < counts.size(); ++i) {
    const Argument& argument = row.routine->arguments[i];
    if (!argument.extent) continue;
    const std::string asked = std::string(argument.name) + " [" + argument.extent_text + "] has " +
                              std::to_string(counts[i]) + " entries, ";
    if (counts[i] > extent_limit)
      throw InputError(start, asked + "more than the " + std::to_string(extent_limit) +
                                  " that kezcall provides");
    const std::size_t given = left[i].literals.size();
    if (argument.direction != Direction::out && given < static_cast<std::size_t>(counts[i]))
      throw InputError(left[i].column, "array shorter than its count asks for: " + asked +
                                           std::to_string(given) + " given");
    if (!row.compares) continue;
    const std::size_t wanted = right[i].literals.size();
    if (wanted > std::max(static_cast<std::size_t>(counts[i]), given))
      throw InputError(right[i].column, "array longer than its count says: " + asked +
                                            std::to_string(wanted) + " wanted");
  }
}

std::string trimmed(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(blanks);
  return std::string(line.substr(begin, line.find_last_not_of(blanks) + 1 - begin));
}

std::string difference(const Wanted& wanted, const std::string& name, Kind kind, Word got,
                       Word before) {
  using enum Wanted::Rule;
  const auto text = [&](Word word) {
    return wanted.text.starts_with("0x") ? hexadecimal(word) : decimal(word, kind);
  };
  const std::string result = got == poison ? name + " not written" : name + " = " + text(got);
  if (wanted.rule != untouched) return result + ", wanted " + wanted.text;
  return result + ", wanted " + (before == poison ? "untouched" : text(before) + " as before");
}

// An array in disorder is understood from its first few entries.
constexpr std::size_t differences_shown = 8;

void add_differences(const Row& row, const Arguments& arguments, std::size_t i,
                     std::vector<std::string>& found) {
  const Argument& argument = row.routine->arguments[i];
  const std::span<const Word> got = arguments.values(i);
  std::size_t differing = 0;
  for (std::size_t k = 0; k < got.size(); ++k) {
    static const Wanted untouched{Wanted::Rule::untouched, "."};
    const Wanted& wanted = k < row.wanted[i].size() ? row.wanted[i][k] : untouched;
    const Word before = arguments.before(i, k);
    if (meets(got[k], before, wanted) || ++differing > differences_shown) continue;
    std::string name = argument.name;
    if (argument.extent) name.append("[").append(std::to_string(k + 1)).append("]");
    found.push_back(difference(wanted, name, entry_kind(argument, row.real_words), got[k], before));
  }
  if (differing > differences_shown)
    found.push_back(std::string(argument.name) + ": " +
                    std::to_string(differing - differences_shown) + " more entries differ");
}

}  // namespace

const Routine* find_routine(std::string_view name) {
  const auto found = std::ranges::find(routines, name, &Routine::name);
  return found == routines.end() ? nullptr : &*found;
}

Token next_token(std::string_view line, std::size_t from) {
  const std::size_t begin = std::min(line.find_first_not_of(blanks, from), line.size());
  if (begin == line.size() || line[begin] == '#')
    return {{}, line.substr(0, begin).find_last_not_of(blanks) + 2};
  std::size_t length = 1;
  if (line[begin] != '[' && line[begin] != ']')
    length = line.substr(begin).find_first_of(" \t\r\n[]#");
  return {line.substr(begin, length), begin + 1};
}

std::optional<Row> parse_row(std::string_view line) {
  const Token name = next_token(line, 0);
  if (name.text.empty()) return {};
  const Routine* routine = find_routine(name.text);
  if (!routine) throw InputError(name.column, "unknown routine '" + std::string(name.text) + "'");

  Parser parser(line, *routine, name.column - 1 + name.text.size());
  const std::vector<Operand> left = parser.side(true);
  const bool compares = parser.take_arrow();
  const std::vector<Operand> right = compares ? parser.side(false) : std::vector<Operand>{};
  parser.expect_end();

  Row row{routine, trimmed(line), has_real_words(*routine, left) || has_real_words(*routine, right),
          {},      compares,      {}};
  for (std::size_t i = 0; i < left.size(); ++i)
    row.given.push_back(given_words(routine->arguments[i], left[i], row.real_words));
  for (std::size_t i = 0; i < right.size(); ++i) {
    std::vector<Wanted>& wanted = row.wanted.emplace_back();
    for (const Token& literal : right[i].literals)
      wanted.push_back(wanted_word(literal, entry_kind(routine->arguments[i], row.real_words)));
  }
  check_extents(row, left, right, name.column);
  return row;
}

Kind entry_kind(const Argument& argument, bool real_words) {
  if (argument.kind == Kind::word) return real_words ? Kind::real : Kind::integer;
  return argument.kind == Kind::integer ? Kind::integer : Kind::real;
}

std::vector<std::string> differences(const Row& row, const Arguments& arguments) {
  std::vector<std::string> found;
  if (!row.compares) return found;
  for (std::size_t i = 0; i < row.routine->arguments.size(); ++i)
    if (row.routine->arguments[i].direction != Direction::in)
      add_differences(row, arguments, i, found);
  return found;
}

}  // namespace kezcall
