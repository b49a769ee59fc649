#pragma once

#include "app/run/run_observer.h"

namespace korv {

/// How much of a run lies behind it, of 1,000; below 0 where nobody can tell.
int ProgressValue(const RunProgress& progress);

}  // namespace korv
