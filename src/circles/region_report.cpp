#include "region_report.h"

#include <fcntl.h>
#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

#include <algorithm>
#include <array>
#include <cstdio>

#include "../frame/numbers.h"

namespace kez {
namespace {

// The platform's line ends, and nothing for child processes to inherit. A FIFO that nobody reads
// must fail to open rather than wait.
#if defined(_WIN32)
constexpr int mode = O_WRONLY | O_CREAT | O_APPEND | O_TEXT | O_NOINHERIT;
#else
constexpr int mode = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
static_assert(sizeof(off_t) == 8, "a report may grow past 2 GiB");
#endif

// Empties the file. Nothing but a regular one has a length that can be set, and what else there is
// may make the host wait. (fstat would say so too, but needs a C library of 2021.)
bool empty(int file) noexcept {
#if defined(_WIN32)
  return ::_chsize(file, 0) == 0;
#else
  return ::ftruncate(file, 0) == 0;
#endif
}

// Where records of before are to stay: at least no pipe or terminal, which have no position.
bool has_position(int file) noexcept {
  return ::lseek(file, 0, SEEK_END) >= 0;
}

// Greek in Windows-1253, one byte a letter, as escapes that no editor's encoding can damage.
constexpr const char* circle = "\xCA\xD5\xCA\xCB\xCF\xD3;";

// By the number of the region, from 1.
constexpr std::array words = {
    "\xCA\xD5\xCA\xCB\xCF\xD3 \xD3\xD4\xC7 \xC8\xC5\xD4\xC9\xCA\xC7 \xD0\xC5\xD1\xC9\xCF\xD7\xC7",
    "\xCA\xD5\xCA\xCB\xCF\xD3 \xD3\xD4\xC7\xCD \xC1\xD1\xCD\xC7\xD4\xC9\xCA\xC7 "
    "\xD0\xC5\xD1\xC9\xCF\xD7\xC7",
    "\xD4\xCC\xC7\xCC\xC1 \xCA\xD5\xCA\xCB\xCF\xD5 \xD6 \xD3\xD4\xC7 "
    "\xC8\xC5\xD4\xC9\xCA\xC7 \xD0\xC5\xD1\xC9\xCF\xD7\xC7;",
    "\xD4\xCC\xC7\xCC\xC1 \xCA\xD5\xCA\xCB\xCF\xD5 2\xD0-\xD6 \xD3\xD4\xC7 "
    "\xC8\xC5\xD4\xC9\xCA\xC7 \xD0\xC5\xD1\xC9\xCF\xD7\xC7;",
};

}  // namespace

// Three records as hosts' report readers expect them: each begins with one blank, texts follow each
// other without a gap, numbers have a blank on either side.
void RegionReport::add(const RegionFinding& finding) noexcept {
  const int file = open();
  if (file == none) return;
  const auto& [count, first, second] = finding.crossings;
  std::array<char, 96> cuts{};
  if (count == 2) {
    // Nine digits read back to the same value. A host's locale may have another decimal point.
    std::snprintf(cuts.data(), cuts.size(), "x2; %.9g ;y2; %.9g ;x3; %.9g ;y3; %.9g",
                  static_cast<double>(first.x), static_cast<double>(first.y),
                  static_cast<double>(second.x), static_cast<double>(second.y));
    std::replace(cuts.begin(), cuts.end(), ',', '.');
  }
  const std::int32_t k = code_of(finding.region);
  std::array<char, 192> records;
  const int size = std::snprintf(records.data(), records.size(), " %s\n KC; %d\n %s%s\n", circle, k,
                                 words[static_cast<std::size_t>(k) - 1], cuts.data());
  // In one piece, so that those of two threads are not torn.
  [[maybe_unused]] const auto written = ::write(file, records.data(), static_cast<unsigned>(size));
}

int RegionReport::open() noexcept {
  int file = file_;
  if (file != none) return file;
  const int opened = ::open("OUTPUT.TXT", mode, 0666);
  if (opened == none) return none;
  const bool usable = begun_ ? has_position(opened) : empty(opened);
  // Another thread may have been faster.
  if (!usable || !file_.compare_exchange_strong(file, opened)) {
    ::close(opened);
    return file;
  }
  begun_ = true;
  return opened;
}

void RegionReport::close() noexcept {
  const int file = file_.exchange(none);
  if (file != none) ::close(file);
}

}  // namespace kez
