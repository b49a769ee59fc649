#pragma once

#include <string>

#include "engine/run_options.h"
#include "platform/messages.h"
#include "report/report_options.h"

namespace korv {

/// Which of the report options mean something for the others.
struct ReportRules {
  bool RelativeFrequencyEnabled = false;  ///< The format shows frequencies.
  bool SortByNumberOfFilesEnabled = false;
  bool FormatAvailable = true;  ///< Formats 10 to 12 need a folder source.
};
ReportRules RulesOfOptions(const ReportOptions& options, TextSource source);

/// Brings `options` to what can be listed: a format that is not available becomes 0, the sort by number of
/// files is cleared where it is disabled. Relative frequency keeps its state; it has no effect in formats
/// without the column. Returns whether the format was available.
bool ApplyReportRules(ReportOptions& options, TextSource source);

/// The message for a format that is not available. `formatName` is its text in the list of formats.
Message UnavailableFormatMessage(const std::string& formatName);

/// Program texts of the two lists: number of an item's text by its position.
int DisplayFormatTextNumber(int displayFormat);
int WordOrderTextNumber(int wordOrder);

}  // namespace korv
