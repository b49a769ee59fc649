#pragma once

#include "app/run/run.h"
#include "engine/counting/phrase_sums.h"

namespace korv {

/// Reads the counts of a request, of its Stream or of the single file InputPath, and notes in the
/// run's summary how many there were. What is refused is shown. Counted, Refused, or Stopped: a part of
/// counts is worth nothing.
RunEnd ReadCountsOf(const RunRequest& request, const RunServices& services, PhraseSums& sums,
                    RunSummary& facts);

}  // namespace korv
