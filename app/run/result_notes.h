#pragma once

#include <span>
#include <string>
#include <vector>

#include "app/run/run_changes.h"
#include "app/run/shown_result.h"
#include "base/number_format.h"
#include "engine/source_path.h"

namespace korv {

/// What stands above a result, in the order in which it stands there; and the answer to a question about it.
enum class NoteKind {
  Source,       ///< Which source the list is of. Always there.
  BothSides,    ///< The run compares, and the list counts both sides together.
  SharedFiles,  ///< Files that are on both sides.
  NotInSight,   ///< The text box holds something else.
  OtherSource,  ///< Another source is chosen now.
  OtherRules,   ///< It was counted under other rules.
  OtherReport,  ///< Format, order or columns differ from what is chosen.
  NotWritten,   ///< The output file that is named does not hold it.
  OnlyInFile,   ///< It was written, and no file is named any more.
  Written,      ///< Which file holds it.
  Empty,        ///< Why there is nothing in it; one for every cause.
  Full,         ///< The text box holds a part of it.
  ListingStopped,
  Incomplete,   ///< The count was stopped.
  Filter,       ///< It is filtered.
  OtherFilter,  ///< The filter words that stand there are not the ones applied.
  CountOnly,    ///< Count-only entries were in force.
  WordsLeftOut,
  Skipped,  ///< Files of the folder that were not counted.
  LongPhrases,
  Replaced,  ///< Bytes that are no characters.
  Why,       ///< Why a phrase that was asked for is not listed; one for every cause.
};

/// A way out of what a note tells.
enum class NoteAction {
  ListAnew,
  CountAgain,
  ShowLastList,
  ShowAll,
  FilterResults,
  WriteToFile,  ///< Choose an output file and write the list into it.
  OpenFile,
  OpenFolder,
  CountLeftOut,   ///< Count again without the rules that left words out.
  ShowSkipped,    ///< Where the skipped files are named.
  WordRules,      ///< Where the word rules are.
  WordsToIgnore,  ///< Where they are listed.
  CountOnly,      ///< Where the count-only entries are.
  MinFrequency,
  Lengths,
};
/// The caption of its button, UTF-8, with the mark of no mnemonic.
const char* CaptionOf(NoteAction action);

struct ResultNote {
  NoteKind Kind;
  std::string Text;  ///< UTF-8, one line; long names are shortened.
  std::vector<NoteAction> WaysOut = {};
  std::string Tip = {};  ///< What the text shortens.

  bool operator==(const ResultNote&) const = default;
};

/// What is chosen now, to be compared with what is shown.
struct ChosenNow {
  RunChanges Changes;
  ReportOptions Report;         ///< FilterActive where filter words stand.
  bool FormatAvailable = true;  ///< For the result.
  std::string OutputPath;       ///< Empty when the report would go into the text box.
};

/// The notes of a result and its listing, in order.
std::vector<ResultNote> NotesOf(const ShownResult& result, const ChosenNow& now, const NumberFormat& numbers);
/// Those that concern the run, however it is shown.
std::vector<ResultNote> NotesOfRun(const ShownResult& result, const ChosenNow& now,
                                   const NumberFormat& numbers);

/// "Filtered by ..." and its like want the words of a filter mode: "all words", "all words in same order".
std::string FilterModeText(FilterMode mode);

/// "16,383 of 72,201 words left out: shorter than 3 letters"; empty when none was.
std::string WordsLeftOutText(const CountedRun& run, const WordRules& rules, const NumberFormat& numbers);

/// How the texts of a run were read: "UTF-8"; of several texts "3 UTF-8, 1 ANSI". Empty for the clipboard.
std::string EncodingText(const RunSummary& facts, const NumberFormat& numbers);

/// What the labels above the text box say of a result in sight.
struct ResultLabels {
  std::string NumberOfWords;
  std::string NumOccurrences;
  std::string TotalNumOccurrences;
  std::string NumWordsExcluded;
};
ResultLabels LabelsOf(const ShownResult& result, const NumberFormat& numbers);

/// The source of a run as a user calls it: the name of a file or folder, "Clipboard". Empty for none.
std::string SourceName(TextSource kind, const std::string& path);
/// What several sources are called: "3 files", "2 folders", "3 files and 1 folder".
std::string TogetherName(std::span<const SourcePath> paths);
/// What a side of a run that compares is called, in one of these ways. One that was on standard input was the
/// clipboard.
std::string SideNameOf(const RunSummary& facts, Side side);
/// What the source of a run is called, in one of these ways; of one that compares "A - B".
std::string SourceNameOf(const RunSummary& facts);

/// The name, without an extension, of a file that is offered for a run: that of its source, without the signs
/// that some systems do not allow.
std::string FileNameOfRun(const RunSummary& facts);

/// `name` with the middle left out where it has more than `characters`.
std::string Shortened(const std::string& name, size_t characters);

}  // namespace korv
