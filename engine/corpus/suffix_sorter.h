#pragma once

#include <cstdint>
#include <span>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "engine/corpus/vocabulary.h"

namespace korv {

/// The text from one place on, as a suffix array orders it.
struct Suffix {
  uint64_t Key;     ///< The next few words, packed. Only of use while sorting.
  Place At;         ///< Its first token.
  WordNumber Left;  ///< The token before it: kNoWord where phrases do not reach back.
};

/// Sorts places of a text by the words that follow them, as far as the longest phrase and no further than the
/// next kNoWord, and finds the longest common prefix (LCP) of neighbours, in words: a suffix array of bounded
/// depth, bucket by bucket. Places with equal words ascend. tests/engine compares it with the reference
/// model.
///
/// Word numbers take few bits, so that three or four of them make one 64-bit key. A bucket of places with the
/// same first word is sorted by the key of the next words (radix sort, most significant digit first; short
/// runs by insertion), and only runs of equal keys are looked at again, with the key of the words behind.
/// Expected time is linear in the places; memory is 33 bytes a place of the largest bucket, or part of one
/// (counting/bucket_splitter.h). Each thread uses an object of its own.
class SuffixSorter {
 public:
  /// `tokens` ends with kTrailingEnds times kNoWord and outlives the object; `vocabularySize` bounds its
  /// values. Sorting goes no deeper than `maxWords`.
  SuffixSorter(std::span<const WordNumber> tokens, uint32_t vocabularySize, int maxWords,
               const Yielder& yielder);

  /// Sorts the places, which ascend and all start with the same word. After a stop the result is of no use.
  void Sort(std::span<const Place> places);

  std::span<const Suffix> Suffixes() const { return suffixes_; }
  /// Lcp()[i]: how many words Suffixes()[i] has in common with its predecessor. Lcp()[0] == 0.
  std::span<const uint8_t> Lcp() const { return lcp_; }

 private:
  uint64_t KeyAt(Place place, int depth) const;
  void SortRun(size_t begin, size_t end, int depth);
  void SortPair(size_t begin, int depth);
  size_t EndOfEqualKeys(size_t begin, size_t end) const;
  void FindLcp(size_t begin, size_t end, int depth);
  void FillLcp(size_t begin, size_t end, int depth);
  void SortByKey(Suffix* a, Suffix* spare, size_t n);

  std::span<const WordNumber> tokens_;
  int maxWords_;
  const Yielder& yielder_;
  int wordBits_;
  int wordsPerKey_;
  RawVector<Suffix> suffixes_;
  RawVector<Suffix> spare_;
  RawVector<uint8_t> lcp_;
};

}  // namespace korv
