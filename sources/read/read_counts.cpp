#include "sources/read/read_counts.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>
#include <vector>

namespace korv {

namespace {

constexpr std::string_view kSignature = "\xEF\xBB\xBF";

bool IsComment(std::string_view line) {
  return line == "#" || line.starts_with("# ");
}

std::optional<uint32_t> FrequencyOf(std::string_view cell) {
  uint32_t value = 0;
  const char* const end = cell.data() + cell.size();
  const auto [behind, error] = std::from_chars(cell.data(), end, value);
  if (error != std::errc() || behind != end || value == 0 || value > kMostFrequency) return std::nullopt;
  return value;
}

std::optional<CountsFault> FaultOf(CountVerdict verdict) {
  switch (verdict) {
    case CountVerdict::NoPhrase:
      return CountsFault::NoPhrase;
    case CountVerdict::HoldsWordToRemove:
      return CountsFault::HoldsWordToRemove;
    case CountVerdict::SumTooLarge:
      return CountsFault::SumTooLarge;
    case CountVerdict::Added:
    case CountVerdict::OtherLength:
    case CountVerdict::TooLong:
    case CountVerdict::Excluded:
      break;
  }
  return std::nullopt;
}

/// Takes counts line by line.
class CountLines {
 public:
  CountLines(PhraseSums& sums, CountsTally& tally) : sums_(sums), tally_(tally) {}

  std::optional<CountsFault> Take(std::string_view line) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (IsComment(line)) return std::nullopt;
    SplitCells(line);
    if (!begun_) {
      begun_ = true;
      if (FindColumns()) return std::nullopt;
    }
    if (hasHeading_ ? cells_.size() <= std::max(phrase_, frequency_) : cells_.size() != 2)
      return CountsFault::MissingCells;
    const std::optional<uint32_t> frequency = FrequencyOf(cells_[frequency_]);
    if (!frequency) return CountsFault::NoFrequency;
    ++tally_.Counts;
    const CountVerdict verdict = sums_.Add(cells_[phrase_], *frequency);
    if (verdict == CountVerdict::OtherLength) ++tally_.OtherLengths;
    return FaultOf(verdict);
  }

 private:
  void SplitCells(std::string_view line) {
    cells_.clear();
    for (size_t begin = 0; begin <= line.size();) {
      const size_t end = std::min(line.find('\t', begin), line.size());
      cells_.push_back(line.substr(begin, end - begin));
      begin = end + 1;
    }
  }

  /// Whether this line is a heading that names both.
  bool FindColumns() {
    const auto phrase = std::find(cells_.begin(), cells_.end(), "phrase");
    const auto frequency = std::find(cells_.begin(), cells_.end(), "frequency");
    hasHeading_ = phrase != cells_.end() && frequency != cells_.end();
    if (!hasHeading_) return false;
    phrase_ = static_cast<size_t>(phrase - cells_.begin());
    frequency_ = static_cast<size_t>(frequency - cells_.begin());
    return true;
  }

  PhraseSums& sums_;
  CountsTally& tally_;
  bool begun_ = false;
  bool hasHeading_ = false;
  size_t phrase_ = 0;
  size_t frequency_ = 1;
  std::vector<std::string_view> cells_;
};

/// Cuts a file into lines.
class CountsReading {
 public:
  CountsReading(InputFile& file, Yielder& yielder, const std::function<void(uint64_t)>& progress)
      : file_(file), yielder_(yielder), progress_(progress) {}

  std::optional<CountsError> Read(CountLines& lines) {
    std::vector<char> block(kBlock);
    for (;;) {
      const auto size = file_.Read(block);
      if (!size) return CountsError{CountsFault::Unreadable, line_, size.Error().Description};
      if (yielder_.Stopped()) return std::nullopt;
      if (*size == 0) break;
      read_ += *size;
      progress_(read_);
      if (auto error = TakeBlock({block.data(), *size}, lines)) return error;
    }
    return rest_.empty() ? std::nullopt : TakeLine(rest_, lines);
  }

 private:
  static constexpr size_t kBlock = size_t{1} << 18;

  std::optional<CountsError> TakeBlock(std::string_view block, CountLines& lines) {
    while (!yielder_.Stopped()) {
      const size_t end = block.find('\n');
      // The end of a line that came in a block before stands in front.
      if (rest_.size() + std::min(end, block.size()) > kMostCountLine)
        return CountsError{CountsFault::LineTooLong, line_ + 1, {}};
      if (end == block.npos) {
        rest_ += block;
        return std::nullopt;
      }
      std::string_view line = block.substr(0, end);
      if (!rest_.empty()) line = rest_ += line;
      if (auto error = TakeLine(line, lines)) return error;
      rest_.clear();
      block.remove_prefix(end + 1);
    }
    return std::nullopt;
  }

  std::optional<CountsError> TakeLine(std::string_view line, CountLines& lines) {
    yielder_.Yield();
    if (++line_ == 1 && line.starts_with(kSignature)) line.remove_prefix(kSignature.size());
    const std::optional<CountsFault> fault = lines.Take(line);
    return fault ? std::optional(CountsError{*fault, line_, {}}) : std::nullopt;
  }

  InputFile& file_;
  Yielder& yielder_;
  const std::function<void(uint64_t)>& progress_;
  uint64_t read_ = 0;
  uint64_t line_ = 0;  ///< The number of the last one that was taken.
  std::string rest_;   ///< A line whose end has not been read yet.
};

}  // namespace

std::optional<CountsError> ReadCounts(InputFile& file, PhraseSums& sums, Yielder& yielder, CountsTally& tally,
                                      const std::function<void(uint64_t)>& progress) {
  CountLines lines(sums, tally);
  return CountsReading(file, yielder, progress).Read(lines);
}

}  // namespace korv
