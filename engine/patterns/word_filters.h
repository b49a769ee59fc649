#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/yielder.h"

namespace korv {

/// The entries of the lists of a run. Texts are UTF-8 as CleanText() gives it.
struct WordFilterSpec {
  std::vector<std::string> FileWordsToIgnore;   ///< Lower-cased words in the order of the file.
  std::vector<std::string> TypedWordsToIgnore;  ///< As typed, cut at blanks outside angle brackets.
  /// Every words-to-ignore entry is a pattern, those of the file too. Else only typed entries that hold a
  /// sign of a pattern are.
  bool PatternMatchingInWordsToIgnoreFile = false;
  std::vector<std::string> CountOnly;  ///< Each a word, several words, or an expression.
  bool CaseSignificant = false;        ///< In patterns and expressions.
};

/// The words to ignore and the count-only entries of a run, compiled.
///
/// Making it compiles every pattern. A look-up costs one among the plain words, and a match with those
/// patterns that the word may match (see PatternSet): look each distinct word up once and keep the result.
/// Const members may be called from several threads at once.
class WordFilters {
 public:
  WordFilters();  ///< Ignores nothing, counts everything.
  explicit WordFilters(const WordFilterSpec& entries);
  /// The same for lists of any length: yields for every entry. After a stop the filters are of no use.
  WordFilters(const WordFilterSpec& entries, Yielder& yielder);
  ~WordFilters();
  WordFilters& operator=(WordFilters&&) noexcept;

  /// Whether there is an entry of words to ignore.
  bool HasWordsToIgnore() const;
  /// Whether `word`, as it stands in a phrase, is a word to ignore. It is lower-cased for that.
  bool IsWordToIgnore(std::string_view word) const;

  /// Whether there is a count-only entry.
  bool HasCountOnly() const;
  /// Whether `word` matches a count-only entry of one word. Every phrase that holds it counts. It is
  /// lower-cased for that.
  bool IsCountOnlyWord(std::string_view word) const;
  /// Whether there are count-only entries for whole phrases: of several words, or expressions with a blank.
  bool HasCountOnlyPhrases() const;
  /// Whether the phrase, its words joined by "+", matches such an entry.
  bool IsCountOnlyPhrase(std::string_view phrase) const;

 private:
  struct Lists;

  void Compile(const WordFilterSpec& entries, Yielder& yielder);

  std::unique_ptr<Lists> lists_;
};

}  // namespace korv
