#pragma once

#include "base/gauge.h"
#include "base/number_format.h"
#include "engine/analysis/keyness.h"
#include "engine/analysis/text_parts.h"
#include "engine/counting/phrase_table.h"
#include "report/report_options.h"
#include "report/row_choice.h"
#include "report/run_summary.h"

namespace korv {

/// What a report is made of. A view: all of it must outlive the listing. The table has its frequency
/// chain, and the options have been through ApplyReportRules().
struct Report {
  const PhraseTable& Table;
  const RunSummary& Facts;
  const ReportOptions& Options;
  const NumberFormat& Numbers;
  PartChoice Parts = {};  ///< Over which columns tell how evenly phrases are spread.
  /// Of a run that compares: what its phrases are compared by, and the constant k of simple maths.
  ComparisonBasis ComparedBy = ComparisonBasis::Words;
  double SimpleMathsK = 1;
  RowChoice Rows = {};
  /// Gets how many phrases have been listed so far, for other threads to look at. May be null.
  Gauge<uint32_t>* Progress = nullptr;
};

/// Whether the report is a list, not just a notice that there is nothing to list.
inline bool AnythingListed(const PhraseTable& table) {
  return table.ChainHead() != kNoPhrase;
}

}  // namespace korv
