// Single values as rows write them.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

#include "call.h"

namespace kezcall {

struct Token {
  std::string_view text;
  std::size_t column;  // 1-based
};

// What is wrong with a row, and where.
class InputError : public std::runtime_error {
 public:
  InputError(std::size_t column, const std::string& message)
      : std::runtime_error(message), column_(column) {}
  std::size_t column() const { return column_; }

 private:
  std::size_t column_;
};

// The functions below take Kind::real or Kind::integer; which of them an entry of a word array is
// is settled before by asking this of all of them.
bool looks_real(std::string_view literal);

// An input: a decimal, nan, inf, -inf or 0x and up to eight hexadecimal digits.
Word given_word(const Token& token, Kind kind);

// What a result must be.
struct Wanted {
  enum class Rule {
    untouched,     // .
    bits,          // 0x3f800000, -0, any integer
    number,        // 1.5; 0 is met by -0 too
    not_a_number,  // nan
    near           // ~1.5 or 1.5~0.01
  };
  Rule rule;
  std::string text;
  Word bits = 0;
  double value = 0;
  double tolerance = 0;
};

Wanted wanted_word(const Token& token, Kind kind);

bool meets(Word got, Word before, const Wanted& wanted);

std::string hexadecimal(Word word);

// The shortest decimal that reads back as the same value.
std::string decimal(Word word, Kind kind);

}  // namespace kezcall
