#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// What the lists of one run hold. Texts are UTF-8 in NFC with typographic apostrophes already replaced.
struct WordFilterSpec {
  std::vector<std::string> FileWordsToIgnore;   ///< As read: lower-cased words, in file order.
  std::vector<std::string> TypedWordsToIgnore;  ///< As typed, split at blanks outside angle brackets.
  /// Patterns in the file count as patterns; every words-to-ignore entry then goes through MatchPattern.
  bool PatternMatchingInWordsToIgnoreFile = false;
  std::vector<std::string> CountOnly;  ///< One entry each: a word, several words, or an expression.
  bool CaseSignificant = false;        ///< Of patterns and expressions.
};

/// The words to ignore and the count-only entries of one run, ready to be asked.
///
/// Setting up costs a compilation per pattern. A word costs a look-up among the plain words and a test of
/// those patterns that it could match (see pattern_set.h), so ask once per distinct word and remember.
/// Everything const may be called from several threads at once.
class WordFilters {
 public:
  WordFilters();  ///< No lists: nothing is ignored, everything is counted.
  explicit WordFilters(const WordFilterSpec& entries);
  ~WordFilters();
  WordFilters& operator=(WordFilters&&) noexcept;

  /// Whether a words-to-ignore list with at least one entry is in force.
  bool HasWordsToIgnore() const;
  /// Whether `word` (as it stands in a phrase) is on the words-to-ignore list. It is lower-cased for that.
  bool IsWordToIgnore(std::string_view word) const;

  /// Whether a count-only list is in force at all.
  bool HasCountOnly() const;
  /// Whether `word` matches a one-word count-only entry: every phrase that holds it is counted. It is
  /// lower-cased for that.
  bool IsCountOnlyWord(std::string_view word) const;
  /// Whether there are entries that match whole phrases (several words, or an expression with a blank).
  bool HasCountOnlyPhrases() const;
  /// Whether the whole phrase, its words joined by "+", matches such an entry.
  bool IsCountOnlyPhrase(std::string_view phrase) const;

 private:
  struct Lists;
  std::unique_ptr<Lists> lists_;
};

}  // namespace korv
