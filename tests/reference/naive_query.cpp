#include "tests/reference/naive_query.h"

#include <algorithm>

#include "tests/reference/naive_lists.h"
#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

std::vector<std::string> WordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (const std::string& word : Split(text, ' '))
    if (!word.empty()) words.push_back(word);
  return words;
}

std::string Joined(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

bool HoldsRow(const std::vector<std::string>& words, const std::vector<std::string>& row) {
  return std::search(words.begin(), words.end(), row.begin(), row.end()) != words.end();
}

bool IsWild(std::u32string_view text, std::u32string_view pattern) {
  if (pattern.empty()) return text.empty();
  if (pattern[0] == U'*')
    return IsWild(text, pattern.substr(1)) || (!text.empty() && IsWild(text.substr(1), pattern));
  return !text.empty() && (pattern[0] == U'?' || pattern[0] == text[0]) &&
         IsWild(text.substr(1), pattern.substr(1));
}

bool Matches(const std::string& phrase, const std::string& sought, MatchMode mode, bool caseSignificant) {
  const std::vector<std::string> words = WordsOf(phrase);
  const std::vector<std::string> row = WordsOf(sought);
  switch (mode) {
    case MatchMode::Contains:
      return phrase.find(sought) != std::string::npos;
    case MatchMode::WholeWords:
      return HoldsRow(words, row);
    case MatchMode::StartsWith:
      return phrase.starts_with(sought);
    case MatchMode::EndsWith:
      return phrase.ends_with(sought);
    case MatchMode::Wildcards:
      return IsWild(Decode(phrase), Decode(sought));
    case MatchMode::Expression:
      return MatchPattern(phrase, "<" + sought + ">", '~', '?', caseSignificant);
    case MatchMode::WordsInAnyOrder:
      return std::ranges::all_of(row, [&](const std::string& word) { return HoldsRow(words, {word}); });
  }
  return false;
}

}  // namespace

bool PassesQuery(std::string_view phrase, const PhraseQuery& query, bool caseSignificant) {
  const bool expression = query.Mode == MatchMode::Expression;
  std::string sought = Nfc(query.Text);
  if (!expression) {
    std::ranges::replace(sought, '\t', ' ');
    sought = Joined(WordsOf(sought));
  }
  bool excludes = query.Not;
  if (!sought.empty() && sought[0] == '-') {
    excludes = true;
    sought = sought.substr(1);
    if (!expression) sought = Joined(WordsOf(sought));
  }
  if (sought.empty()) return true;
  if (!expression && !caseSignificant) sought = Fold(sought);
  std::string text(phrase);
  if (query.FoldAccents) {
    sought = FoldAccents(sought);
    text = FoldAccents(text);
  }
  return Matches(text, sought, query.Mode, caseSignificant) != excludes;
}

std::vector<size_t> OrderOfValues(const std::vector<std::optional<double>>& values, bool descending) {
  std::vector<size_t> order;
  for (size_t i = 0; i < values.size(); ++i) order.push_back(i);
  std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
    if (!values[a] || !values[b]) return values[a].has_value() && !values[b].has_value();
    return descending ? *values[a] > *values[b] : *values[a] < *values[b];
  });
  return order;
}

bool WithinLimits(std::optional<double> value, std::optional<double> least, std::optional<double> most) {
  if (!least && !most) return true;
  if (!value) return false;
  return (!least || *value >= *least) && (!most || *value <= *most);
}

}  // namespace korv::reference
