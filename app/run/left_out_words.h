#pragma once

#include "engine/text/word_counts.h"
#include "engine/text/word_rules.h"

namespace korv {

/// `rules` without those that left words out of a run, so that these are counted the next time; too long ones
/// are let in as far as the setting goes. Words to ignore stay as they are: the user has listed them.
WordRules RulesThatTake(WordRules rules, const WordCounts& leftOut);

}  // namespace korv
