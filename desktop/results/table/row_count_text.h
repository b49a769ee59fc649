#pragma once

#include <string>

#include "base/number_format.h"
#include "engine/analysis/phrase_list.h"

namespace korv {

/// "12,345 of 1,234,567 phrases, 88,001 occurrences". Not `whole`: further rows are still being found.
std::string CountOfRows(const PhraseList& rows, bool whole, const NumberFormat& numbers);

}  // namespace korv
