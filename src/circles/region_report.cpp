#include "region_report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "../frame/points.h"

namespace kez {

RegionFinding find_region(Vec2 centre, Vec2 p, Line line) noexcept {
  const Crossings crossings = intersect(line, circle_about(centre, distance(centre, p)));
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

// Records as hosts' report readers expect them: each begins with one blank, texts follow each other
// without a gap, numbers have a blank on either side. A number reads back to the same value.
class Records {
 public:
  void begin() noexcept { put(" "); }
  void end() noexcept {
    put("\n");
    after_number_ = false;
  }

  void text(std::string_view t) noexcept {
    if (after_number_) put(" ");
    put(t);
    after_number_ = false;
  }

  void number(std::string_view digits) noexcept {
    put(" ");
    put(digits);
    after_number_ = true;
  }

  void number(float value) noexcept {
    // Nine digits read back to the same value. A host's locale may have another decimal point.
    std::array<char, 24> digits;
    const int size =
        std::snprintf(digits.data(), digits.size(), "%.9g", static_cast<double>(value));
    std::replace(digits.data(), digits.data() + size, ',', '.');
    number({digits.data(), static_cast<std::size_t>(size)});
  }

  std::string_view written() const noexcept { return {buffer_.data(), size_}; }

 private:
  void put(std::string_view t) noexcept {
    size_ += t.copy(buffer_.data() + size_, buffer_.size() - size_);
  }

  std::array<char, 256> buffer_;  // the longest three records take fewer than 200
  std::size_t size_ = 0;
  bool after_number_ = false;
};

void add_point(Records& records, std::string_view x, std::string_view y, Vec2 point) noexcept {
  records.text(x);
  records.number(point.x);
  records.text(y);
  records.number(point.y);
}

Records records_of(const RegionFinding& finding) noexcept {
  Records records;
  records.begin();
  records.text(circle);
  records.end();

  records.begin();
  records.text("KC;");
  const char k = static_cast<char>('0' + static_cast<int>(finding.region));
  records.number({&k, 1});
  records.end();

  records.begin();
  records.text(words_for(finding.region));
  if (finding.crossings.count == 2) {
    add_point(records, "x2;", ";y2;", finding.crossings.first);
    add_point(records, ";x3;", ";y3;", finding.crossings.second);
  }
  records.end();
  return records;
}

}  // namespace

std::FILE* RegionReport::open() noexcept {
  if (!file_) {
    // Text mode, for the platform's line ends. Closed and needed again, it goes on where it ended.
    file_ = std::fopen("OUTPUT.TXT", begun_ ? "a" : "w");
    if (!file_) return nullptr;
    begun_ = true;
    // A host that dies loses nothing, and nothing that could not be written waits in a buffer.
    std::setvbuf(file_, nullptr, _IONBF, 0);
  }
  return file_;
}

void RegionReport::add(const RegionFinding& finding) noexcept {
  std::FILE* const file = open();
  if (!file) return;
  const Records records = records_of(finding);
  const std::string_view text = records.written();
  if (std::fwrite(text.data(), 1, text.size(), file) == text.size()) {
    end_ = std::ftell(file);
    return;
  }
  // The next records take the place of those that were written in part.
  std::clearerr(file);
  std::fseek(file, end_, SEEK_SET);
}

void RegionReport::close() noexcept {
  if (file_) std::fclose(file_);
  file_ = nullptr;
}

}  // namespace kez
