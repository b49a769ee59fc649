#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/text/word_counts.h"
#include "engine/text/word_rules.h"

namespace korv {

/// The first of the rules by form that drops a word (UTF-8, as cut): shorter than ShortWordSize, longer than
/// LongWordSize, without a letter, or with one letter four times in a row without regard to case. Nothing:
/// none does.
std::optional<DropReason> DroppedByForm(std::string_view word, const WordRules& rules);

/// A word as it stands in phrases: its case is folded unless that is significant.
std::string FoldedWord(std::string_view word, const WordRules& rules);

/// Whether every character has a code below 128.
bool Is7bit(std::string_view word);

}  // namespace korv
