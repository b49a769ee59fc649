#include "tests/reference/naive_lists.h"

#include <algorithm>
#include <regex>

#include "tests/reference/naive_text.h"

namespace korv::reference {
namespace {

bool IsBracketed(std::string_view entry) {
  return entry.size() >= 2 && entry.front() == '<' && entry.back() == '>';
}

/// One expression and nothing beside it.
bool IsSingleExpression(std::string_view entry) {
  return IsBracketed(entry) && entry.find('>') == entry.size() - 1;
}

bool HoldsPattern(std::string_view entry) {
  return entry.find_first_of("~?<>") != std::string_view::npos;
}

bool HoldsBlank(std::string_view entry) {
  return entry.find(' ') != std::string_view::npos;
}

std::wstring Wide(std::string_view text) {
  std::wstring wide;
  for (char32_t character : Decode(text)) wide += static_cast<wchar_t>(character);
  return wide;
}

std::string ReplaceAll(std::string text, char what, std::string_view by) {
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, 1, by);
  }
  return text;
}

}  // namespace

bool MatchPattern(std::string_view text, std::string_view pattern, char anyRun, char anyChar,
                  bool caseSignificant) {
  std::string expression;
  std::string searched(text);
  if (IsBracketed(pattern)) {
    expression = pattern.substr(1, pattern.size() - 2);
    if (expression.empty()) return false;
  } else {
    expression = std::string(pattern);
    // The library at hand folds case within ASCII only.
    if (!caseSignificant) {
      expression = Fold(expression);
      searched = Fold(searched);
    }
    expression = "^" + ReplaceAll(ReplaceAll(expression, anyRun, ".*"), anyChar, ".") + "$";
    if (expression == "^.*$") return true;
  }
  auto flags = std::regex::ECMAScript;
  if (!caseSignificant) flags |= std::regex::icase;
  try {
    return std::regex_search(Wide(searched), std::wregex(Wide(expression), flags));
  } catch (const std::regex_error&) {
    return false;
  }
}

bool MatchPhrasePattern(std::string_view phrase, std::string_view pattern,
                        const std::function<bool(std::string_view word, std::string_view part)>& matchPart) {
  std::vector<std::string> words = Split(phrase, '+');
  std::vector<std::string> parts = Split(pattern, '+', false);
  if (words.size() != parts.size()) return false;
  for (size_t i = 0; i < words.size(); ++i) {
    if (!matchPart(words[i], parts[i])) return false;
  }
  return true;
}

std::vector<std::string> Split(std::string_view text, char separator, bool insideBracketsToo) {
  std::vector<std::string> parts{""};
  bool inside = false;
  for (char c : text) {
    if (c == '<') inside = true;
    if (c == '>') inside = false;
    if (c == separator && (insideBracketsToo || !inside)) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

bool Lists::Match(std::string_view text, std::string_view pattern) const {
  auto [answer, isNew] = answers_.try_emplace({std::string(text), std::string(pattern)}, false);
  if (isNew) answer->second = MatchPattern(text, pattern, '~', '?', entries_.CaseSignificant);
  return answer->second;
}

bool Lists::MatchesOneWordEntry(std::string_view word, const std::string& entry, bool byPattern) const {
  const std::string lowered = IsBracketed(entry) ? entry : Fold(entry);
  return byPattern ? Match(Fold(word), lowered) : Fold(word) == lowered;
}

bool Lists::HasWordsToIgnore() const {
  return !entries_.FileWordsToIgnore.empty() || !entries_.TypedWordsToIgnore.empty();
}

bool Lists::IsWordToIgnore(std::string_view word) const {
  const bool all = entries_.PatternMatchingInWordsToIgnoreFile;
  auto matches = [&](const std::string& entry, bool byPattern) {
    return MatchesOneWordEntry(word, entry, byPattern);
  };
  return std::any_of(entries_.FileWordsToIgnore.begin(), entries_.FileWordsToIgnore.end(),
                     [&](const std::string& entry) { return matches(entry, all); }) ||
         std::any_of(entries_.TypedWordsToIgnore.begin(), entries_.TypedWordsToIgnore.end(),
                     [&](const std::string& entry) { return matches(entry, all || HoldsPattern(entry)); });
}

bool Lists::CountOnlyAdmits(std::string_view phrase) const {
  if (entries_.CountOnly.empty()) return true;
  const std::vector<std::string> words = Split(phrase, '+');
  for (const std::string& entry : entries_.CountOnly) {
    if (IsSingleExpression(entry) && HoldsBlank(entry)) {
      std::string spaced(phrase);
      std::replace(spaced.begin(), spaced.end(), '+', ' ');
      if (Match(spaced, entry)) return true;
      continue;
    }
    std::vector<std::string> parts = Split(entry, ' ', false);
    if (parts.size() > 1) {
      std::string pattern = parts[0];
      for (size_t i = 1; i < parts.size(); ++i) pattern += "+" + parts[i];
      auto matchPart = [&](std::string_view word, std::string_view part) { return Match(word, part); };
      if (MatchPhrasePattern(phrase, pattern, matchPart)) return true;
      continue;
    }
    for (const std::string& word : words) {
      if (MatchesOneWordEntry(word, entry, HoldsPattern(entry))) return true;
    }
  }
  return false;
}

}  // namespace korv::reference
