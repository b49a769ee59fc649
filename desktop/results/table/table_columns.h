#pragma once

#include <QString>
#include <span>
#include <string_view>

#include "base/number_format.h"
#include "report/columns/column.h"
#include "report/run_summary.h"

namespace korv {

/// The names of the columns that the table shows to a user who has chosen none, from the left.
std::span<const std::string_view> ColumnsAtFirst();

/// Whether the column says the same of every phrase where all the text is one file.
bool TellsFilesApart(std::string_view id);

/// What a click on the heading does first: text ascends, numbers descend.
inline bool DescendsFirst(const Column& column) {
  return column.Type != ColumnType::Text && column.Id != "rank";
}

/// What the column means, with the figures of the run that its formula refers to: rich text for a tool tip.
QString TipOfColumn(const Column& column, const RunSummary& facts, const NumberFormat& numbers);

}  // namespace korv
