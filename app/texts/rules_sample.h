#pragma once

#include <string>
#include <string_view>

#include "engine/text/word_rules.h"

namespace korv {

/// Stand for what cannot be seen in one line of text: the end of a line (U+00B6) and a tab (U+21E5).
inline constexpr std::string_view kLineEndMark = "\xC2\xB6";
inline constexpr std::string_view kTabMark = "\xE2\x87\xA5";

/// A text in which every word rule finds something to do, with the marks above.
std::string RulesSample();

/// The words that a run under `rules` would find in `sample` (UTF-8, with the marks above), as they would be
/// counted: " | " between two words of which phrases can go from one to the next, " || " where none may go
/// on. Words to ignore are not considered. Empty when no word is left. Costs one reading of the text.
std::string WordsOfSample(std::string_view sample, const WordRules& rules);

}  // namespace korv
