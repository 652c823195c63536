#include "region_report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "../frame/points.h"

namespace kez {

RegionFinding find_region(Vec2 centre, Vec2 p, Line line) noexcept {
  const Crossings crossings =
      intersect_line_circle(line, circle_about(centre, distance(centre, p)));
  // A centre on the axis counts as negative where the line misses and as positive where it cuts.
  if (crossings.count == 2) {
    return {centre.y < 0 ? Region::segment_in_positive : Region::complement_in_positive, crossings};
  }
  return {centre.y > 0 ? Region::circle_in_positive : Region::circle_in_negative, crossings};
}

namespace {

// Greek in Windows-1253, one byte a letter, as escapes that no editor's encoding can damage.
constexpr std::string_view circle = "\xCA\xD5\xCA\xCB\xCF\xD3;";

constexpr std::string_view words_for(Region region) noexcept {
  switch (region) {
    case Region::circle_in_positive:
      return "\xCA\xD5\xCA\xCB\xCF\xD3 \xD3\xD4\xC7 "
             "\xC8\xC5\xD4\xC9\xCA\xC7 \xD0\xC5\xD1\xC9\xCF\xD7\xC7";
    case Region::circle_in_negative:
      return "\xCA\xD5\xCA\xCB\xCF\xD3 \xD3\xD4\xC7\xCD "
             "\xC1\xD1\xCD\xC7\xD4\xC9\xCA\xC7 \xD0\xC5\xD1\xC9\xCF\xD7\xC7";
    case Region::segment_in_positive:
      return "\xD4\xCC\xC7\xCC\xC1 \xCA\xD5\xCA\xCB\xCF\xD5 \xD6 \xD3\xD4\xC7 "
             "\xC8\xC5\xD4\xC9\xCA\xC7 \xD0\xC5\xD1\xC9\xCF\xD7\xC7;";
    case Region::complement_in_positive:
      return "\xD4\xCC\xC7\xCC\xC1 \xCA\xD5\xCA\xCB\xCF\xD5 2\xD0-\xD6 \xD3\xD4\xC7 "
             "\xC8\xC5\xD4\xC9\xCA\xC7 \xD0\xC5\xD1\xC9\xCF\xD7\xC7;";
  }
  return {};
}

}  // namespace

// Three records as hosts' report readers expect them: each begins with one blank, texts follow each
// other without a gap, numbers have a blank on either side.
Records::Records(const RegionFinding& finding) noexcept {
  put(" ");
  put(circle);
  put("\n KC; ");
  const char k = static_cast<char>('0' + static_cast<int>(finding.region));
  put({&k, 1});
  put("\n ");
  put(words_for(finding.region));
  if (finding.crossings.count == 2) {
    const Vec2 first = finding.crossings.first, second = finding.crossings.second;
    put("x2; ", first.x);
    put(" ;y2; ", first.y);
    put(" ;x3; ", second.x);
    put(" ;y3; ", second.y);
  }
  put("\n");
}

void Records::put(std::string_view text) noexcept {
  end_ += text.copy(text_.data() + end_, text_.size() - end_);
}

void Records::put(std::string_view label, float value) noexcept {
  put(label);
  // Nine digits read back to the same value. A host's locale may have another decimal point.
  std::array<char, 24> digits;
  const int size = std::snprintf(digits.data(), digits.size(), "%.9g", static_cast<double>(value));
  std::replace(digits.data(), digits.data() + size, ',', '.');
  put({digits.data(), static_cast<std::size_t>(size)});
}

bool Records::write(std::FILE* file) noexcept {
  written_ += std::fwrite(text_.data() + written_, 1, end_ - written_, file);
  std::clearerr(file);
  return written_ == end_;
}

std::FILE* RegionReport::open() noexcept {
  if (!file_) {
    // Text mode, for the platform's line ends. Closed and needed again, it goes on where it ended.
    file_ = std::fopen("OUTPUT.TXT", begun_ ? "a" : "w");
    if (!file_) return nullptr;
    begun_ = true;
    // A host that dies loses nothing, and it is known what could not be written.
    std::setvbuf(file_, nullptr, _IONBF, 0);
  }
  return file_;
}

void RegionReport::add(const RegionFinding& finding) noexcept {
  std::FILE* const file = open();
  if (!file || !waiting_.write(file)) return;
  waiting_ = Records(finding);
  waiting_.write(file);
}

void RegionReport::close() noexcept {
  if (file_) std::fclose(file_);
  file_ = nullptr;
}

}  // namespace kez
