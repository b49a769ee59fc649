#include "report/line_builder.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "engine/unicode.h"

namespace korv {

namespace {

constexpr std::string_view kPhraseHeading = "Phrase";
constexpr std::string_view kRankHeading = "Rank";
constexpr std::string_view kFrequencyHeading = "Freq";
constexpr std::string_view kRelativeHeading = "Rel freq";
constexpr std::string_view kFilesHeading = " Files";
constexpr std::string_view kFileFrequencyHeading = "File freq";
constexpr std::string_view kPathsHeading = "Files";

constexpr int kFilesWidth = 5;
constexpr int kFilesAndFrequencyWidth = 14;
constexpr int kShareWidth = 6;

constexpr int kPhraseOnly = 8;
constexpr int kInOneLine = 9;
constexpr int kSharesOfFiles = 12;

std::string_view FrequencyHeading(const LineFormat& format) {
  return format.RelativeFrequency ? kRelativeHeading : kFrequencyHeading;
}

template <typename Integer>
void AppendInteger(Integer value, std::string& out) {
  char digits[20];
  const auto end = std::to_chars(digits, digits + sizeof digits, value);
  out.append(digits, end.ptr);
}

double Percentage(uint64_t count, uint64_t total) {
  return total == 0 ? 0.0 : static_cast<double>(count) * 100.0 / static_cast<double>(total);
}

void AppendFrequency(const LineFormat& format, uint32_t count, std::string& out) {
  if (!format.RelativeFrequency) return AppendInteger(count, out);
  format.Numbers.AppendDecimals(Percentage(count, format.TotalOccurrences), 2, out);
  out += '%';
}

int Length(std::string_view text) {
  return static_cast<int>(text.size());
}
int Characters(std::string_view text) {
  return static_cast<int>(CharacterCount(text));
}

}  // namespace

ColumnWidths ComputeColumnWidths(const LineFormat& format) {
  std::string highest;
  AppendFrequency(format, format.Extent.HighestCount, highest);
  const std::string phrases = std::to_string(format.Extent.Phrases);
  return {.Phrase = std::max(format.Extent.LongestCharacters, Length(kPhraseHeading)),
          .Rank = std::max(Length(phrases), Length(kRankHeading)),
          .Frequency = std::max(Characters(highest), Length(FrequencyHeading(format)))};
}

LineBuilder::Columns LineBuilder::ColumnsOfFormat(int displayFormat) {
  using enum Column;
  static constexpr Columns kColumns[] = {
      {Rank, Frequency, Phrase},   // 0
      {Phrase, Rank, Frequency},   // 1
      {Rank, Frequency, None},     // 2
      {Rank, Phrase, None},        // 3
      {Frequency, Rank, None},     // 4
      {Frequency, Phrase, None},   // 5
      {Phrase, Rank, None},        // 6
      {Phrase, Frequency, None},   // 7
      {Phrase, None, None},        // 8
      {Phrase, None, None},        // 9
      {Phrase, Files, Frequency},  // 10
      {Phrase, PathList, None},    // 11
      {Phrase, None, None},        // 12
  };
  return kColumns[std::clamp<size_t>(static_cast<size_t>(displayFormat), 0, std::size(kColumns) - 1)];
}

LineBuilder::LineBuilder(LineFormat format)
    : format_(std::move(format)),
      widths_(ComputeColumnWidths(format_)),
      columns_(ColumnsOfFormat(format_.DisplayFormat)),
      tabs_(format_.LineLayout == Layout::Tabs) {}

template <typename AppendCell>
void LineBuilder::AppendColumns(const Columns& columns, std::string& out, AppendCell&& appendCell) const {
  if (!tabs_) out += ' ';
  Column before = Column::None;
  for (const auto& [column, next] :
       {std::pair(columns.first, columns.second), std::pair(columns.second, columns.third),
        std::pair(columns.third, Column::None)}) {
    if (column == Column::None) break;
    // A phrase has seen to the gap behind it: its tab stands even where no column follows.
    if (before != Column::None && before != Column::Phrase) out += tabs_ ? "\t" : "  ";
    appendCell(column, next == Column::None);
    before = column;
  }
}

void LineBuilder::AppendPhraseCell(std::string_view text, bool last, std::string& out) const {
  out += text;
  if (tabs_)
    out += '\t';
  else if (!last)
    // With the two blanks before the next column.
    out.append(static_cast<size_t>(std::max(widths_.Phrase - Characters(text), 0)) + 2, ' ');
}

void LineBuilder::AppendRightAligned(std::string_view text, int characters, int width,
                                     std::string& out) const {
  if (!tabs_ && characters < width) out.append(static_cast<size_t>(width - characters), ' ');
  out += text;
}

void LineBuilder::AppendRank(uint32_t rank, std::string& out) const {
  char digits[10];
  const auto end = std::to_chars(digits, digits + sizeof digits, rank);
  const std::string_view text(digits, static_cast<size_t>(end.ptr - digits));
  AppendRightAligned(text, Length(text), widths_.Rank, out);
}

void LineBuilder::AppendFrequencyCell(uint32_t count, std::string& out) {
  if (frequency_.empty() || count != frequencyOf_) {
    frequencyOf_ = count;
    frequency_.clear();
    AppendFrequency(format_, count, frequency_);
    frequencyCharacters_ = Characters(frequency_);
  }
  AppendRightAligned(frequency_, frequencyCharacters_, widths_.Frequency, out);
}

void LineBuilder::AppendHeading(std::string& out) {
  if (tabs_ && format_.DisplayFormat == kInOneLine) return;
  const size_t start = out.size();
  AppendColumns(columns_, out, [&](Column column, bool last) {
    switch (column) {
      case Column::Phrase:
        return AppendPhraseCell(kPhraseHeading, last, out);
      case Column::Rank:
        return AppendRightAligned(kRankHeading, Length(kRankHeading), widths_.Rank, out);
      case Column::Frequency:
        return AppendRightAligned(FrequencyHeading(format_), Length(FrequencyHeading(format_)),
                                  widths_.Frequency, out);
      case Column::Files:
        out += kFilesHeading;
        if (format_.SortByNumberOfFiles) (out += tabs_ ? "\t" : "   ") += kFileFrequencyHeading;
        return;
      case Column::PathList:
        out += kPathsHeading;
        return;
      case Column::None:
        return;
    }
  });
  switch (format_.DisplayFormat) {
    case 0:
    case 3:
    case 5:
    case kPhraseOnly:
    case kInOneLine:
      // The phrase is last in these formats, and its length tells how wide the list is.
      while (out.size() > start && (out.back() == ' ' || out.back() == '\t')) out.pop_back();
      out += " [longest has" + NumberWithBlank(format_.Extent.LongestCharacters) + " characters]";
      break;
    default:
      break;
  }
  out += format_.LineEnd;
}

void LineBuilder::AppendPhrase(const ListedPhrase& phrase, std::string& out) {
  if (format_.DisplayFormat == kInOneLine) {
    if (anyPhrase_) out += ", ";
    anyPhrase_ = true;
    out += phrase.Text;
    return;
  }
  if (format_.DisplayFormat == kPhraseOnly) {
    // Unlike its heading it does not begin with a blank.
    AppendPhraseCell(phrase.Text, true, out);
    out += format_.LineEnd;
    return;
  }
  const bool noPaths = columns_.second == Column::PathList && phrase.Files.empty();
  AppendColumns(noPaths ? Columns{Column::Phrase} : columns_, out, [&](Column column, bool last) {
    switch (column) {
      case Column::Phrase:
        return AppendPhraseCell(phrase.Text, last, out);
      case Column::Rank:
        return AppendRank(phrase.Rank, out);
      case Column::Frequency:
        return AppendFrequencyCell(phrase.Count, out);
      case Column::Files:
        return AppendFilesCell(phrase.FileCount, out);
      case Column::PathList:
        return AppendPathList(phrase.Files, out);
      case Column::None:
        return;
    }
  });
  out += format_.LineEnd;
  if (format_.DisplayFormat == kSharesOfFiles) AppendFileShares(phrase, out);
}

void LineBuilder::AppendEnd(std::string& out) {
  if (anyPhrase_) out += format_.LineEnd;
}

void LineBuilder::AppendFilesCell(uint32_t fileCount, std::string& out) {
  scratch_.clear();
  AppendInteger(fileCount, scratch_);
  if (!format_.SortByNumberOfFiles) return AppendRightAligned(scratch_, Length(scratch_), kFilesWidth, out);
  // Single precision is part of the number's definition: it decides the third decimal of a tie.
  const float fileFrequency = format_.FilesScanned == 0
                                  ? 0.0f
                                  : static_cast<float>(fileCount) / static_cast<float>(format_.FilesScanned);
  scratch_ += tabs_ ? "\t" : "    ";
  format_.Numbers.AppendDecimals(static_cast<double>(fileFrequency), 3, scratch_);
  AppendRightAligned(scratch_, Characters(scratch_), kFilesAndFrequencyWidth, out);
}

void LineBuilder::AppendPathList(std::span<const FileTallies::Tally> files, std::string& out) const {
  bool first = true;
  for (const FileTallies::Tally& file : files) {
    if (!first) out += tabs_ ? "\t" : "  ";
    first = false;
    out += PathOf(file.FileNumber);
  }
}

void LineBuilder::AppendFileShares(const ListedPhrase& phrase, std::string& out) {
  const uint64_t whole = format_.RelativeFrequency ? format_.TotalOccurrences : phrase.Count;
  for (const FileTallies::Tally& file : phrase.Files) {
    scratch_.clear();
    format_.Numbers.AppendDecimals(Percentage(file.Count, whole), 2, scratch_);
    out += "    ";
    // Padded in both layouts.
    const int characters = Characters(scratch_);
    if (characters < kShareWidth) out.append(static_cast<size_t>(kShareWidth - characters), ' ');
    out += scratch_;
    out += "% ";
    out += PathOf(file.FileNumber);
    out += format_.LineEnd;
  }
}

std::string_view LineBuilder::PathOf(uint32_t fileNumber) const {
  const size_t index = static_cast<size_t>(fileNumber) - 1;
  return index < format_.FilePaths.size() ? std::string_view(format_.FilePaths[index]) : std::string_view();
}

}  // namespace korv
