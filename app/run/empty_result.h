#pragma once

#include "app/run/result_notes.h"

namespace korv {

/// Why a result has nothing to list: a note for every cause, each with its way out.
std::vector<ResultNote> CausesOfNothing(const ShownResult& result, const NumberFormat& numbers);

}  // namespace korv
