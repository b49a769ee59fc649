#pragma once

#include <QString>
#include <span>
#include <string_view>
#include <vector>

#include "base/number_format.h"
#include "report/columns/column.h"
#include "report/columns/registry.h"
#include "report/run_summary.h"

namespace korv {

/// All columns that the table can show: those of tables for other programs, but the place of the first
/// occurrence in one. Constants.
std::vector<const Column*> WindowColumns(TableOf run = TableOf::OneSide);

/// Whether the column tells the sides of a comparison apart: other runs have no value for it.
bool ComparesSides(const Column& column);

/// What a column of the window is in tables for other programs: the place of the first occurrence is its file
/// and its line there.
std::vector<const Column*> ColumnsForOthers(const Column& column);

/// The names of the columns that the table shows to a user who has chosen none, from the left.
std::span<const std::string_view> ColumnsAtFirst();

/// Whether the column says the same of every phrase where all the text is one file.
bool TellsFilesApart(std::string_view id);

/// Whether the value of a phrase has to be computed from the text, and not only looked up in the list.
bool IsComputed(const Column& column);

/// What a click on the heading does first: text ascends, numbers descend.
inline bool DescendsFirst(const Column& column) {
  return column.Type != ColumnType::Text && column.Id != "rank";
}

/// What the column means, with the figures of the run that its formula refers to and the parts of its text:
/// rich text for a tool tip.
QString TipOfColumn(const Column& column, const RunSummary& facts, PartChoice parts,
                    const NumberFormat& numbers);

}  // namespace korv
