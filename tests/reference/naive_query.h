#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/analysis/phrase_query.h"

namespace korv::reference {

/// Whether a phrase passes a query, by looking at its text. Typographic signs of the query apart.
bool PassesQuery(std::string_view phrase, const PhraseQuery& query, bool caseSignificant);

/// The indices of the values in their order, without a value last, equal ones as they come.
std::vector<size_t> OrderOfValues(const std::vector<std::optional<double>>& values, bool descending);

/// Whether a value lies between two limits, where there are such.
bool WithinLimits(std::optional<double> value, std::optional<double> least, std::optional<double> most);

}  // namespace korv::reference
