// The region report as a host finds it, byte for byte. Runs in a directory without a report.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#if defined(__unix__)
#include <sys/resource.h>

#include <csignal>
#endif

#include "kezlib.h"

namespace {

namespace fs = std::filesystem;

int failures = 0;

void expect(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "failed: %s\n", what);
  ++failures;
}

// Greek capitals stand in Windows-1253 in the order of Unicode.
std::string windows_1253(const std::u16string& text) {
  std::string bytes;
  for (const char16_t c : text) bytes += static_cast<char>(c < 0x80 ? c : c - 0x2d0);
  return bytes;
}

#if defined(_WIN32)
constexpr const char* line_end = "\r\n";
#else
constexpr const char* line_end = "\n";
#endif

std::string records(char16_t k, const std::u16string& third) {
  std::string bytes;
  for (const std::u16string& text :
       {std::u16string(u"ΚΥΚΛΟΣ;"), u"KC; " + std::u16string(1, k), third})
    bytes.append(" ").append(windows_1253(text)).append(line_end);
  return bytes;
}

std::string bytes_of(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

struct Cut {
  std::int32_t k;
  float x2, y2, x3, y3;
};

Cut cut(float x, float y, float radius, float a, float b, float c) {
  const float X[] = {x, x}, Y[] = {y, y + radius};
  Cut result = {-7, -7, -7, -7, -7};
  kezcin(X, Y, &a, &b, &c, &result.k, &result.x2, &result.y2, &result.x3, &result.y3);
  return result;
}

const fs::path report = fs::absolute("OUTPUT.TXT");
const std::string missed_above = records(u'1', u"ΚΥΚΛΟΣ ΣΤΗ ΘΕΤΙΚΗ ΠΕΡΙΟΧΗ");
const std::string missed_below = records(u'2', u"ΚΥΚΛΟΣ ΣΤΗΝ ΑΡΝΗΤΙΚΗ ΠΕΡΙΟΧΗ");
const std::string cut_below =
    records(u'3', u"ΤΜΗΜΑ ΚΥΚΛΟΥ Φ ΣΤΗ ΘΕΤΙΚΗ ΠΕΡΙΟΧΗ;x2; 1.5 ;y2; -1.5 ;x3; -2.5 ;y3; -1.5");

void a_directory_in_its_place_changes_nothing() {
  expect(!fs::exists(report), "loading the library leaves the file system alone");
  fs::create_directory(report);
  const Cut missed = cut(0, 1, 1, 0, 1, -5);
  expect(missed.k == 1 && missed.x2 == -7 && missed.y3 == -7, "results without a report");
  fs::remove(report);
}

void the_first_call_that_can_write_replaces_the_file() {
  std::ofstream(report) << std::string(1000, '?');
  cut(0, 1, 1, 0, 1, -5);
  expect(bytes_of(report) == missed_above, "a report of one call");
}

void the_file_stays_open_and_complete() {
  fs::current_path("elsewhere");
  cut(-0.5f, -1.5f, 2, 0, 2, 3);
  expect(bytes_of(report) == missed_above + cut_below, "a report of two calls");
  expect(!fs::exists("OUTPUT.TXT"), "one report, where the first call was made");
}

void a_full_disk_tears_no_record() {
#if defined(__unix__)
  const std::string before = bytes_of(report);
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit full = {before.size() + 60, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  expect(cut(-0.5f, -1.5f, 2, 0, 2, 3).k == 3, "a result on a full disk");
  expect(cut(0, 1, 1, 0, 1, -5).k == 1, "a result while records wait");
  expect(bytes_of(report).size() == before.size() + 60, "a report that ends within a record");
  setrlimit(RLIMIT_FSIZE, &limit);
  cut(0, -1, 1, 0, 1, -5);
  expect(bytes_of(report) == before + cut_below + missed_below,
         "a report that goes on where it was torn");
#endif
}

void numbers_read_back_to_the_same_values() {
  const std::size_t before = bytes_of(report).size();
  const Cut found = cut(0.1f, 1e-7f, 1e4f / 3, 0.7f, -0.3f, 1e3f / 7);
  const std::string added = bytes_of(report).substr(before);
  const std::string text = windows_1253(u" ΤΜΗΜΑ ΚΥΚΛΟΥ 2Π-Φ ΣΤΗ ΘΕΤΙΚΗ ΠΕΡΙΟΧΗ;x2; ");
  const std::size_t place = added.find(text);
  expect(found.k == 4 && place != std::string::npos, "the record of a cut circle");
  if (place == std::string::npos) return;

  Cut read{};
  const char* const numbers = added.c_str() + place + text.size();
  const int count =
      std::sscanf(numbers, "%f ;y2; %f ;x3; %f ;y3; %f", &read.x2, &read.y2, &read.x3, &read.y3);
  expect(count == 4 && read.x2 == found.x2 && read.y2 == found.y2 && read.x3 == found.x3 &&
             read.y3 == found.y3,
         "numbers that read back");
}

}  // namespace

int main() {
  a_directory_in_its_place_changes_nothing();
  the_first_call_that_can_write_replaces_the_file();
  the_file_stays_open_and_complete();
  a_full_disk_tears_no_record();
  numbers_read_back_to_the_same_values();
  return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
