#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/translation.h"
#include "engine/analysis/phrase_analysis.h"
#include "engine/corpus/document_counts.h"
#include "engine/counting/phrase_table.h"
#include "report/columns/cell.h"
#include "report/list_extent.h"
#include "report/run_summary.h"

namespace korv {

/// A finished run as columns see it. A view: all of it outlives the listing.
struct ColumnSource {
  const PhraseTable& Table;
  const RunSummary& Facts;
  /// Of the whole list. Needed by Column::Greatest alone.
  ListExtent Extent = {};
  /// The table's FilePaths() as the report shows them; number 1 is the first. Needed by columns that have a
  /// value per file.
  std::span<const std::string> FilePaths = {};
  /// The paths of the corpus' sources as they were given. Needed by columns with NeedsSourcePaths.
  std::span<const std::string> SourcePaths = {};
  /// Files with at least one word taken; a single file and the clipboard are one.
  uint64_t FilesWithWords = 0;
  /// By entry: its place when ordered by frequency. Empty where the frequency chain has that order. Needed by
  /// columns with NeedsFrequencyRanks.
  std::span<const PhraseRank> FrequencyRanks = {};
  /// Prepared for the columns with Needs. Those that ask for more than it has are not defined.
  const PhraseAnalysis* Analysis = nullptr;
  double SimpleMathsK = 1;  ///< Of the column "simple_maths".
};

/// The phrase at hand.
class ListedPhrase {
 public:
  /// `text` is that of the entry; `files` and `fileCount` are needed where a column of the list has
  /// NeedsFiles and NeedsFileCount. Texts and files outlive this.
  ListedPhrase(PhraseIndex entry, std::string_view text, std::span<const DocumentCounts::Item> files = {},
               uint32_t fileCount = 0)
      : text_(text.data()), Entry(entry), size_(text.size()), Files(files), FileCount(fileCount) {}

  /// Words joined by single blanks.
  std::string_view Text() const { return {text_, size_}; }

 private:
  // Another field stands between the pointer and the size on purpose. Side by side, the compiler loads both
  // with one instruction. That load cannot be served from two separate stores that have just been made, so it
  // would stall every line of a list.
  const char* text_;

 public:
  PhraseIndex Entry;

 private:
  size_t size_;

 public:
  std::span<const DocumentCounts::Item> Files;
  uint32_t FileCount;  ///< All of them, without the limit of DocumentCounts.
};

enum class ColumnType { Text, Integer, Real };
enum class Alignment { Left, Right };

/// The unit of percentages; where people read them it follows the number.
inline constexpr std::string_view kPercentUnit = "%";

/// One thing that can be said of every phrase: its names, what it means and how it is found. Reports, tables
/// and exports show the same columns; a new one is a row in one of the files of this folder.
struct Column {
  std::string_view Id;       ///< For machines: lower case letters, digits and "_". Never changes.
  std::string_view Heading;  ///< For people, in English; see HeadingText().
  ColumnType Type = ColumnType::Integer;
  std::string_view Unit = {};  ///< What one of it is: "words", "%". Empty for texts and places.
  Alignment Align = Alignment::Right;
  std::string_view Definition;  ///< One sentence or two, with the formula, in English.
  /// The formula alone, with the letters of the definition. Empty where there is nothing to compute.
  std::string_view Formula = {};

  /// The value of a phrase. Constant cost unless the column's file says otherwise. This or ValueInFile is
  /// set, but for texts that a window makes itself.
  Cell (*Value)(const ColumnSource& source, const ListedPhrase& phrase) = nullptr;
  /// Texts: a number of each phrase by which tables order it. Null where they cannot.
  double (*OrderKey)(const ColumnSource& source, PhraseIndex entry) = nullptr;
  /// The value of a phrase in one of its files: a column that repeats for each of them.
  Cell (*ValueInFile)(const ColumnSource& source, const ListedPhrase& phrase,
                      const DocumentCounts::Item& file) = nullptr;
  /// Numbers: the greatest value of the list, whose text is the widest. Null where it is not known.
  Cell (*Greatest)(const ColumnSource& source) = nullptr;

  // The inputs below take time to prepare, so a list prepares those that one of its columns asks for. Files
  // and FileCount cost a look at every occurrence of the phrase, SourcePaths one text per file of the run,
  // and FrequencyRanks a sort of the table if the list is ordered by something else.
  bool NeedsFiles = false;
  bool NeedsFileCount = false;
  bool NeedsSourcePaths = false;
  bool NeedsFrequencyRanks = false;
  AnalysisNeeds Needs = {};  ///< Of ColumnSource::Analysis.
  bool NeedsPlaces = false;  ///< The run must keep places, as it must for Needs.

  // Where people read it, as padded text.
  int Decimals = 0;          ///< Real: digits after the point.
  bool RoundsLarge = false;  ///< In the window's table 1 digit after the point from 10 on, none from 100 on.
  int Width = 0;             ///< In characters, heading apart; 0: as wide as the widest cell or the heading.
  bool SharesCell = false;   ///< Stands in the cell of the column before it, and Width is that of both.
};

// In the user's language, where people read them. The texts of a column are literals, marked with TrLater().
inline const char* HeadingText(const Column& column) {
  return Tr(column.Heading.data());
}
inline const char* DefinitionText(const Column& column) {
  return Tr(column.Definition.data());
}

}  // namespace korv
