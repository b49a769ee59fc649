#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/report_options.h"

namespace korv::reference {

/// The words of a filter text: lower-cased, cut at everything but letters, digits, "'" and "-".
std::vector<std::string> FilterWords(std::string_view text);

/// Whether the phrase passes. Whole words, but for the order of words, where any occurrence will do.
bool PassesFilter(std::string_view phrase, const std::vector<std::string>& words, FilterMode mode);

}  // namespace korv::reference
