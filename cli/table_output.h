#pragma once

#include <span>
#include <string>

#include "base/clock.h"
#include "cli/options.h"
#include "engine/source_path.h"
#include "report/report_form.h"

namespace korv {

/// The form of the table that the options ask for in a file `outputPath` or, where that is empty, on standard
/// output; null for the report as text.
const TableForm* FormOf(const CountOptions& options, const std::string& outputPath);

/// The table that the options ask for in a file `outputPath` or, where that is empty, on standard output. Its
/// Form is null for the report as text, which the output file of settings always is.
/// `together`: several sources in place of that of the settings; empty for none.
TableOutput TableOutputOf(const CountOptions& options, const Settings& settings,
                          std::span<const SourcePath> together, const std::string& outputPath,
                          const Clock& clock);

}  // namespace korv
