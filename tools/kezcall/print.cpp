#include "print.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <string_view>

namespace kezcall {
namespace {

bool only_poison(std::span<const Word> words) {
  return std::ranges::all_of(words, [](Word word) { return word == poison; });
}

bool unchanged(const Arguments& arguments, std::size_t argument) {
  const std::span<const Word> words = arguments.values(argument);
  for (std::size_t i = 0; i < words.size(); ++i)
    if (words[i] != arguments.before(argument, i)) return false;
  return true;
}

// In the form of a row: an entry that was never written shows as a point.
void print_value(std::ostream& out, const Argument& argument, std::span<const Word> words,
                 bool real_words) {
  const Kind kind = entry_kind(argument, real_words);
  out << (argument.extent ? "[" : "");
  for (std::size_t i = 0; i < words.size(); ++i)
    out << (i ? " " : "") << (words[i] == poison ? "." : decimal(words[i], kind));
  out << (argument.extent ? "]" : "");
}

template <typename Range, typename Length>
int longest(const Range& range, Length length) {
  std::size_t result = 0;
  for (const auto& item : range) result = std::max(result, length(item));
  return static_cast<int>(result);
}

int name_width(const Routine& routine) {
  return longest(routine.arguments,
                 [](const Argument& a) { return std::string_view(a.name).size(); });
}

const char* kind_name(Kind kind) {
  switch (kind) {
    case Kind::real:
      return "real";
    case Kind::integer:
      return "integer";
    case Kind::word:
      return "word";
    case Kind::callback:
      return "callback";
  }
  return "";
}

const char* direction_name(Direction direction) {
  switch (direction) {
    case Direction::in:
      return "in";
    case Direction::out:
      return "out";
    case Direction::in_out:
      return "in,out";
  }
  return "";
}

std::string type_text(const Argument& argument) {
  const std::string kind = kind_name(argument.kind);
  return argument.extent ? kind + " [" + argument.extent_text + "]" : kind;
}

// A summary may lead up to a formula that the list leaves out.
std::string_view without_colon(std::string_view summary) {
  return summary.ends_with(':') ? summary.substr(0, summary.size() - 1) : summary;
}

constexpr std::size_t page_width = 90;

// The words of a text from `column` on, continued on further lines behind `indent` blanks. Items of
// a list begin a line.
void print_wrapped(std::ostream& out, std::string_view text, std::size_t column,
                   std::size_t indent) {
  std::size_t end = 0;
  for (std::size_t begin = 0; (begin = text.find_first_not_of(" \n", end)) != text.npos;) {
    const std::string_view gap = text.substr(end, begin - end);
    const std::string_view word = text.substr(begin, text.find_first_of(" \n", begin) - begin);
    const bool item = gap.ends_with('\n') && word == "-";
    if (item || column + 1 + word.size() > page_width) {
      out << '\n' << std::string(indent, ' ');
      column = indent;
    } else if (end > 0) {
      out << ' ';
      ++column;
    }
    out << word;
    column += word.size();
    end = begin + word.size();
  }
  out << '\n';
}

// A table or a sketch, whose lines stay as they are.
bool is_drawn(std::string_view paragraph) {
  return paragraph.starts_with("|") || paragraph.starts_with("    ");
}

void print_description(std::ostream& out, const Routine& routine) {
  const std::string text =
      std::string(routine.name) + ", " + routine.readable + ": " + routine.description;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find("\n\n", begin), text.size());
    const std::string_view paragraph = std::string_view(text).substr(begin, end - begin);
    if (begin > 0) out << '\n';
    if (is_drawn(paragraph))
      out << paragraph << '\n';
    else
      print_wrapped(out, paragraph, 0, 0);
    begin = end + 2;
  }
}

void print_row_form(std::ostream& out, const Routine& routine) {
  std::string inputs;
  std::string outputs;
  for (const Argument& argument : routine.arguments) {
    const std::string name = argument.name;
    const std::string item = argument.extent ? " [" + name + "]" : " " + name;
    if (argument.direction != Direction::out) inputs += item;
    if (argument.direction != Direction::in) outputs += item;
  }
  out << routine.name << " " << inputs << "  -> " << outputs << '\n';
}

bool continues_a_character(char byte) {
  return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

// A terminal obeys these, also those that UTF-8 writes as a byte 0xc2 and one from 0x80 to 0x9f.
bool is_control(char before, char c, char behind) {
  const auto byte = static_cast<unsigned char>(c);
  const auto second = [](char first, char next) {
    return first == '\xc2' && continues_a_character(next) &&
           static_cast<unsigned char>(next) < 0xa0;
  };
  return (byte < 0x20 && c != '\t') || byte == 0x7f || second(before, c) || second(c, behind);
}

}  // namespace

std::string shown(std::string_view text) {
  constexpr std::size_t most = 400;
  constexpr std::string_view digits = "0123456789abcdef";
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (result.size() >= most && !continues_a_character(text[i])) return result + "...";
    const char behind = i + 1 < text.size() ? text[i + 1] : ' ';
    const auto byte = static_cast<unsigned char>(text[i]);
    if (is_control(i > 0 ? text[i - 1] : ' ', text[i], behind))
      result.append("\\x").append({digits[byte / 16], digits[byte % 16]});
    else
      result += text[i];
  }
  return result;
}

void print_outputs(std::ostream& out, const Row& row, const Arguments& arguments) {
  for (std::size_t i = 0; i < row.routine->arguments.size(); ++i) {
    const Argument& argument = row.routine->arguments[i];
    if (argument.direction == Direction::in) continue;
    const std::span<const Word> words = arguments.values(i);
    out << std::left << std::setw(name_width(*row.routine)) << argument.name;
    if (!words.empty() && only_poison(words)) {
      out << "   not written\n";
      continue;
    }
    out << " = ";
    print_value(out, argument, words, row.real_words);
    if (argument.direction == Direction::in_out && unchanged(arguments, i)) out << "   unchanged";
    out << '\n';
  }
}

void print_list(std::ostream& out) {
  const auto width = [](auto name) {
    return longest(routines, [name](const Routine& r) { return std::string_view(r.*name).size(); });
  };
  const int names = width(&Routine::name), readable = width(&Routine::readable);
  std::string_view group;
  for (const Routine& routine : routines) {
    if (routine.group != group) {
      out << (group.empty() ? "" : "\n") << routine.group << '\n';
      group = routine.group;
    }
    out << (routine.keeps ? "* " : "  ") << std::left << std::setw(names) << routine.name << "  "
        << std::setw(readable) << routine.readable << "  " << without_colon(routine.summary)
        << '\n';
  }
  out << "\n* keeps a value from call to call\n";
}

void print_help(std::ostream& out, const Routine& routine) {
  print_description(out, routine);
  out << "\n  ";
  print_row_form(out, routine);
  out << '\n';
  const int names = name_width(routine);
  const int types =
      longest(routine.arguments, [](const Argument& a) { return type_text(a).size(); });
  for (const Argument& argument : routine.arguments) {
    out << "  " << std::left << std::setw(names) << argument.name << "  " << std::setw(6)
        << direction_name(argument.direction) << "  " << std::setw(types) << type_text(argument)
        << "  ";
    const auto column = static_cast<std::size_t>(names + types + 14);
    print_wrapped(out, argument.text, column, column);
  }
}

}  // namespace kezcall
