#pragma once

#include "app/run/run.h"
#include "base/yielder.h"

namespace korv {

/// The word rules that a run of `request` goes by: its own, with the extra characters that they allow.
WordRules RulesInForce(const RunRequest& request);

/// Makes of `run` what a run of `request` is before anything is read: its word filters are compiled, and its
/// summary says what the request tells. After a stop the filters are of no use.
void BeginRun(const RunRequest& request, Yielder& yielder, CountedRun& run);

}  // namespace korv
