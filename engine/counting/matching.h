#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/counting/run_options.h"
#include "engine/counting/word_filters.h"
#include "engine/patterns/list_entry.h"

namespace korv {

/// The four matching rules one phrase or pattern at a time. The counting run asks WordFilters, which gives
/// the same answers with everything compiled beforehand.

/// Whether `text` matches `pattern` (see Pattern). Compiles the pattern: for single questions.
bool MatchPattern(std::string_view text, std::string_view pattern, char anyRun, char anyChar,
                  bool caseSignificant);

/// Whether a phrase (its words joined by "+") matches a pattern of several parts (joined by "+" outside
/// angle brackets): as many parts as words, and every word matches its part. `currentExpression`, where
/// given, gets the last part in angle brackets that was met, and is left alone when there was none.
bool MatchPhrasePattern(std::string_view phrase, std::string_view pattern, bool caseSignificant,
                        std::string* currentExpression = nullptr);

/// A list entry of several words as such a pattern: blanks outside angle brackets become "+", several in a
/// row one, and none at the ends.
std::string PhrasePattern(std::string_view entry);

/// Sets a flag for each word of `phrase` (joined by "+"): whether it is on the words-to-ignore list. Says
/// whether the phrase counts in `mode`. Without a list in force every phrase does.
bool MarkListedWords(std::string_view phrase, IgnoreRule mode, const WordFilters& lists,
                     std::vector<bool>& flags);

/// `phrase` (words joined by "+" or blanks) without its words to ignore, the rest joined by single blanks;
/// empty when nothing is left.
std::string StripPhrase(std::string_view phrase, const WordFilters& lists);

}  // namespace korv
