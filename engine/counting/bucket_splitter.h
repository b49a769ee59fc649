#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "engine/corpus/vocabulary.h"

namespace korv {

/// Places [Begin, End) of a bucket, which come before those of the next part in the order of their words.
struct BucketPart {
  size_t Begin;
  size_t End;
  int Common;  ///< How many words the first place, once sorted, shares with the last one before; else 0.
  /// All places have this many words in common, which is as far as they are compared, and ascend: they are
  /// sorted. 0 where they are not.
  int Equal;
};

/// Cuts a bucket of places that is too large to be sorted at once into parts that are not.
///
/// Places are put side by side by their next word. Where nearly all have the same one, they are compared with
/// one of them as far as the longest phrase: a text that says the same over and over is one part of equal
/// places, whatever its length. Both keep places with equal words in their order. Time is linear in the
/// places for each word that parts have in common; memory is 4 bytes a place, and 4 a word of the vocabulary.
class BucketSplitter {
 public:
  /// `tokens` as for SuffixSorter. `most`: places of a part that is still to be sorted.
  BucketSplitter(std::span<const WordNumber> tokens, uint32_t vocabularySize, int maxWords, size_t most,
                 const Yielder& yielder);

  /// Of places that ascend and start with the same word. After a stop the result is of no use.
  std::vector<BucketPart> Split(std::span<Place> places);

 private:
  struct Range {
    size_t Begin;
    size_t End;
    int Depth;   ///< Words that all have in common.
    int Common;  ///< As in BucketPart.
  };
  struct Compared {
    int Words;  ///< In common.
    int Sign;   ///< Below 0 where the first comes before the second.
  };

  void Add(const Range& range);
  void SplitByWord(const Range& range);
  std::vector<uint32_t> GatherByWord(const Range& range);
  void SplitAtOne(const Range& range);
  Compared Compare(Place a, Place b, int depth) const;

  std::span<const WordNumber> tokens_;
  uint32_t vocabularySize_;
  int maxWords_;
  size_t most_;
  const Yielder& yielder_;
  std::span<Place> places_;
  RawVector<Place> spare_;
  std::vector<BucketPart> parts_;
};

}  // namespace korv
