#pragma once

#include <string>
#include <vector>

#include "engine/analysis/text_parts.h"
#include "report/columns/column.h"

namespace korv {

// Values of options that concern the columns of tables. What makes no sense is refused, as in
// option_values.h.

/// Names of columns, separated by commas, each once. `option` asks for them.
std::vector<const Column*> ParseColumns(const std::string& text, const std::string& option);

/// "files", or a number of equal parts.
PartChoice ParseParts(const std::string& text);

}  // namespace korv
