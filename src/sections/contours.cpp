#include "contours.h"

#include <algorithm>
#include <limits>

namespace kez {

std::optional<Block> last_block(std::span<const std::int32_t> counts) {
  if (counts.empty()) return std::nullopt;
  std::uint32_t sum = 0;  // Deliberate: it wraps (kezadr).
  for (const std::int32_t count : counts.first(counts.size() - 1)) {
    sum += static_cast<std::uint32_t>(count);
  }
  const Block block = {static_cast<std::int32_t>(sum), counts.back()};
  // Nor where the block would end behind any array that the counts can describe.
  const auto room = std::numeric_limits<std::int32_t>::max() - std::max(block.offset, 0);
  if (block.count < 1 || block.offset < 0 || block.count > room) return std::nullopt;
  return block;
}

}  // namespace kez
