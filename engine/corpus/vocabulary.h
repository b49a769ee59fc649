#pragma once

#include <cstdint>
#include <string_view>

#include "base/growing_array.h"
#include "base/raw_vector.h"
#include "base/string_table.h"
#include "base/yielder.h"
#include "engine/corpus/indices.h"

namespace korv {

/// The distinct words of a run with what counting asks of each.
///
/// Numbers are given in the order of first appearance until Rank() renumbers the words by Key, then
/// Text; from then on comparing numbers compares words.
class Vocabulary {
 public:
  /// The number of `word`, a new one when it has not been seen. Not after Rank().
  WordNumber Number(std::string_view word);

  /// After Rank(): the number of `word`, kNoWord where the run does not have it. Cost: a Key for each step of
  /// a binary search.
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
  /// Its length in characters, at most 255: longer words never stand in a phrase.
  uint8_t Characters(WordNumber word) const { return characters_[ValueOf(word)]; }

  /// Orders the words by Key, then Text. `renumbered[old]` is the new number of word `old`; element 0 is 0.
  /// Cost: one sort of the distinct words. A stop leaves everything as it was.
  bool Rank(RawVector<WordNumber>& renumbered, const Yielder& yielder);
  bool Ranked() const { return !begins_.empty(); }
  /// After Rank(): words with equal Key have equal classes, and classes ascend with the words.
  uint32_t KeyClass(WordNumber word) const {
    return keyClasses_.empty() ? ValueOf(word) : keyClasses_[ValueOf(word)];
  }
  /// After Rank(): whether no two words have equal Keys, so that the order of numbers is the order of Keys.
  bool KeysDiffer() const { return keyClasses_.empty(); }

 private:
  StringTable table_;
  RawVector<uint8_t> characters_ = RawVector<uint8_t>(1, 0);
  // After Rank(): the words in order, one behind the other, indexed by number (element 0 is unused).
  RawVector<uint64_t> begins_;
  GrowingArray<char> bytes_;
  RawVector<uint32_t> keyClasses_;  ///< Empty where every word is a class of its own.
};

}  // namespace korv
