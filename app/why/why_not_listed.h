#pragma once

#include <string_view>
#include <vector>

#include "app/run/result_notes.h"
#include "app/run/run.h"
#include "base/number_format.h"
#include "base/yielder.h"

namespace korv {

/// Answers "Why is it not listed?" for a typed phrase (UTF-8): which rules keep it out of the list, in the
/// order in which they act, or that it is listed; a note for each, with its way out. Empty when stopped. The
/// run must have its text. Cost: see FindPhraseFate().
std::vector<ResultNote> WhyNotListed(const CountedRun& run, std::string_view typed,
                                     const NumberFormat& numbers, Yielder& yielder);

}  // namespace korv
