// The file in which a host finds the regions of circles.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "circle.h"

namespace kez {

// A file on a disk, whatever its names.
struct FileIdentity {
  std::uint64_t device;
  std::uint64_t number;
  bool operator==(const FileIdentity&) const = default;
};

// "OUTPUT.TXT" in the directory that is current at the first finding. It stays open: a host that
// changes its directory goes on in the same file. If the host has closed the descriptor, the file
// is opened again and goes on. Atomic, so that threads which do not take turns may mix or lose
// records, and nothing worse.
class RegionReport {
 public:
  // Records that cannot be written are left out without any warning.
  void add(const RegionFinding& finding);
  void close();

 private:
  int open();
  bool is_open() const;
  void reopen();
  void find_path();

  static constexpr int none = 0;  // never the report's: it is a standard stream's
  std::atomic<int> file_ = none;
  std::atomic<std::uint64_t> device_ = 0;
  std::atomic<std::uint64_t> number_ = 0;
  std::atomic<bool> begun_ = false;
  std::atomic_flag opening_;
  std::array<char, 4096> path_{};  // of whoever set opening_
};

}  // namespace kez
