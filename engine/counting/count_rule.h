#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

/// Which phrases count, of those that the text offers: what the words-to-ignore mode and the count-only
/// list decide phrase by phrase.
///
/// Without entries for whole phrases the answer grows with the phrase: where a phrase counts, every longer
/// one from the same place does. FirstLength() is then all there is to know of a place.
class CountRule {
 public:
  /// Asks the lists once per distinct word, on all threads. False in `stopped` when that was not finished.
  CountRule(const PhraseTableData& data, Yielder& yielder, bool& stopped);

  /// No list decides anything: every phrase counts.
  bool AcceptsAll() const { return !excludeAll_ && !countOnly_; }
  /// Entries for whole phrases are in force, so that a phrase may count and a longer one not.
  bool ByPhrase() const { return byPhrase_; }

  /// Fewest words of a phrase at `position` that is accepted for its words; may exceed what the place
  /// offers. Cost: up to `most` words.
  int FirstLength(const WordNumber* first, int most) const;
  /// Whether the phrase of `words` words counts.
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
