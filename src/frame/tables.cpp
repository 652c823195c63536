#include "tables.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

#include "four.h"
#include "numbers.h"
#include "tolerance.h"

namespace kez {

namespace {

// Whether the stride at an entry may be asked at once: beyond the entry that a search finds there
// must be none that raises an exception, as not-a-number does in comparisons, and large values in
// differences. Below 2^102 no difference from a finite value overflows.
bool is_moderate(const float* first) {
  constexpr auto limit = std::bit_cast<std::int32_t>(0x1p102f);
  return !any_of_stride(
      0, [first](std::size_t j) { return magnitudes(four_from(first + j)) >= limit; });
}

// The first interval whose ends pass, with four of them at once as one by one.
template <typename Begins, typename Ends>
std::int32_t first_interval(std::span<const float> x, Begins begins, Ends ends) {
  std::int32_t position = 0;
  const auto pass = [=](std::size_t j) {
    return begins(four_from(&x[j])) & ends(four_from(&x[j + 1]));
  };
  visit_until(
      std::max<std::size_t>(x.size(), 1) - 1,
      [=](std::size_t i) { return is_moderate(&x[i + 1]) && !any_of_stride(i, pass); },
      [&](std::size_t i) {
        if (begins(x[i]) && ends(x[i + 1])) position = position_of(i);
        return position != 0;
      });
  return position;
}

}  // namespace

std::int32_t find_interval(std::span<const float> x, float v) {
  return first_interval(
      x, [v](auto p) { return p <= v; }, [v](auto q) { return v < q; });
}

Place find_place(std::span<const float> x, float v) {
  std::int32_t position = 0;
  const auto is_equal = [=](std::size_t j) {
    return magnitudes(four_from(&x[j]) - v) <= std::bit_cast<std::int32_t>(tolerance);
  };
  visit_until(
      x.size(), [=](std::size_t i) { return is_moderate(&x[i]) && !any_of_stride(i, is_equal); },
      [&](std::size_t i) {
        if (equal(x[i], v)) position = position_of(i);
        return position != 0;
      });
  if (position != 0) return {Match::entry, position};
  position = first_interval(
      x, [v](auto p) { return p < v; }, [v](auto q) { return v < q; });
  return {position != 0 ? Match::interval : Match::none, position};
}

void reverse(std::span<RawWord> x) {
  std::reverse(x.begin(), x.end());
}

std::int32_t select(std::span<const std::int32_t> table, std::int32_t v,
                    std::span<std::int32_t> positions) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (table[i] == v) positions[count++] = position_of(i);
  }
  return static_cast<std::int32_t>(count);
}

std::optional<RangeEntries> find_range(std::span<const float> x, float low, float high,
                                       std::span<std::int32_t> positions) {
  std::size_t count = 0, first = 0, last = 0;
  // Every entry is compared with the lower end, and with the upper only if it passes: that must not
  // be not-a-number. Asking so by its bits raises no exception even if it is a signalling one.
  const bool has_end = (std::bit_cast<std::uint32_t>(high) << 1) <= 0xff000000;
  const auto within = [=](std::size_t j) {
    const Four<float> four = four_from(&x[j]);
    return (low <= four) & (four <= high);
  };
  visit_until(
      x.size(), [=](std::size_t i) { return has_end && !any_of_stride(i, within); },
      [&](std::size_t i) {
        if (!(low <= x[i] && x[i] <= high)) return false;
        if (count == 0) first = i;
        last = i;
        positions[count++] = position_of(i);
        return false;
      });
  if (count > 0) {
    return RangeEntries{static_cast<std::int32_t>(count), std::fabs(x[first] - low),
                        std::fabs(high - x[last])};
  }

  std::optional<RangeEntries> enclosing;
  const auto enclose = [=](std::size_t j) {
    const Four<float> next = four_from(&x[j + 1]);
    return (low > four_from(&x[j])) & (next > low) & (next > high);
  };
  visit_until(
      std::max<std::size_t>(x.size(), 1) - 1,
      [=](std::size_t i) { return has_end && !any_of_stride(i, enclose); },
      [&](std::size_t i) {
        if (!(low > x[i] && x[i + 1] > low && x[i + 1] > high)) return false;
        positions[0] = position_of(i);
        positions[1] = positions[0] + 1;
        enclosing = {2, 0, 0};
        return false;
      });
  return enclosing;
}

std::optional<Block> last_block(std::span<const std::int32_t> counts) {
  if (counts.empty()) return std::nullopt;
  std::uint32_t sum = 0;  // Deliberate: it wraps (kezadr).
  for (const std::int32_t count : counts.first(counts.size() - 1)) {
    sum += static_cast<std::uint32_t>(count);
  }
  const Block block = {static_cast<std::int32_t>(sum), counts.back()};
  // The block must not end beyond any array that the counts can describe.
  const auto room = std::numeric_limits<std::int32_t>::max() - std::max(block.offset, 0);
  if (block.count < 1 || block.offset < 0 || block.count > room) return std::nullopt;
  return block;
}

}  // namespace kez
