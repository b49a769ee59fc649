#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "base/yielder.h"
#include "report/columns/column.h"
#include "report/list_extent.h"
#include "report/report.h"
#include "report/report_form.h"
#include "report/report_sink.h"
#include "report/writers/list_writer.h"

namespace korv {

enum class ListOutcome {
  Listed,    ///< A list, perhaps without any match of a filter; or the notice that there is nothing.
  Stopped,   ///< The user stopped the listing; the sink has the lines built so far.
  SinkFull,  ///< The sink took no more.
};

struct ListResult {
  ListOutcome Outcome = ListOutcome::Listed;
  /// Phrases of the list (those that pass the filter), whether or not all found room. A filtered listing
  /// that was stopped knows of those up to there.
  uint32_t Phrases = 0;
  uint64_t Occurrences = 0;  ///< Sum of their counts.
  uint32_t Shown = 0;        ///< Those of them whose text the sink has, wholly.
  uint32_t Unfiltered = 0;   ///< Phrases that there are to list without a filter.
  /// PhraseAnalysis::Coverage(), where a column needed it.
  std::optional<double> Coverage = {};
  /// Why the sink got no more, where that is no fault of its own: ListWriter::Fault().
  std::optional<FileError> Fault = {};
};

/// Lists the phrases of a report in its order: opening, heading, a line per phrase that passes the filter; or
/// the table that the form asks for.
/// Yields and ends soon after a stop. The lines of long lists are made on all threads, but the sink is only
/// called on this one. Cost: linear in the text listed.
ListResult ListWords(const Report& report, const ReportForm& form, ReportSink& sink, Yielder& yielder);

/// Hands the cells of the phrases of a report to a writer: a row per phrase that passes the filter, in the
/// report's order, with a cell per column. `extent` is the result of MeasureList().
ListResult WriteList(const Report& report, std::span<const Column* const> columns, const ListExtent& extent,
                     ListWriter& writer, Yielder& yielder);

/// The name under which an error in the middle of a listing is reported.
std::string_view NameOfListing(const ReportOptions& options);

}  // namespace korv
