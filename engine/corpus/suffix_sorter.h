#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/yielder.h"
#include "engine/corpus/vocabulary.h"

namespace korv {

/// A place in the text where phrases start.
struct Suffix {
  uint64_t Key;       ///< The next few words, packed; only of use while sorting.
  uint32_t Position;  ///< Index of its first word.
  WordNumber Left;    ///< The word before it, kNoWord where phrases do not reach back.
};

/// Orders places of the text by the words that follow, up to the longest phrase and no further than the
/// next kNoWord, and tells how many words neighbours share. Tested in tests/engine against the reference
/// model.
///
/// Word numbers take few bits, so that three or four of them make one 64-bit key: a bucket of places
/// with the same first word is sorted by the next three words in one go (most significant digit first,
/// short runs by insertion), and only runs that agree in all of them are looked at again. Expected time
/// is proportional to the number of places. Each thread uses an object of its own.
class SuffixSorter {
 public:
  /// `numbers` ends with kMostWords + 1 times kNoWord and outlives the object; `vocabularySize` bounds its
  /// values. Sorting goes no deeper than `maxWords`.
  SuffixSorter(std::span<const WordNumber> numbers, uint32_t vocabularySize, int maxWords,
               const Yielder& yielder);

  /// Sorts the places, which all start with the same word. After a stop the result is of no use.
  void Sort(std::span<const uint32_t> positions);

  std::span<const Suffix> Suffixes() const { return suffixes_; }
  /// Lcp()[i]: how many words Suffixes()[i] has in common with its predecessor; [0] is 0.
  std::span<const uint8_t> Lcp() const { return lcp_; }

 private:
  uint64_t KeyAt(uint32_t position, int depth) const;
  void SortFrom(size_t begin, size_t end, int depth);
  void SortPair(size_t begin, int depth);
  void FindLcp(size_t begin, size_t end, int depth);
  void SortByKey(Suffix* a, Suffix* spare, size_t n);

  std::span<const WordNumber> numbers_;
  int maxWords_;
  const Yielder& yielder_;
  int wordBits_;
  int wordsPerKey_;
  std::vector<Suffix> suffixes_;
  std::vector<Suffix> spare_;
  std::vector<uint8_t> lcp_;
};

}  // namespace korv
