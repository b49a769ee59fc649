#include "engine/patterns/matching.h"

#include <algorithm>

#include "engine/patterns/pattern.h"

namespace korv {

bool MatchPattern(std::string_view text, std::string_view pattern, char anyRun, char anyChar,
                  bool caseSignificant) {
  return Pattern(pattern, caseSignificant, anyRun, anyChar).Matches(text);
}

bool MatchPhrasePattern(std::string_view phrase, std::string_view pattern, bool caseSignificant,
                        std::string* currentExpression) {
  const std::vector<std::string_view> parts = SplitOutsideBrackets(pattern, '+');
  if (static_cast<size_t>(std::count(phrase.begin(), phrase.end(), '+')) + 1 != parts.size()) return false;
  size_t at = 0;
  for (const std::string_view part : parts) {
    if (currentExpression != nullptr && part.size() >= 2 && part.front() == '<' && part.back() == '>')
      *currentExpression = part;
    const size_t end = std::min(phrase.find('+', at), phrase.size());
    if (!MatchPattern(phrase.substr(at, end - at), part, kAnyRun, kAnyChar, caseSignificant)) return false;
    at = end + 1;
  }
  return true;
}

std::string PhrasePattern(std::string_view entry) {
  std::string pattern;
  for (const std::string_view part : SplitOutsideBrackets(entry, ' ')) {
    if (part.empty()) continue;
    if (!pattern.empty()) pattern += '+';
    pattern += part;
  }
  return pattern;
}

bool MarkListedWords(std::string_view phrase, IgnoreRule mode, const WordFilters& lists,
                     std::vector<bool>& flags) {
  flags.clear();
  for (size_t at = 0;;) {
    const size_t end = std::min(phrase.find('+', at), phrase.size());
    flags.push_back(lists.IsWordToIgnore(phrase.substr(at, end - at)));
    if (end == phrase.size()) break;
    at = end + 1;
  }
  switch (mode) {
    case IgnoreRule::ExcludeWith:
      return std::find(flags.begin(), flags.end(), true) == flags.end();
    case IgnoreRule::ExcludeAll:
      return std::find(flags.begin(), flags.end(), false) != flags.end();
    case IgnoreRule::Allow:
    case IgnoreRule::Remove:
      break;
  }
  return true;
}

std::string StripPhrase(std::string_view phrase, const WordFilters& lists) {
  constexpr std::string_view kSeparators = "+ ";
  std::string stripped;
  for (size_t at = 0; at < phrase.size();) {
    const size_t end = std::min(phrase.find_first_of(kSeparators, at), phrase.size());
    const std::string_view word = phrase.substr(at, end - at);
    if (!word.empty() && !lists.IsWordToIgnore(word)) {
      if (!stripped.empty()) stripped += ' ';
      stripped += word;
    }
    at = end + 1;
  }
  return stripped;
}

}  // namespace korv
