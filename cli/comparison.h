#pragma once

#include <string>
#include <vector>

#include "base/number_format.h"
#include "cli/option_rows.h"
#include "cli/options.h"
#include "report/run_summary.h"

namespace korv {

/// The options of comparisons.
std::vector<OptionRow> ComparisonRows();

/// Throws CLI::ValidationError where the options cannot go together with a comparison, or need one.
void CheckComparison(const CountOptions& options);

/// Puts the rows and columns that a comparison lists into the options, unless these ask for others.
void SettleComparison(CountOptions& options);

/// The line that tells how large both sides of a run that compares are. Without a line end.
std::string SidesLine(const RunSummary& facts, const NumberFormat& numbers);

}  // namespace korv
