// Any lines as patterns, the last one as the word: many patterns asked together give the answer that they
// give one by one, and wildcards the answer of the expression that they stand for.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "engine/patterns/matching.h"
#include "engine/patterns/pattern_set.h"
#include "engine/patterns/regex.h"
#include "engine/text/unicode.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

std::string WellFormed(std::string_view bytes) {
  std::string text;
  for (size_t at = 0; at < bytes.size();) AppendCharacter(NextCharacter(bytes, at), text);
  return text;
}

/// The rules as they are put in words: brackets, else "^", every "~" as ".*" and every "?" as ".", "$".
Regex::Outcome MatchPlainly(std::string_view text, std::string_view pattern, bool caseSignificant) {
  if (pattern.size() >= 2 && pattern.front() == '<' && pattern.back() == '>') {
    if (pattern.size() == 2) return Regex::Outcome::NoMatch;
    return Regex(pattern.substr(1, pattern.size() - 2), caseSignificant).Try(text);
  }
  std::string expression = "^";
  for (const char c : pattern) {
    if (c == '~')
      expression += ".*";
    else if (c == '?')
      expression += '.';
    else
      expression += c;
  }
  expression += '$';
  if (expression == "^.*$") return Regex::Outcome::Match;
  return Regex(expression, caseSignificant).Try(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostBytes = 600;
  constexpr size_t kMostWordBytes = 60;
  if (size < 2 || size > kMostBytes) return 0;
  const bool caseSignificant = (data[0] & 1) != 0;
  std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::vector<std::string> patterns;
  for (size_t end = rest.find('\n'); end != rest.npos; end = rest.find('\n')) {
    patterns.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end + 1);
  }
  const std::string word = WellFormed(rest.substr(0, kMostWordBytes));

  PatternSet set(caseSignificant);
  WordFilterSpec entries;
  entries.CaseSignificant = caseSignificant;
  bool any = false;
  bool certain = true;  // Where one gives up at a limit, being asked together may cost fewer steps.
  for (const std::string& pattern : patterns) {
    const Regex::Outcome outcome = MatchPlainly(word, pattern, caseSignificant);
    certain = certain && outcome != Regex::Outcome::GaveUp;
    const bool alone = MatchPattern(word, pattern, kAnyRun, kAnyChar, caseSignificant);
    Require(alone == (outcome == Regex::Outcome::Match));
    any = any || alone;
    set.AddPattern(pattern);
    entries.CountOnly.push_back(pattern);
  }
  const bool unprepared = set.Matches(word);
  NoYielder yielder;
  set.Prepare(yielder);
  if (certain) Require(unprepared == any && set.Matches(word) == any);

  entries.TypedWordsToIgnore = entries.CountOnly;
  const WordFilters lists(entries);
  std::vector<bool> flags;
  MarkListedWords(word + "+" + word, IgnoreRule::ExcludeAll, lists, flags);
  Require(flags.size() >= 2 && flags.front() == lists.IsWordToIgnore(word.substr(0, word.find('+'))));
  lists.IsCountOnlyWord(word);
  lists.IsCountOnlyPhrase(word + "+" + word);
  for (const std::string& pattern : patterns)
    MatchPhrasePattern(word + "+" + word, PhrasePattern(pattern), caseSignificant);
  return 0;
}
