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

// The families, each a file of this folder.
std::span<const Column> PhraseColumns();
std::span<const Column> FrequencyColumns();
std::span<const Column> FileColumns();
std::span<const Column> DispersionColumns();
std::span<const Column> ReportColumns();

}  // namespace korv
