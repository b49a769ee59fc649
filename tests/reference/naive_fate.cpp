#include "tests/reference/naive_fate.h"

#include <algorithm>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

std::string Joined(const std::vector<std::string>& words, char between) {
  std::string text;
  for (const std::string& word : words)
    text += (text.empty() ? std::string() : std::string(1, between)) + word;
  return text;
}

/// Whether the phrase stands from word `at` on when phrase ends are passed over, but not the end of a text.
bool StandsApart(const std::vector<std::string>& words, const std::vector<bool>& beginsSource, size_t at,
                 const std::vector<std::string>& phrase) {
  size_t found = 0;
  for (size_t i = at; i < words.size(); ++i) {
    if (i > at && beginsSource[i]) return false;
    if (words[i].empty() && i > at) continue;
    if (words[i] != phrase[found]) return false;
    if (++found == phrase.size()) return true;
  }
  return false;
}

}  // namespace

Fate FateOf(const CountingRun& run, const std::vector<bool>& beginsSource, const RunOptions& options,
            const WordFilterSpec& entries, const std::vector<std::string>& phrase) {
  Fate fate;
  const std::vector<std::string>& words = run.Words();
  fate.Occurrences = PlacesOf(words, phrase).size();
  if (fate.Occurrences == 0) {
    for (size_t i = 0; i < words.size(); ++i)
      if (StandsApart(words, beginsSource, i, phrase) && fate.Apart++ == 0) fate.FirstApart = i;
    fate.Causes = {fate.Apart > 0 ? "apart" : "never in a row"};
    return fate;
  }
  const Lists lists(entries);
  const std::string text = Joined(phrase, ' ');
  const auto addIf = [&](bool holds, const char* cause) {
    if (holds) fate.Causes.emplace_back(cause);
  };
  addIf(static_cast<int>(phrase.size()) < options.MinWords, "too few words");
  addIf(static_cast<int>(phrase.size()) > options.MaxWords, "too many words");
  addIf(CharacterCount(text) > kMostPhraseCharacters, "too long");
  addIf(options.IgnoreMode == IgnoreRule::ExcludeAll && lists.HasWordsToIgnore() &&
            std::ranges::all_of(phrase, [&](const std::string& word) { return lists.IsWordToIgnore(word); }),
        "all ignored");
  addIf(!lists.CountOnlyAdmits(Joined(phrase, '+')), "not count-only");
  addIf(static_cast<int>(fate.Occurrences) < options.MinFrequency, "too rare");
  if (!fate.Causes.empty()) return fate;

  const Table& table = run.Phrases();
  for (int32_t i = 1; i <= table.PhraseCount; ++i) {
    if (table[i].Listed && table[i].Text == text) {
      fate.Causes = {"listed"};
      fate.Rank = table[i].ChainPosition;
      return fate;
    }
  }
  fate.Causes = {"redundant"};
  for (int32_t i = 1; i <= table.PhraseCount; ++i)
    if (table[i].Listed && static_cast<size_t>(table[i].Count) == fate.Occurrences &&
        table[i].Text.size() > text.size() && table[i].Text.find(text) != std::string::npos &&
        (fate.Within.empty() || CharacterCount(table[i].Text) < CharacterCount(fate.Within)))
      fate.Within = table[i].Text;
  return fate;
}

}  // namespace korv::reference
