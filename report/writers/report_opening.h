#pragma once

#include <string>

#include "report/list_extent.h"
#include "report/report.h"
#include "report/report_form.h"

namespace korv {

/// Everything that stands above the heading of a list: header of a file, files scanned, summary, filter
/// notice, the folder that paths are abbreviated with. With the line ends of the form.
std::string OpeningText(const Report& report, const ReportForm& form, const ListExtent& extent);

/// What a report consists of when there is nothing to list.
std::string EmptyReportText(const Report& report, const ReportForm& form);

/// Whether the report lists only what passes its filter.
bool Filters(const ReportOptions& options);

}  // namespace korv
