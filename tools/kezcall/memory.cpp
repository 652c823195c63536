#include "memory.h"

#include <algorithm>
#include <cstring>
#include <new>

#ifndef _WIN32
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace kezcall {
namespace {

using Block = std::shared_ptr<void>;

Block unaligned_copy(std::span<const Word> values) {
  char* const bytes = new char[values.size_bytes() + 1];
  const Block block(bytes + 1, [](void* begin) { delete[](static_cast<char*>(begin) - 1); });
  std::memcpy(block.get(), values.data(), values.size_bytes());
  return block;
}

#ifdef _WIN32

Block copy_at_page_end(std::span<const Word>, bool) {
  throw std::bad_alloc();  // memory_called() does not know it here
}

#else

Block copy_at_page_end(std::span<const Word> values, bool only_read) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const std::size_t usable = (values.size_bytes() + page - 1) / page * page;
  void* const mapped =
      mmap(nullptr, usable + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapped == MAP_FAILED) throw std::bad_alloc();
  char* const end = static_cast<char*>(mapped) + usable;
  const Block block(end - values.size_bytes(), [=](void*) { munmap(mapped, usable + page); });
  std::memcpy(block.get(), values.data(), values.size_bytes());
  const int use = only_read ? PROT_READ : PROT_READ | PROT_WRITE;
  const bool any = usable != 0;  // not every system protects nothing without complaint
  if ((any && mprotect(mapped, usable, use) != 0) || mprotect(end, page, PROT_NONE) != 0)
    throw std::bad_alloc();
  return block;
}

#endif

}  // namespace

std::optional<Memory> memory_called(std::string_view name) {
  if (name == "ordinary") return Memory::ordinary;
  if (name == "unaligned") return Memory::unaligned;
#ifndef _WIN32
  if (name == "page-end") return Memory::page_end;
#endif
  return std::nullopt;
}

Placed::Placed(const Arguments& arguments, Memory memory) {
  const auto& described = arguments.routine().arguments;
  const auto is_written = [&](const Word* variable) {
    for (std::size_t k = 0; k < described.size(); ++k)
      if (described[k].direction != Direction::in && arguments.values(k).data() == variable)
        return true;
    return false;
  };
  for (std::size_t i = 0; i < described.size(); ++i) {
    const std::span<Word> own = arguments.values(i);
    const auto same =
        std::ranges::find(places_, own.data(), [](const Place& p) { return p.own.data(); });
    const Block block = same != places_.end() ? same->block
                        : memory == Memory::page_end
                            ? copy_at_page_end(own, !is_written(own.data()))
                        : memory == Memory::unaligned ? unaligned_copy(own)
                                                      : Block(own.data(), [](void*) {});
    places_.push_back({own, block});
  }
}

Placed::~Placed() {
  for (const Place& place : places_)
    if (place.block.get() != place.own.data())
      std::memcpy(place.own.data(), place.block.get(), place.own.size_bytes());
}

}  // namespace kezcall
