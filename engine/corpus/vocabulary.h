#pragma once

#include <cstdint>
#include <string_view>

#include "base/growing_array.h"
#include "base/raw_vector.h"
#include "base/string_table.h"
#include "base/yielder.h"
#include "engine/corpus/indices.h"

namespace korv {

/// Whether a text can be a word: UTF-8 without blanks and control characters, and not empty.
bool IsWordText(std::string_view text);

/// The types of a run, that is its distinct words, by number.
///
/// Words are numbered in the order of their first appearance until Rank() renumbers them. From then on
///
///   a < b  ==  (Key(a), Text(a)) < (Key(b), Text(b))  for all words a and b, Key being
///   FoldKey(FoldAccents(Text)).
class Vocabulary {
 public:
  /// The number of `word`, a new one when it has not been seen. Not after Rank().
  WordNumber Number(std::string_view word);

  /// The number of `word`, or kNoWord where the run does not have it. Only after Rank(). Cost: a binary
  /// search with a Key in each step.
  WordNumber Find(std::string_view word) const;

  uint32_t Size() const {
    return static_cast<uint32_t>(begins_.empty() ? table_.Size() : begins_.size() - 2);
  }
  /// All words, in the order of their numbers.
  IndexRange<WordNumber> All() const { return {WordNumber{1}, WordNumber{Size()}}; }
  std::string_view Text(WordNumber word) const {
    const size_t w = ValueOf(word);
    if (begins_.empty()) return table_.Text(ValueOf(word) - 1);
    return {bytes_.data() + begins_[w], begins_[w + 1] - begins_[w]};
  }
  /// Its length in characters, 255 for all longer ones. These never stand in a phrase.
  uint8_t Characters(WordNumber word) const { return characters_[ValueOf(word)]; }

  /// Renumbers the words by Key, then Text. `renumbered[old]` becomes the new number of word `old`, and
  /// renumbered[0] == kNoWord. Costs a sort of the words. Returns false when stopped, with everything as it
  /// was.
  bool Rank(RawVector<WordNumber>& renumbered, const Yielder& yielder);
  bool Ranked() const { return !begins_.empty(); }
  /// Becomes the ranked vocabulary whose words stand one behind the other in `bytes`, word w ending before
  /// byte `ends[w - 1]`. False, with nothing taken, where there is no such vocabulary (a word is empty, holds
  /// a blank or a control character, is no UTF-8 or not greater than the one before) and when stopped. Finds
  /// the Keys of all words but plain ones.
  bool Restore(const RawVector<uint64_t>& ends, GrowingArray<char> bytes, const Yielder& yielder);
  /// Words with equal Keys have the same class, and classes ascend with the words. Only after Rank().
  uint32_t KeyClass(WordNumber word) const {
    return keyClasses_.empty() ? ValueOf(word) : keyClasses_[ValueOf(word)];
  }
  /// Whether no two words have equal Keys. Only after Rank().
  bool KeysDiffer() const { return keyClasses_.empty(); }
  /// The memory that the words take, in bytes. Only after Rank().
  uint64_t Bytes() const;

 private:
  StringTable table_;
  RawVector<uint8_t> characters_ = RawVector<uint8_t>(1, 0);
  // Only after Rank(). Word w is the bytes [begins_[w], begins_[w + 1]); begins_ has Size() + 2 elements.
  RawVector<uint64_t> begins_;
  GrowingArray<char> bytes_;
  RawVector<uint32_t> keyClasses_;  ///< By word. Empty where every word is a class of its own.
};

}  // namespace korv
