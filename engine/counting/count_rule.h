#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

/// Decides which phrases of a text count: the rule that excludes phrases of nothing but words to ignore, and
/// the count-only list.
///
/// Without count-only patterns for whole phrases (ByPhrase() is false) a phrase that counts still counts when
/// words are added to its end. FirstLength() then settles all phrases of a place.
class CountRule {
 public:
  /// Looks every word up in the filters once, on all threads. Sets `stopped`; after a stop the rule is of no
  /// use.
  CountRule(const PhraseTableData& data, Yielder& yielder, bool& stopped);

  /// Every phrase counts.
  bool AcceptsAll() const { return !excludeAll_ && !countOnly_; }
  /// Count-only patterns for whole phrases are in force: a phrase may count and a longer one not.
  bool ByPhrase() const { return byPhrase_; }

  /// Fewest words of a phrase from `first` on that counts for its words. The result may be more than there
  /// are words up to the next phrase end. Looks at up to `most` words.
  int FirstLength(const WordNumber* first, int most) const;
  /// Whether the phrase of `words` words from `first` on counts. `scratch` is overwritten.
  bool Accepts(const WordNumber* first, int words, std::string& scratch) const;

  bool IsWordToIgnore(WordNumber word) const { return (marks_[ValueOf(word)] & kIgnored) != 0; }
  bool IsCountOnlyWord(WordNumber word) const { return (marks_[ValueOf(word)] & kCountOnly) != 0; }
  bool ExcludesAllIgnored() const { return excludeAll_; }
  bool HasCountOnly() const { return countOnly_; }

 private:
  static constexpr uint8_t kIgnored = 1;
  static constexpr uint8_t kCountOnly = 2;

  const PhraseTableData& data_;
  bool excludeAll_;
  bool countOnly_;
  bool byPhrase_;
  std::vector<uint8_t> marks_;
};

}  // namespace korv
