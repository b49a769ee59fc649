#include "tests/reference/naive_offers.h"

#include <algorithm>

#include "tests/reference/naive_run.h"
#include "tests/reference/naive_text.h"

namespace korv::reference {

void Offers::TakeWord(std::string_view word) {
  if (!RulesDrop(word, rules_).empty()) return;
  const std::string folded = rules_.CaseSignificant ? std::string(word) : Lower(word);
  const bool ignored = lists_.IsWordToIgnore(folded);
  if (options_.IgnoreMode == IgnoreRule::Remove && ignored) return;
  if (rules_.Only7bitASCII && std::ranges::any_of(folded, [](char c) { return (c & 0x80) != 0; })) return;
  if (options_.IgnoreMode == IgnoreRule::ExcludeWith && ignored) return ResetPhrases();
  row_.push_back(folded);
  ++WordsInRows;
  LongestRow = std::max(LongestRow, std::min(options_.MaxWords, static_cast<int>(row_.size())));
  for (int k = options_.MinWords; k <= options_.MaxWords && k <= static_cast<int>(row_.size()); ++k)
    Classify({row_.end() - k, row_.end()});
}

void Offers::ResetPhrases() {
  row_.clear();
}

void Offers::Classify(const std::vector<std::string>& words) {
  ++Offered;
  std::string phrase;
  for (const std::string& word : words) phrase += (phrase.empty() ? "" : "+") + word;
  if (CharacterCount(phrase) > kMostPhraseCharacters)
    ++TooLong;
  else if (options_.IgnoreMode == IgnoreRule::ExcludeAll && lists_.HasWordsToIgnore() &&
           std::ranges::all_of(words, [&](const std::string& word) { return lists_.IsWordToIgnore(word); }))
    ++AllIgnored;
  else if (!lists_.CountOnlyAdmits(phrase))
    ++NotCountOnly;
}

}  // namespace korv::reference
