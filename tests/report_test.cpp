// The region report as a host finds it, byte for byte. Runs in a directory without a report.
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#if defined(__linux__)
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <latch>
#include <thread>
#endif

#include "kezlib.h"

namespace {

namespace fs = std::filesystem;

const fs::path report = fs::absolute("OUTPUT.TXT");
const std::u16string line_end = fs::path::preferred_separator == '/' ? u"\n" : u"\r\n";
std::string expected;  // in the report by now
std::atomic<int> failures = 0;

void expect(bool holds, const char* what) {
  if (!holds && ++failures) std::fprintf(stderr, "failed: %s\n", what);
}

void expect_report(const char* what) {
  std::ifstream stream(report, std::ios::binary);
  expect(std::string(std::istreambuf_iterator<char>(stream), {}) == expected, what);
}

// A circle about (x, y), the line b y + c = 0 and what comes of them.
struct Case {
  float x, y, radius, b, c;
  char16_t k;
  std::u16string third;

  // Greek capitals stand in Windows-1253 in the order of Unicode.
  std::string records() const {
    std::string bytes;
    for (const char16_t letter :
         u" ΚΥΚΛΟΣ;" + line_end + u" KC; " + k + line_end + u" " + third + line_end)
      bytes += static_cast<char>(letter < 0x80 ? letter : letter - 0x2d0);
    return bytes;
  }

  std::string call() const {
    const float X[] = {x, x}, Y[] = {y, y + radius}, a = 0;
    float x2, y2, x3, y3;
    std::int32_t found = 0;
    kezcin(X, Y, &a, &b, &c, &found, &x2, &y2, &x3, &y3);
    expect(found == k - u'0', "a result, whatever becomes of the report");
    return records();
  }
};

const Case missed_above{0, 1, 1, 1, -5, u'1', u"ΚΥΚΛΟΣ ΣΤΗ ΘΕΤΙΚΗ ΠΕΡΙΟΧΗ"};
const Case missed_below{0, -1, 1, 1, -5, u'2', u"ΚΥΚΛΟΣ ΣΤΗΝ ΑΡΝΗΤΙΚΗ ΠΕΡΙΟΧΗ"};
// Where it cuts at y = 1/3, x is sqrt(288) / 18; the digits are those of the nearest reals.
const std::u16string segment = u"ΤΜΗΜΑ ΚΥΚΛΟΥ Φ ΣΤΗ ΘΕΤΙΚΗ ΠΕΡΙΟΧΗ;";
const std::u16string complement = u"ΤΜΗΜΑ ΚΥΚΛΟΥ 2Π-Φ ΣΤΗ ΘΕΤΙΚΗ ΠΕΡΙΟΧΗ;";
const std::u16string halves = u"x2; 1.5 ;y2; -1.5 ;x3; -2.5 ;y3; -1.5";
const std::u16string thirds =
    u"x2; 0.942808986 ;y2; 0.333333343 ;x3; -0.942808986 ;y3; 0.333333343";
const Case cut_below{-0.5f, -1.5f, 2, 2, 3, u'3', segment + halves};
const Case cut_on_axis{0, 0, 1, 3, -1, u'4', complement + thirds};

#if defined(__linux__)

void a_fifo_is_left_alone() {
  mkfifo(report.c_str(), 0666);
  missed_above.call();  // must not wait for a reader
  const int reader = open(report.c_str(), O_RDONLY | O_NONBLOCK);
  missed_above.call();
  char byte;
  expect(read(reader, &byte, 1) == 0, "nothing in a FIFO");
  close(reader);
  fs::remove(report);
}

void call_from_threads() {
  std::latch start(4);
  const auto often = [&] {
    start.arrive_and_wait();
    for (int i = 0; i < 250; ++i) missed_above.call();
  };
  std::thread first(often), second(often), third(often), fourth(often);
  for (std::thread* thread : {&first, &second, &third, &fourth}) thread->join();
}

// Where the report cannot be opened, nothing else is written: least of all the host's first file.
void a_closed_input_stays_empty() {
  const char* const input = "elsewhere/input.txt";
  const int saved = dup(STDIN_FILENO);
  close(STDIN_FILENO);
  expect(open(input, O_RDWR | O_CREAT | O_TRUNC, 0600) == STDIN_FILENO, "a file for the input");
  fs::create_directory(report);
  missed_above.call();
  fs::remove(report);
  expect(fs::file_size(input) == 0, "a report that cannot be opened goes nowhere");
  dup2(saved, STDIN_FILENO);
  close(saved);
}

// Threads that race for the first call may lose records, but tear none.
void threads_mix_whole_records() {
  fs::remove("elsewhere/linked.txt");
  fs::create_symlink("elsewhere/linked.txt", report);
  std::ofstream(report) << std::string(1000, '?');
  call_from_threads();
  while (expected.empty() || expected.size() < fs::file_size(report))
    expected += missed_above.records();
  for (int i = 0; i < 1000; ++i) expected += missed_above.records();
  call_from_threads();
  expect_report("whole records, and all but those of the race");
  expect(fs::is_symlink(report), "a link is followed");
  expect(std::system("test $(ls -l /proc/$PPID/fd | grep -c linked.txt) = 1") == 0, "one is open");
  expect(std::system("! ls -l /proc/self/fd | grep linked.txt") == 0, "none in a child process");
}

// A daemon closes what it does not know, and the next file that it opens takes the number.
void a_closed_descriptor_is_opened_again() {
  for (int file = 3; file < 20; ++file) close(file);
  const int own = open("own.txt", O_RDWR | O_CREAT | O_TRUNC, 0600);
  expect(write(own, "nine byte", 9) == 9, "a file of the host's");
  for (const Case& one : {cut_on_axis, missed_above}) expected += one.call();
  expect(fs::file_size("own.txt") == 9, "the host's file keeps its bytes");
  expect(fcntl(own, F_GETFD) != -1, "and stays open");
  close(own);
  expect_report("records before and after the descriptor was closed");
}

void standard_streams_stay_the_hosts() {
  const int saved = dup(STDIN_FILENO);
  for (int file = 3; file < 20; ++file)
    if (file != saved) close(file);
  close(STDIN_FILENO);
  expected += missed_below.call();
  expect(fcntl(STDIN_FILENO, F_GETFD) == -1, "a closed input's number is left to the host");
  dup2(saved, STDIN_FILENO);
  close(saved);
  expect_report("the records, above the standard streams");
}

void a_full_disk_changes_no_result() {
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit full = {expected.size() + 10, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  expected += missed_above.call().substr(0, 10);
  cut_below.call();
  setrlimit(RLIMIT_FSIZE, &limit);
  expected += missed_below.call();
  expect_report("what had room, and the records of later calls");
}

#endif

}  // namespace

int main() {
  expect(!fs::exists(report), "loading the library leaves the file system alone");
  fs::create_directory(report);
  errno = 77;
  missed_above.call();
  expect(errno == 77, "the host's error code, when the report cannot be opened");
  fs::remove(report);

#if defined(__linux__)
  a_closed_input_stays_empty();
  a_fifo_is_left_alone();
  threads_mix_whole_records();
#else
  std::ofstream(report) << std::string(1000, '?');
  expected = missed_above.call();
#endif

  fs::current_path("elsewhere");
  for (const Case& one : {cut_below, missed_below, cut_on_axis}) expected += one.call();
  expect_report("the records of each case");
  expect(!fs::exists("OUTPUT.TXT"), "one report, where the first call was made");

#if defined(__linux__)
  a_closed_descriptor_is_opened_again();
  standard_streams_stay_the_hosts();
  a_full_disk_changes_no_result();
#endif
  return failures == 0 ? 0 : 1;
}
