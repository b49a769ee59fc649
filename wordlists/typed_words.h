#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/text/word_rules.h"
#include "platform/messages.h"
#include "wordlists/list_kind.h"

namespace korv {

/// Typed text in the form that lists use: well-formed UTF-8 in NFC with typographic quotes replaced. Tabs and
/// line ends outside angle brackets become blanks.
std::string NormaliseTypedText(std::string_view typed);

/// The entries of typed text: words to ignore are separated by blanks, count-only entries by comma and
/// blank, both outside angle brackets only. Entries are trimmed, empty ones left out.
std::vector<std::string> SplitTypedEntries(ListKind kind, std::string_view typed);

/// Looks at the typed entries outside angle brackets and shows a message for the first fault: a character
/// that the rules do not let into a word, a comma where none belongs, a "^" that hints at a forgotten
/// bracket. True if there was none. The text is used as typed in any case.
bool CheckAllowedExtraChars(ListKind kind, std::string_view typed, const WordRules& rules,
                            Messages& messages);

/// The first character of a list entry, outside angle brackets, that could stand in no word under `rules`;
/// empty when there is none. Blanks and wildcards are allowed everywhere.
std::string CheckForNonAlphaNumeric(std::string_view entry, const WordRules& rules);

}  // namespace korv
