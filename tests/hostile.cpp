#include "hostile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>
#include <optional>
#include <string_view>

#include "literal.h"

namespace kezcall {
namespace {

constexpr Word sign_bit = 0x80000000;
constexpr Word quiet_nan = 0x7fc00000;

// At and around these the routines' tests turn over.
constexpr std::array turning_points = {
    1e-5f, 2e-5f,    1e-3f,    0.1f,     0.085f, 0.35f,     0.5f,     0.6f,  0.99999f,
    1.0f,  1.00001f, 1.99999f, 2.00001f, 3.0f,   1.570796f, 3.14159f, 1e-8f, 1e-12f,
};

constexpr std::array<Word, 10> extremes = {
    0x7fc00000, 0x7f800000, 0x7f7fffff,  // not-a-number, infinity, the largest number
    0x00800000, 0x00000001, 0x00000000,  // the smallest normal number, the smallest, zero
    0x5f800000, 0x1e3ce508,              // squares leave the range: 2^64, 1e-20
    0x4f000000, 0x4b800000,              // 2^31; 2^24, where 1 is lost in a sum
};

constexpr std::array<Word, 8> integer_extremes = {
    0x7fffffff, 0x7ffffffe, 0x80000000, 0x80000001, 0x40000000, 65536, -65536u, -100u,
};

// More than this is asked for again with small counts.
constexpr std::int64_t most_entries = 1 << 13;

// The values of one call.
class Drawing {
 public:
  Drawing(const Routine& routine, Choices& choices, Mood mood, bool small_counts)
      : routine_(routine),
        choices_(choices),
        wildness_(mood == Mood::hostile ? 1 + choices.below(4) : 0),
        small_counts_(small_counts || mood == Mood::ordinary),
        real_words_(choices.one_in(2)),
        values_(routine.arguments.size()) {}

  // Nothing when the values ask for more entries than are provided. Integers come first, because
  // the extents of other arrays follow from them.
  std::optional<Values> drawn() {
    fill([](const Argument& a) { return !a.extent; });
    fill([](const Argument& a) { return a.kind == Kind::integer; });
    fill([](const Argument& a) { return a.kind != Kind::integer; });
    return enough_ ? std::optional(values_) : std::nullopt;
  }

 private:
  template <typename Chosen>
  void fill(Chosen chosen) {
    const std::vector<std::int64_t> wanted = extents(routine_, values_);
    enough_ =
        enough_ && std::accumulate(wanted.begin(), wanted.end(), std::int64_t{0}) <= most_entries;
    if (!enough_) return;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
      const Argument& argument = routine_.arguments[i];
      if (argument.direction == Direction::out || !values_[i].empty() || !chosen(argument))
        continue;
      for (std::int64_t k = 0; k < wanted[i]; ++k) values_[i].push_back(entry(argument.kind));
      if (argument.extent && choices_.one_in(3)) sort(values_[i]);
    }
  }

  Word entry(Kind kind) {
    const bool integral = kind == Kind::integer || (kind == Kind::word && !real_words_);
    const Word drawn = integral ? integer() : real();
    return drawn == poison ? 0 : drawn;  // poison is what an unwritten output holds
  }

  Word integer() {
    if (small_counts_) return choices_.below(9) - (wildness_ > 1 ? 2 : 0);
    switch (choices_.below(16)) {
      case 0:
        return one_of(integer_extremes);
      case 1:
        return choices_.word();
      case 2:
        return choices_.below(choices_.one_in(8) ? 3000 : 70);
      default:
        return choices_.below(11) - 2;
    }
  }

  Word real() {
    const Word drawn = new_real();
    seen_[next_seen_++ % seen_.size()] = drawn;
    return drawn;
  }

  Word new_real() {
    // As many of the cases as the wildness allows.
    static constexpr std::array<Word, 5> cases = {1, 3, 5, 7, 10};
    switch (choices_.below(cases[wildness_])) {
      case 1:
      case 2:
        return whole();
      case 3:
        return one_of(seen_);
      case 4:
        return neighbour(one_of(seen_));
      case 5:
      case 6:
        return neighbour(of_any_sign(std::bit_cast<Word>(one_of(turning_points))));
      case 7:
        return neighbour(of_any_sign(one_of(extremes)));
      case 8:
        return choices_.word();
      default:
        return ordinary();
    }
  }

  template <typename Array>
  typename Array::value_type one_of(const Array& array) {
    return array[choices_.below(static_cast<Word>(array.size()))];
  }

  // One decision a statement: nothing fixes the order of two in an expression.
  Word of_any_sign(Word magnitude) { return magnitude | choices_.below(2) * sign_bit; }

  // The value, or the one before or behind it in single precision.
  Word neighbour(Word real) { return real + choices_.below(3) - 1; }

  Word whole() { return of_any_sign(std::bit_cast<Word>(static_cast<float>(choices_.below(4)))); }

  // From 1/8 to 64, of either sign.
  Word ordinary() {
    constexpr Word exponent_of_eighth = 124;
    const Word exponent = exponent_of_eighth + choices_.below(9);
    const Word fraction = choices_.word() >> 9;
    return of_any_sign(exponent << 23 | fraction);
  }

  // In the order of reals or integers, which is the same for positive ones.
  static void sort(std::vector<Word>& words) {
    std::ranges::sort(words, {}, [](Word w) { return w & sign_bit ? ~w : w | sign_bit; });
  }

  const Routine& routine_;
  Choices& choices_;
  Word wildness_;
  bool small_counts_;
  bool real_words_;
  Values values_;
  bool enough_ = true;
  std::array<Word, 8> seen_{};
  std::size_t next_seen_ = 0;
};

// The integers of a call as it leaves them. What it does not write counts as 0.
Values values_after(const Arguments& arguments) {
  Values after;
  for (std::size_t i = 0; i < arguments.routine().arguments.size(); ++i) {
    const std::span<const Word> values = arguments.values(i);
    std::ranges::replace(after.emplace_back(values.begin(), values.end()), poison, Word{0});
  }
  return after;
}

// First entries of an output.
struct Written {
  std::int64_t at_least, at_most;
};

Written entries_written(const Argument& argument, const Values& after) {
  if (!argument.kept) return {every_entry, every_entry};
  if (!argument.written) return {0, every_entry};
  const std::int64_t first = argument.written(Integers(after));
  return {first, first};
}

}  // namespace

Word Choices::word() {
  if (bytes_.size() >= sizeof(Word)) {
    Word result = 0;
    for (const std::uint8_t byte : bytes_.first(sizeof(Word))) result = result << 8 | byte;
    bytes_ = bytes_.subspan(sizeof(Word));
    return result;
  }
  bytes_ = {};
  // splitmix64
  state_ += 0x9e3779b97f4a7c15;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ mixed >> 30) * 0xbf58476d1ce4e5b9;
  mixed = (mixed ^ mixed >> 27) * 0x94d049bb133111eb;
  return static_cast<Word>(mixed >> 32);
}

Word Choices::below(Word limit) {
  if (bytes_.empty() || limit > 256) return word() % limit;
  const Word byte = bytes_.front();
  bytes_ = bytes_.subspan(1);
  return byte % limit;
}

Choices choices_for(const Routine& routine, std::size_t number) {
  std::uint64_t seed = number;
  for (const char c : std::string_view(routine.name))
    seed = seed * 0x100000001b3 + static_cast<unsigned char>(c);
  return Choices(seed);
}

Values draw_values(const Routine& routine, Choices& choices, Mood mood) {
  if (auto values = Drawing(routine, choices, mood, false).drawn()) return *values;
  return Drawing(routine, choices, mood, true).drawn().value();
}

Word comparable(Word word, Kind kind) {
  const bool is_nan = kind == Kind::real && (word & ~sign_bit) > 0x7f800000;
  return is_nan && word != poison ? quiet_nan : word;
}

std::vector<Word> results(const Arguments& arguments) {
  std::vector<Word> words;
  for (std::size_t i = 0; i < arguments.routine().arguments.size(); ++i) {
    const Argument& argument = arguments.routine().arguments[i];
    if (argument.direction == Direction::in) continue;
    for (const Word word : arguments.values(i)) words.push_back(comparable(word, argument.kind));
  }
  return words;
}

std::vector<std::string> faults(const Arguments& arguments) {
  std::vector<std::string> found = arguments.damage();
  const Values after = values_after(arguments);
  for (std::size_t i = 0; i < arguments.routine().arguments.size(); ++i) {
    const Argument& argument = arguments.routine().arguments[i];
    if (argument.direction == Direction::in) continue;
    const std::string name = argument.name;
    const Written written = entries_written(argument, after);
    const std::span<const Word> values = arguments.values(i);
    for (std::size_t k = 0; k < values.size(); ++k) {
      const auto entry = static_cast<std::int64_t>(k);
      if (entry < written.at_least && values[k] == poison)
        found.push_back(name + " is not written");
      if (entry >= written.at_most && values[k] != arguments.before(i, k))
        found.push_back(name + " is written, although " + argument.kept);
    }
  }
  return found;
}

Entry entry_of(const Library& library, const Routine& routine) {
  if (const Entry entry = library.find(routine.name)) return entry;
  throw LibraryError(std::string("the library has no routine ") + routine.name);
}

std::string row_text(const Routine& routine, const Values& values) {
  std::string text = routine.name;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Argument& argument = routine.arguments[i];
    if (argument.direction == Direction::out) continue;
    if (argument.extent) text += " [";
    for (const Word word : values[i]) text.append(" ").append(hexadecimal(word));
    if (argument.extent) text += " ]";
  }
  return text;
}

}  // namespace kezcall
