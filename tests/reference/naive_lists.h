#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/patterns/word_filters.h"

namespace korv::reference {

/// "~" is any run of characters, "?" one character, and what stands between angle brackets is a regular
/// expression, searched anywhere in the text. An invalid expression matches nothing.
bool MatchPattern(std::string_view text, std::string_view pattern, char anyRun, char anyChar,
                  bool caseSignificant);

/// The parts of `pattern` stand for the words of `phrase`, one each; both are joined by "+" (inside angle
/// brackets a "+" belongs to the expression). `matchPart` decides on a word and its part.
bool MatchPhrasePattern(std::string_view phrase, std::string_view pattern,
                        const std::function<bool(std::string_view word, std::string_view part)>& matchPart);

/// `text` cut at every `separator`; at those inside angle brackets only if asked to.
std::vector<std::string> Split(std::string_view text, char separator, bool insideBracketsToo = true);

/// The words to ignore and the count-only entries of a run, gone through one by one for every question. Only
/// what MatchPattern has answered before is remembered, so that thousands of small runs can be compared.
class Lists {
 public:
  explicit Lists(WordFilterSpec entries) : entries_(std::move(entries)) {}

  bool HasWordsToIgnore() const;
  bool IsWordToIgnore(std::string_view word) const;
  /// Whether the count-only entries, if there are any, admit the phrase (its words joined by "+").
  bool CountOnlyAdmits(std::string_view phrase) const;

 private:
  bool Match(std::string_view text, std::string_view pattern) const;
  /// One word against a one-word entry.
  bool MatchesOneWordEntry(std::string_view word, const std::string& entry, bool byPattern) const;

  WordFilterSpec entries_;
  mutable std::map<std::pair<std::string, std::string>, bool> answers_;
};

}  // namespace korv::reference
