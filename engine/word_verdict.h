#pragma once

#include <string_view>

#include "engine/word_rules.h"

namespace korv {

/// Whether the rules by form drop a word (UTF-8, as cut): shorter than ShortWordSize, longer than
/// LongWordSize, without a letter, or with one letter four times in a row, case aside.
bool IsDroppedByForm(std::string_view word, const WordRules& rules);

/// Whether every character has a code below 128.
bool Is7bit(std::string_view word);

}  // namespace korv
