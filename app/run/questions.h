#pragma once

#include "platform/messages.h"

/// What a run asks.
namespace korv::questions {

/// Raise the minimum frequency from 1 to 2?
inline constexpr Question kMinimumFrequency{"MinimumFrequency"};
/// Keep the filter words for the new result?
inline constexpr Question kKeepFilter{"KeepFilter"};
/// Stop the run that is going on?
inline constexpr Question kReallyStop{"ReallyStop"};
/// List what was found before the stop?
inline constexpr Question kCountingInterrupted{"CountingInterrupted"};

}  // namespace korv::questions
