#pragma once

#include <QString>

#include "base/number_format.h"
#include "report/columns/column.h"

namespace korv {

/// A cell as people read it in the table: numbers grouped, real ones with the digits that help
/// (Column::Decimals, RoundsLarge),
/// "%" behind percentages. Empty for a value that is not defined.
QString ShownCell(const Column& column, const Cell& cell, const NumberFormat& numbers);

/// A cell for other programs, who read the locale's decimal sign but no groups: up to nine digits that count,
/// no unit.
QString CopiedCell(const Cell& cell, const NumberFormat& numbers);

}  // namespace korv
