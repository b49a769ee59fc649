#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/analysis/phrase_order.h"
#include "engine/analysis/text_parts.h"
#include "report/columns/column.h"
#include "report/columns/row_filter.h"

namespace korv {

// Values of options that concern the columns of tables. What makes no sense is refused, as in
// option_values.h.

/// Names of columns, separated by commas, each once. `option` asks for them.
std::vector<const Column*> ParseColumns(const std::string& text, const std::string& option);

/// The column of a table that `text` names, with ":asc" or ":desc" behind it or in its usual direction.
struct SortColumn {
  const Column* Of;
  SortDirection Direction;
};
SortColumn ParseSortColumn(const std::string& text, const std::string& option);

/// A phrase passes that has `least` or more in this column.
Limit AtLeast(std::string_view column, double least);

/// "files", a number of equal parts of the whole, or "each:" and a number of equal parts of each file.
PartChoice ParseParts(const std::string& text);

}  // namespace korv
