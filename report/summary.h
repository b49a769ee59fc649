#pragma once

#include <cstdint>
#include <string>

#include "base/number_format.h"
#include "report/run_summary.h"

namespace korv {

/// The sentence that introduces a list, with the line about the longest phrase, and the two line breaks
/// that separate it from what follows. `phrases` is the number of listed phrases, `longestWords` the most
/// words in one of them. With no phrases a suggestion may follow, without a line break after it.
std::string SummaryText(const RunSummary& facts, uint32_t phrases, int longestWords);

/// "2,500 files (in 12 folders) were scanned." and its line break; a second line when the run was stopped.
/// Empty unless the source is a folder.
std::string FilesScannedText(const RunSummary& facts, const NumberFormat& numbers);

/// "3 files in 1 folder": how far a count or a walk has come. Numbers without groups.
std::string ProgressCountText(uint64_t files, uint64_t folders);

/// For a run that counted no phrase at all. No line break at its end.
std::string NoResultText(const RunSummary& facts);

/// The files that a folder run could not count, one a line, with the reason; empty when there are none.
/// With more than `most` files the number of the others stands in a last line.
std::string SkippedFilesText(const RunSummary& facts, size_t most = std::string::npos);
/// What else the user should know of the run, a line each; empty when there is nothing.
std::string NoticesText(const RunSummary& facts);

/// What the labels beside the text box say of the list in it.
struct StatusLabels {
  std::string NumberOfWords;   ///< Empty with a filter, and when nothing is listed.
  std::string NumOccurrences;  ///< Empty when nothing is listed.
};
/// `occurrences` is the sum of the listed counts. The two numbers end in the same column where a label's
/// text of one width is put before each: they are padded to the longer one.
StatusLabels StatusLabelTexts(uint32_t phrases, uint64_t occurrences, bool filtered,
                              const NumberFormat& numbers);

}  // namespace korv
