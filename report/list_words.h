#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "engine/phrase_table.h"
#include "platform/yielder.h"
#include "report/line_builder.h"
#include "report/report_options.h"
#include "report/run_facts.h"

namespace korv {

/// What a report is made of. A view: all of it must outlive the listing. The table has its frequency
/// chain, and the options have been through ApplyReportRules().
struct Report {
  const PhraseTable& Table;
  const RunFacts& Facts;
  const ReportOptions& Options;
  const NumberFormat& Numbers;
};

/// Where the text of a report goes. It only carries what it is given.
class ReportSink {
 public:
  virtual ~ReportSink() = default;
  /// Takes the next piece of the report, whole characters and mostly whole lines. False when it takes no
  /// more.
  virtual bool Write(std::string_view piece) = 0;
  /// Pieces are handed over once they exceed this many bytes.
  virtual size_t PieceSize() const = 0;
};

/// The outer form of a report.
struct ReportForm {
  Layout LineLayout = Layout::Columns;
  /// Whole report file: its header, and notices on lines of their own. Otherwise what the text box gets.
  bool File = false;
  /// The files and folders that could not be counted are named behind the files-scanned text.
  bool SkippedFiles = false;
  std::string LineEnd = "\r\n";
};

enum class ListOutcome {
  Listed,    ///< A list, perhaps without any match of a filter; or the notice that there is nothing.
  Stopped,   ///< The user stopped the listing; the sink has the lines built so far.
  SinkFull,  ///< The sink took no more.
};

struct ListResult {
  ListOutcome Outcome = ListOutcome::Listed;
  uint32_t Phrases = 0;      ///< Phrases that were listed (passed the filter).
  uint64_t Occurrences = 0;  ///< Sum of their counts.
};

/// Lists the phrases of a report in its order: opening, heading, a line per phrase that passes the filter.
/// Calls Yield() once per phrase and ends soon after a stop. Cost: linear in the text listed.
ListResult ListWords(const Report& report, const ReportForm& form, ReportSink& sink, Yielder& yielder);

/// What the listed phrases of a table have in common. Linear in the entries.
ListExtent MeasureList(const PhraseTable& table, Yielder& yielder);

/// Whether the report is a list, not just a notice that there is nothing to list.
bool AnythingListed(const PhraseTable& table);

/// The name under which an error in the middle of a listing is reported.
std::string_view NameOfListing(const ReportOptions& options);

}  // namespace korv
