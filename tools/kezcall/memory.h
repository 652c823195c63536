// Memory that shows what a routine does beside its arguments while it runs.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "call.h"

namespace kezcall {

// None for a name that is none, or that this platform has no such memory for.
std::optional<Memory> memory_called(std::string_view name);

// The arguments of one call, moved to such memory and back.
class Placed {
 public:
  // Throws std::bad_alloc.
  Placed(const Arguments& arguments, Memory memory);
  Placed(const Placed&) = delete;
  ~Placed();

  void* address(std::size_t argument) const { return places_[argument].block.get(); }

 private:
  struct Place {
    std::span<Word> own;          // where the values are before and after
    std::shared_ptr<void> block;  // of arguments that are one variable it is one
  };

  std::vector<Place> places_;
};

}  // namespace kezcall
