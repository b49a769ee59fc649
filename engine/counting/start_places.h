#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "base/zeroed_array.h"
#include "engine/corpus/corpus.h"
#include "engine/counting/count_rule.h"

namespace korv {

/// The places of a text at which phrases start that count, in buckets by their first word.
///
///   MostWords[p] == 0 where Tokens[p] == kNoWord;
///   BucketEnds[0] == 0, BucketEnds[w - 1] <= BucketEnds[w], BucketEnds[last word] == Places.size();
///   Places[BucketEnds[w - 1]] to Places[BucketEnds[w]], that one excluded, ascend, and Tokens[p] == w for
///   each.
struct StartPlaces {
  ZeroedArray<uint8_t> MostWords;  ///< Per token: most words of a phrase that starts there.
  RawVector<Place> Places;
  ZeroedArray<uint64_t> BucketEnds;   ///< Per word: the end of its bucket in Places.
  ZeroedArray<uint64_t> Occurrences;  ///< Per word: occurrences that count and start with it.
  /// Occurrences that would count but for kMostPhraseCharacters. Not set with patterns for whole phrases.
  uint64_t LongPhrases = 0;
  std::vector<uint8_t> SourceHasPhrase;  ///< Per source. Not set with patterns for whole phrases.
};

/// Finds the places. Linear in the text. Memory: a byte a token, 4 bytes a place, 16 bytes a word. False when
/// stopped.
bool FindStartPlaces(const Corpus& corpus, const CountRule& rule, Yielder& yielder, StartPlaces& starts);

}  // namespace korv
