#pragma once

#include <string>

#include "app/settings/settings.h"
#include "engine/run_options.h"
#include "engine/text/word_rules.h"

namespace korv {

/// What a word is and where phrases end, in one plain sentence without a period: "Words of 3 to 50 letters,
/// with hyphens; case ignored; phrases end at periods, double quotes and tabs".
std::string WordRulesText(const WordRules& rules);

/// Which reading is in force, and what it adds that WordRulesText() does not tell.
std::string ReadingText(const Settings& settings);

/// "Phrases of 4 to 6 words that occur at least twice"
std::string PhrasesText(const RunOptions& options);

}  // namespace korv
