#include "call.h"

#include <algorithm>
#include <bit>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define KEZCALL_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KEZCALL_ADDRESS_SANITIZER
#endif
#endif

#ifdef KEZCALL_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) (static_cast<void>(address))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) (static_cast<void>(address))
#endif

namespace kezcall {
namespace {

// Not the poison, so that a run of poison copied too far shows; a not-a-number, so that a result
// made from an entry behind the array shows.
constexpr Word guard = 0x7f969696;

// 136 bytes: the values are aligned to 8 bytes, but not to 16 wherever the heap's blocks are, so
// that a routine which counts on more than its caller promises faults here.
constexpr std::size_t guard_words = 34;

bool intact(const Word* zone) {
  ASAN_UNPOISON_MEMORY_REGION(zone, guard_words * sizeof(Word));
  const bool all = std::all_of(zone, zone + guard_words, [](Word w) { return w == guard; });
  ASAN_POISON_MEMORY_REGION(zone, guard_words * sizeof(Word));
  return all;
}

}  // namespace

std::vector<std::int64_t> extents(const Routine& routine, const Values& given) {
  std::vector<std::int64_t> result;
  for (const Argument& argument : routine.arguments)
    result.push_back(argument.extent ? std::max<std::int64_t>(argument.extent(Integers(given)), 0)
                                     : 1);
  return result;
}

Buffer::Buffer(std::size_t size) : size_(size), block_(new Word[size + 2 * guard_words]) {
  std::fill_n(block_.get(), guard_words, guard);
  std::fill_n(block_.get() + guard_words, size_, poison);
  std::fill_n(block_.get() + guard_words + size_, guard_words, guard);
  ASAN_POISON_MEMORY_REGION(block_.get(), guard_words * sizeof(Word));
  ASAN_POISON_MEMORY_REGION(block_.get() + guard_words + size_, guard_words * sizeof(Word));
}

Buffer::~Buffer() {
  if (block_) ASAN_UNPOISON_MEMORY_REGION(block_.get(), (size_ + 2 * guard_words) * sizeof(Word));
}

std::span<Word> Buffer::values() const {
  return {block_.get() + guard_words, size_};
}

bool Buffer::intact_before() const {
  return intact(block_.get());
}

bool Buffer::intact_behind() const {
  return intact(block_.get() + guard_words + size_);
}

Arguments::Arguments(const Routine& routine, Values given)
    : routine_(&routine), given_(std::move(given)) {
  const std::vector<std::int64_t> wanted = extents(routine, given_);
  buffers_.reserve(wanted.size());
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    place_.push_back(i);
    buffers_.emplace_back(std::max(static_cast<std::size_t>(wanted[i]), given_[i].size()));
    std::ranges::copy(given_[i], buffers_[i].values().begin());
  }
}

Word Arguments::before(std::size_t argument, std::size_t entry) const {
  return entry < given_[argument].size() ? given_[argument][entry] : poison;
}

bool Arguments::changed(std::size_t argument) const {
  const std::span<const Word> now = values(argument);
  for (std::size_t i = 0; i < now.size(); ++i)
    if (now[i] != before(argument, i)) return true;
  return false;
}

bool Arguments::is_shared(std::size_t argument) const {
  return std::ranges::count(place_, place_[argument]) > 1;
}

std::vector<std::string> Arguments::damage() const {
  std::vector<std::string> found;
  for (std::size_t i = 0; i < buffers_.size(); ++i) {
    const Argument& argument = routine_->arguments[i];
    const std::string name = argument.name;
    if (!buffers_[i].intact_before()) found.push_back("memory in front of " + name + " written");
    if (!buffers_[i].intact_behind()) found.push_back("memory behind " + name + " written");
    if (argument.direction == Direction::in && !is_shared(i) && changed(i))
      found.push_back(name + " changed, although it is only read");
  }
  return found;
}

}  // namespace kezcall
