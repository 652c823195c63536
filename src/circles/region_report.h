// The file in which a host finds what was said of circles.
#pragma once

#include <atomic>

#include "region.h"

namespace kez {

// "OUTPUT.TXT" in the directory that is current at the first finding. It stays open: a host that
// changes its directory goes on in the same file. Atomic, so that threads which do not take turns
// may mix or lose records, and nothing worse.
class RegionReport {
 public:
  // Records that cannot be written are left out without a word.
  void add(const RegionFinding& finding) noexcept;
  void close() noexcept;

 private:
  int open() noexcept;

  static constexpr int none = -1;
  std::atomic<int> file_ = none;
  std::atomic<bool> begun_ = false;
};

}  // namespace kez
