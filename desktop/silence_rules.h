#pragma once

#include <span>

#include "desktop/toolkit/silenced_questions.h"

namespace korv {

/// The questions of the program that may be silenced. The others are asked every time: their answer depends
/// on what has just been done, or loses something.
std::span<const SilenceRule> SilenceRules();

}  // namespace korv
