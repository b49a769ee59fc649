#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/file_tallies.h"
#include "platform/number_format.h"

namespace korv {

/// How the columns of a line stand beside each other.
enum class Layout {
  Columns,  ///< A blank, then padded columns with two blanks between them: for reading.
  Tabs,     ///< One tab between columns, one after every phrase: for other programs.
};

/// What all phrases of a list have in common, over the listed ones and before any filter.
struct ListExtent {
  uint32_t Phrases = 0;       ///< Number of listed phrases.
  uint32_t HighestCount = 0;  ///< Occurrences of the most frequent one.
  int LongestCharacters = 0;  ///< Characters of the longest one.
  int LongestWords = 0;       ///< The most words in one.
  uint64_t Occurrences = 0;   ///< Sum of their counts.
};

/// Everything that the look of a line depends on.
struct LineFormat {
  int DisplayFormat = 0;  ///< 0..12.
  Layout LineLayout = Layout::Columns;
  bool RelativeFrequency = false;
  bool SortByNumberOfFiles = false;  ///< The files column gets the file frequency beside it.
  uint64_t TotalOccurrences = 0;     ///< 100 percent of relative frequencies.
  uint64_t FilesScanned = 0;         ///< 1.000 of file frequencies.
  ListExtent Extent;
  NumberFormat Numbers;
  std::string LineEnd = "\r\n";
  /// The paths of the run's files as the report shows them; number 1 is the first. Formats 11 and 12 only.
  std::vector<std::string> FilePaths;
};

/// Widths of the padded columns, in characters.
struct ColumnWidths {
  int Phrase = 0;
  int Rank = 0;
  int Frequency = 0;
};
ColumnWidths ComputeColumnWidths(const LineFormat& format);

/// One phrase to be listed.
struct ListedPhrase {
  std::string_view Text;  ///< Words joined by single blanks.
  uint32_t Rank = 0;
  uint32_t Count = 0;
  uint32_t FileCount = 0;                          ///< Folder runs.
  std::span<const FileTallies::Tally> Files = {};  ///< Formats 11 and 12.
};

/// Builds the lines of one list. Texts are appended to a buffer of the caller's; a line costs no
/// allocation beyond that buffer's growth.
class LineBuilder {
 public:
  explicit LineBuilder(LineFormat format);

  /// The heading with its line end; nothing where the format has none.
  void AppendHeading(std::string& out);
  /// The line of one phrase, in format 12 the lines of its files too. Format 9 puts phrases behind each
  /// other on one line, which AppendEnd() ends.
  void AppendPhrase(const ListedPhrase& phrase, std::string& out);
  /// After the last phrase.
  void AppendEnd(std::string& out);

 private:
  enum class Column { None, Phrase, Rank, Frequency, Files, PathList };
  struct Columns {
    Column first = Column::None, second = Column::None, third = Column::None;
  };
  static Columns ColumnsOfFormat(int displayFormat);

  /// Calls appendCell(column, isLast) for each column and puts what belongs between them.
  template <typename AppendCell>
  void AppendColumns(const Columns& columns, std::string& out, AppendCell&& appendCell) const;
  void AppendPhraseCell(std::string_view text, bool last, std::string& out) const;
  void AppendRightAligned(std::string_view text, int characters, int width, std::string& out) const;
  void AppendRank(uint32_t rank, std::string& out) const;
  void AppendFrequencyCell(uint32_t count, std::string& out);
  void AppendFilesCell(uint32_t fileCount, std::string& out);
  void AppendPathList(std::span<const FileTallies::Tally> files, std::string& out) const;
  void AppendFileShares(const ListedPhrase& phrase, std::string& out);
  std::string_view PathOf(uint32_t fileNumber) const;

  LineFormat format_;
  ColumnWidths widths_;
  Columns columns_;
  bool tabs_;
  bool anyPhrase_ = false;
  // Neighbours in a list by frequency mostly have the same count.
  uint32_t frequencyOf_ = 0;
  int frequencyCharacters_ = 0;
  std::string frequency_;
  std::string scratch_;
};

}  // namespace korv
