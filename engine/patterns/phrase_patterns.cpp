#include "engine/patterns/phrase_patterns.h"

#include <algorithm>
#include <functional>

namespace korv {

size_t PhrasePatterns::KeyHash::operator()(const Key& key) const {
  return std::hash<std::string>{}(key.second) ^ (key.first.first << 8 | key.first.second);
}

void PhrasePatterns::AddParts(const std::vector<std::string>& parts) {
  Entry entry;
  std::string_view plain;
  size_t plainAt = 0;
  for (const std::string& part : parts) entry.emplace_back(part, caseSignificant_);
  for (size_t i = 0; i < entry.size(); ++i) {
    std::string_view literal;
    // The longest plain part is likely to be the rarest.
    if (entry[i].IsLiteral(literal) && literal.size() > plain.size()) {
      plain = literal;
      plainAt = i;
    }
  }
  const size_t number = entries_.size();
  if (plain.empty())
    byWordCount_[parts.size()].push_back(number);
  else
    byPlainPart_[{{parts.size(), plainAt}, std::string(plain)}].push_back(number);
  entries_.push_back(std::move(entry));
}

void PhrasePatterns::AddWholePhrase(std::string_view expression) {
  wholePhrases_.AddPattern(expression);
  hasWholePhrases_ = true;
}

bool PhrasePatterns::Matches(std::string_view phrase) const {
  if (!entries_.empty()) {
    std::vector<std::string_view> words;
    std::vector<std::string> folded;
    for (size_t at = 0;;) {
      const size_t end = std::min(phrase.find('+', at), phrase.size());
      words.push_back(phrase.substr(at, end - at));
      folded.push_back(FoldForMatching(words.back(), caseSignificant_));
      if (end == phrase.size()) break;
      at = end + 1;
    }
    const auto anyMatches = [&](const std::vector<size_t>& numbers) {
      return std::any_of(numbers.begin(), numbers.end(),
                         [&](size_t number) { return EntryMatches(entries_[number], words, folded); });
    };
    if (!byPlainPart_.empty()) {
      for (size_t i = 0; i < words.size(); ++i) {
        const auto found = byPlainPart_.find({{words.size(), i}, folded[i]});
        if (found != byPlainPart_.end() && anyMatches(found->second)) return true;
      }
    }
    const auto found = byWordCount_.find(words.size());
    if (found != byWordCount_.end() && anyMatches(found->second)) return true;
  }
  if (!hasWholePhrases_) return false;
  std::string text(phrase);
  std::replace(text.begin(), text.end(), '+', ' ');
  return wholePhrases_.Matches(text);
}

bool PhrasePatterns::EntryMatches(const Entry& entry, const std::vector<std::string_view>& words,
                                  const std::vector<std::string>& folded) const {
  for (size_t i = 0; i < entry.size(); ++i)
    if (!entry[i].MatchesFolded(words[i], folded[i])) return false;
  return true;
}

}  // namespace korv
