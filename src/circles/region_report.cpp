#include "region_report.h"

#include <fcntl.h>
#include <sys/stat.h>
#if defined(_WIN32)
#include <direct.h>
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif
#if defined(__linux__)
#include <sys/syscall.h>
#endif

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>

#include "../frame/numbers.h"

namespace kez {
namespace {

constexpr const char* report_name = "OUTPUT.TXT";

// The platform's line ends, and nothing for child processes to inherit. A FIFO that nobody reads
// must fail to open rather than wait.
#if defined(_WIN32)
constexpr int mode = O_WRONLY | O_CREAT | O_APPEND | O_TEXT | O_NOINHERIT;
#else
constexpr int mode = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
static_assert(sizeof(off_t) == 8, "a report may grow past 2 GiB");
#endif

#if defined(_WIN32)

// The host's error codes, which a report must not change.
class HostErrors {
 public:
  ~HostErrors() {
    errno = number_;
    ::SetLastError(last_);
  }

 private:
  int number_ = errno;
  DWORD last_ = ::GetLastError();
};

// The regular file that a descriptor leads to; none if it is closed or something else.
std::optional<FileIdentity> regular_file(int file) {
  const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(file));
  BY_HANDLE_FILE_INFORMATION found;
  if (::GetFileType(handle) != FILE_TYPE_DISK || !::GetFileInformationByHandle(handle, &found))
    return {};
  return FileIdentity{found.dwVolumeSerialNumber,
                      std::uint64_t{found.nFileIndexHigh} << 32 | found.nFileIndexLow};
}

bool empty(int file) {
  return ::_chsize(file, 0) == 0;
}

bool find_directory(char* path, std::size_t room) {
  return ::_getcwd(path, static_cast<int>(room)) != nullptr;
}

#else

class HostErrors {
 public:
  ~HostErrors() { errno = number_; }

 private:
  int number_ = errno;
};

// On Linux the C library's own fstat needs one of 2021; the system call behind it is as old as the
// structure, except that 32-bit systems have another one for 64-bit lengths.
int status_of(int file, struct stat& status) {
#if defined(SYS_fstat64)
  return static_cast<int>(::syscall(SYS_fstat64, file, &status));
#elif defined(SYS_fstat)
  return static_cast<int>(::syscall(SYS_fstat, file, &status));
#else
  return ::fstat(file, &status);
#endif
}

// The regular file that a descriptor leads to; none if it is closed or something else.
std::optional<FileIdentity> regular_file(int file) {
  struct stat status;
  if (status_of(file, status) != 0 || !S_ISREG(status.st_mode)) return {};
  return FileIdentity{status.st_dev, status.st_ino};
}

bool empty(int file) {
  return ::ftruncate(file, 0) == 0;
}

bool find_directory(char* path, std::size_t room) {
  return ::getcwd(path, room) != nullptr;
}

#endif

// A number below 3 belongs to the host's standard streams, even while they are closed.
int open_above_standard_streams(const char* path) {
  const int file = ::open(path, mode, 0666);
  if (file < 0 || file > 2) return file;
  const int next = open_above_standard_streams(path);
  ::close(file);
  return next;
}

// Greek in Windows-1253, one byte a letter, as escapes that no editor's encoding can damage. In
// English: "circle;".
constexpr const char* circle = "\xCA\xD5\xCA\xCB\xCF\xD3;";

// By the number of the region, from 1: "circle in the positive region", "circle in the negative
// region", "segment phi of the circle in the positive region;", "segment 2 pi - phi of the circle
// in the positive region;".
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
void RegionReport::add(const RegionFinding& finding) {
  const HostErrors unchanged;
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

int RegionReport::open() {
  if (is_open()) return file_;
  // One thread opens; the records of others are lost until it has.
  if (opening_.test_and_set()) return none;
  if (!is_open()) reopen();
  opening_.clear();
  return file_;
}

// A host may have closed the descriptor, and its number may lead to a file of the host's by now.
bool RegionReport::is_open() const {
  const int file = file_;
  return file != none && regular_file(file) == FileIdentity{device_, number_};
}

void RegionReport::reopen() {
  file_ = none;
  if (!begun_) find_path();
  const int opened = open_above_standard_streams(path_.data());
  if (opened < 0) return;
  const auto found = regular_file(opened);
  if (!found || (!begun_ && !empty(opened))) {
    ::close(opened);
    return;
  }
  begun_ = true;
  device_ = found->device;
  number_ = found->number;
  file_ = opened;
}

// The report's name in the current directory; alone if the directory has a longer path.
void RegionReport::find_path() {
  path_ = {};
  const std::size_t room = path_.size() - std::strlen(report_name) - 2;
  if (find_directory(path_.data(), room))
    path_[std::strlen(path_.data())] = '/';
  else
    path_ = {};
  std::strcat(path_.data(), report_name);
}

void RegionReport::close() {
  const HostErrors unchanged;
  if (is_open()) ::close(file_);
  file_ = none;
}

}  // namespace kez
