#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/run/run.h"
#include "app/workspace.h"
#include "engine/analysis/offered_phrases.h"
#include "report/list_words.h"
#include "report/report_options.h"

namespace korv {

/// What the last listing of a result put where.
struct ShownListing {
  ReportOptions Options{};  ///< As listed: corrected to what is available.
  ListResult List{};
  bool Failed = false;  ///< An error ended it, or no file could be written.
  std::string File{};   ///< The file that holds it; empty when it went into the text box.
  uint64_t Bytes = 0;   ///< Length of that file.
};

/// A finished run of a window and its listing.
struct ShownResult {
  RunRequest Request;                      ///< What was asked for. Without a clipboard's text.
  std::optional<Workspace::State> Chosen;  ///< What was chosen in the window then, where that is known.
  CountedRun Run;
  std::optional<OfferedPhrases> Offered;  ///< Of a result without a phrase.
  std::chrono::seconds Took{};            ///< From its start to its end, questions aside.
  std::chrono::system_clock::time_point Ended{};
  std::string KeptIn{};  ///< The file that the run was opened from; empty where it was counted just now.
  ShownListing Listing;
  bool InSight = false;                         ///< The text box holds that listing, or names its file.
  std::optional<ComparisonBasis> ComparedBy{};  ///< In its table; nothing: as it was counted for.
  std::vector<PhraseIndex> LeftOut;             ///< Phrases that the user has left out of its table.
};

/// Whether single words were counted, not phrases.
inline bool IsOfSingleWords(const ShownResult& result) {
  return result.Run.Facts.Options.MaxWords == 1;
}

/// Whether two listings of a result would look the same, filters aside. The options have been through
/// ApplyReportRules().
bool SameForm(const ReportOptions& a, const ReportOptions& b);

/// Whether both let the same phrases pass; the filters of listings that are not filtered do not count.
bool SameFilter(const ReportOptions& a, const ReportOptions& b);

}  // namespace korv
