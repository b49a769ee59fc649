#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/yielder.h"
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
  uint32_t Phrases = 0;      ///< Phrases that were listed (passed the filter).
  uint64_t Occurrences = 0;  ///< Sum of their counts.
};

/// Lists the phrases of a report in its order: opening, heading, a line per phrase that passes the filter; or
/// the table that the form asks for.
/// Calls Yield() once per phrase and ends soon after a stop. Cost: linear in the text listed.
ListResult ListWords(const Report& report, const ReportForm& form, ReportSink& sink, Yielder& yielder);

/// Hands the phrases of a report to a writer, in the report's order and through its filter, with these
/// columns of theirs. `extent` is what MeasureList() says, for writers that ask for it.
ListResult WriteList(const Report& report, std::span<const Column* const> columns, const ListExtent& extent,
                     ListWriter& writer, Yielder& yielder);

/// The name under which an error in the middle of a listing is reported.
std::string_view NameOfListing(const ReportOptions& options);

}  // namespace korv
