#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/run_lists.h"

namespace korv::naive {

/// "~" is any run of characters, "?" one character, and what stands between angle brackets is a regular
/// expression, searched anywhere in the text. An invalid expression matches nothing.
bool MatchPattern(std::string_view text, std::string_view pattern, char anyRun, char anyChar,
                  bool caseSignificant);

/// The parts of `pattern` stand for the words of `phrase`, one each; both are joined by "+" (inside angle
/// brackets a "+" belongs to the expression).
bool MatchPhrasePattern(std::string_view phrase, std::string_view pattern, bool caseSignificant);

/// `text` cut at every `separator`; at those inside angle brackets only if asked to.
std::vector<std::string> Split(std::string_view text, char separator, bool insideBracketsToo = true);

/// The words to ignore and the count-only entries of a run, gone through one by one for every question.
class Lists {
 public:
  explicit Lists(ListEntries entries) : entries_(std::move(entries)) {}

  bool HasWordsToIgnore() const;
  bool IsWordToIgnore(std::string_view word) const;
  /// Whether the count-only entries, if there are any, admit the phrase (its words joined by "+").
  bool CountOnlyAdmits(std::string_view phrase) const;

 private:
  ListEntries entries_;
};

}  // namespace korv::naive
