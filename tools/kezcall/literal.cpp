#include "literal.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace kezcall {
namespace {

constexpr double relative_tolerance = 1e-6;  // of ~v

bool is_hexadecimal(std::string_view text) {
  return text.starts_with("0x");
}

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

// Whether the whole of the text was read as a number; one out of range is reported as such.
bool complete(std::string_view text, std::from_chars_result read, const Token& token) {
  if (read.ptr != text.data() + text.size()) return false;
  if (read.ec == std::errc::result_out_of_range)
    throw InputError(token.column, quoted(token.text) + " is out of range");
  return read.ec == std::errc{};
}

Word parse_hexadecimal(const Token& token) {
  const std::string_view digits = token.text.substr(2);
  Word word = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), word, 16);
  if (!complete(digits, read, token))
    throw InputError(token.column, "malformed bit pattern " + quoted(token.text));
  return word;
}

std::int32_t parse_integer(const Token& token) {
  std::int32_t value = 0;
  const std::string_view text = token.text;
  if (!complete(text, std::from_chars(text.data(), text.data() + text.size(), value), token))
    throw InputError(token.column, "malformed integer " + quoted(text));
  return value;
}

// The text is the token's or part of it. The names that from_chars would take for values that are
// no decimals are left to the caller.
template <typename Real>
Real parse_decimal(std::string_view text, const Token& token) {
  Real value = 0;
  if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos ||
      !complete(text, std::from_chars(text.data(), text.data() + text.size(), value), token))
    throw InputError(token.column, "malformed number " + quoted(token.text));
  return value;
}

float parse_real(const Token& token) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  if (token.text == "nan") return std::numeric_limits<float>::quiet_NaN();
  if (token.text == "inf") return infinity;
  if (token.text == "-inf") return -infinity;
  return parse_decimal<float>(token.text, token);
}

Wanted wanted_near(const Token& token, std::size_t tilde, Kind kind) {
  if (kind == Kind::integer)
    throw InputError(token.column, "integers are compared exactly, not as " + quoted(token.text));
  Wanted wanted{Wanted::Rule::near, std::string(token.text)};
  if (tilde == 0) {
    wanted.value = parse_decimal<double>(token.text.substr(1), token);
    wanted.tolerance = relative_tolerance * std::abs(wanted.value);
  } else {
    wanted.value = parse_decimal<double>(token.text.substr(0, tilde), token);
    wanted.tolerance = parse_decimal<double>(token.text.substr(tilde + 1), token);
    if (wanted.tolerance < 0)
      throw InputError(token.column, "negative tolerance in " + quoted(token.text));
  }
  return wanted;
}

Wanted wanted_real(const Token& token) {
  const float value = parse_real(token);
  Wanted wanted{Wanted::Rule::number, std::string(token.text)};
  wanted.bits = std::bit_cast<Word>(value);
  if (std::isnan(value)) wanted.rule = Wanted::Rule::not_a_number;
  if (value == 0 && std::signbit(value)) wanted.rule = Wanted::Rule::bits;
  return wanted;
}

}  // namespace

bool looks_real(std::string_view literal) {
  return literal != "." && !is_hexadecimal(literal) &&
         literal.find_first_of(".eEn~") != std::string_view::npos;
}

Word given_word(const Token& token, Kind kind) {
  if (is_hexadecimal(token.text)) return parse_hexadecimal(token);
  if (kind == Kind::integer) return std::bit_cast<Word>(parse_integer(token));
  return std::bit_cast<Word>(parse_real(token));
}

Wanted wanted_word(const Token& token, Kind kind) {
  const std::string text(token.text);
  if (text == ".") return {Wanted::Rule::untouched, text};
  if (is_hexadecimal(text)) return {Wanted::Rule::bits, text, parse_hexadecimal(token)};
  if (const auto tilde = text.find('~'); tilde != text.npos) return wanted_near(token, tilde, kind);
  if (kind == Kind::integer)
    return {Wanted::Rule::bits, text, std::bit_cast<Word>(parse_integer(token))};
  return wanted_real(token);
}

bool meets(Word got, Word before, const Wanted& wanted) {
  const auto real = std::bit_cast<float>(got);
  switch (wanted.rule) {
    case Wanted::Rule::untouched:
      return got == before;
    case Wanted::Rule::bits:
      return got == wanted.bits;
    case Wanted::Rule::number:
      return real == std::bit_cast<float>(wanted.bits);
    case Wanted::Rule::not_a_number:
      return std::isnan(real) && got != poison;
    case Wanted::Rule::near:
      return std::abs(static_cast<double>(real) - wanted.value) <= wanted.tolerance;
  }
  return false;
}

std::string hexadecimal(Word word) {
  std::string text = "0x00000000";
  std::array<char, 8> digits;
  const char* end = std::to_chars(digits.begin(), digits.end(), word, 16).ptr;
  const auto length = static_cast<std::size_t>(end - digits.begin());
  return text.replace(text.size() - length, length, digits.data(), length);
}

std::string decimal(Word word, Kind kind) {
  const auto real = std::bit_cast<float>(word);
  if (kind == Kind::integer) return std::to_string(std::bit_cast<std::int32_t>(word));
  if (std::isnan(real)) return "nan";
  std::array<char, 32> text;
  return {text.begin(), std::to_chars(text.begin(), text.end(), real).ptr};
}

}  // namespace kezcall
