#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "report/columns/column.h"

namespace korv {

/// The column with this Id; null when there is none. Columns are constants.
const Column* FindColumn(std::string_view id);

/// All of them, family by family.
std::vector<const Column*> AllColumns();

/// Whether a run compares: its table has columns for both sides then.
enum class TableOf { OneSide, TwoSides };

/// Those that tables can have: all but the ones that belong to the formats of the report.
std::vector<const Column*> TableColumns(TableOf run = TableOf::OneSide);

/// Whether a run must keep its places for one of the columns.
bool NeedPlaces(std::span<const Column* const> columns);

// The families, each a file of this folder.
std::span<const Column> PhraseColumns();
std::span<const Column> FrequencyColumns();
std::span<const Column> FileColumns();
std::span<const Column> DispersionColumns();
std::span<const Column> AssociationColumns();
std::span<const Column> ComparisonColumns();
std::span<const Column> ReportColumns();

}  // namespace korv
