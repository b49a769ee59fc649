#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/patterns/list_entry.h"
#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"

namespace korv {

/// The matching rules, one phrase and pattern at a time. A counting run uses WordFilters instead, which gives
/// the same results with all patterns compiled beforehand.

/// Whether `text` matches `pattern` (see Pattern). Compiles the pattern each time.
bool MatchPattern(std::string_view text, std::string_view pattern, char anyRun, char anyChar,
                  bool caseSignificant);

/// Whether a phrase, its words joined by "+", matches a pattern, its parts joined by "+" outside angle
/// brackets. There must be as many parts as words, and every word must match its part. The last part in angle
/// brackets that was compared is stored in `currentExpression`, where given and where there was one.
bool MatchPhrasePattern(std::string_view phrase, std::string_view pattern, bool caseSignificant,
                        std::string* currentExpression = nullptr);

/// A list entry of several words as such a pattern: each run of blanks outside angle brackets becomes one
/// "+", and those at the ends go.
std::string PhrasePattern(std::string_view entry);

/// Sets a flag for each word of `phrase` (joined by "+"): whether it is a word to ignore. Returns whether the
/// phrase counts in `mode`. Without words to ignore every phrase does.
bool MarkListedWords(std::string_view phrase, IgnoreRule mode, const WordFilters& lists,
                     std::vector<bool>& flags);

/// `phrase` (words joined by "+" or blanks) without its words to ignore. The others are joined by single
/// blanks. Empty when none is left.
std::string StripPhrase(std::string_view phrase, const WordFilters& lists);

}  // namespace korv
