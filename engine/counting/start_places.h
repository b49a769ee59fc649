#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "base/zeroed_array.h"
#include "engine/corpus/corpus.h"
#include "engine/counting/count_rule.h"

namespace korv {

/// How long the phrases of a text may be that start at its places: as long as the text goes on without a
/// phrase end, kMostPhraseCharacters and the most words of the run allow.
///
/// Places are looked up in no order, far away in memory each time. That a phrase ends for its characters is
/// rare where phrases have few words, and then one byte for kBlock places tells that none of them does.
class PhraseLengths {
 public:
  PhraseLengths() = default;
  /// Of a text with so many tokens. All phrases have no words at first.
  explicit PhraseLengths(size_t tokens) : most_(tokens), cut_(tokens / kBlock + 1) {}

  /// `cut`: the text goes on, and it is the characters that allow no more words.
  void Set(size_t place, int most, bool cut) {
    most_[place] = static_cast<uint8_t>(most);
    if (cut) cut_[place / kBlock] = 1;
  }

  /// Most words of a phrase that starts here.
  int Most(Place place) const { return most_[ValueOf(place)]; }
  /// As many of them as the characters allow, where the text goes on for `words` words, and the run's most
  /// words are no fewer.
  int Most(Place place, int words) const {
    return cut_[ValueOf(place) / kBlock] == 0 ? words : std::min(words, Most(place));
  }
  /// By place.
  std::span<const uint8_t> All() const { return {most_.Data(), most_.Size()}; }

 private:
  static constexpr size_t kBlock = 64;

  ZeroedArray<uint8_t> most_;
  ZeroedArray<uint8_t> cut_;  ///< By block of places.
};

/// The places of a text at which phrases start that count, in buckets by their first word.
///
///   Lengths.Most(p) == 0 where Tokens[p] == kNoWord;
///   BucketEnds[0] == 0, BucketEnds[w - 1] <= BucketEnds[w], BucketEnds[last word] == Places.size();
///   Places[BucketEnds[w - 1]] to Places[BucketEnds[w]], that one excluded, ascend, and Tokens[p] == w for
///   each.
struct StartPlaces {
  PhraseLengths Lengths;
  RawVector<Place> Places;
  ZeroedArray<uint64_t> BucketEnds;   ///< Per word: the end of its bucket in Places.
  ZeroedArray<uint64_t> Occurrences;  ///< Per word: occurrences that count and start with it.
  /// Occurrences that would count but for RunOptions::MostCharacters. Not set with patterns for whole
  /// phrases.
  uint64_t LongPhrases = 0;
  std::vector<uint8_t> SourceHasPhrase;  ///< Per source. Not set with patterns for whole phrases.
};

/// Finds the places. Linear in the text. Memory: a byte a token, 4 bytes a place, 16 bytes a word. False when
/// stopped.
bool FindStartPlaces(const Corpus& corpus, const CountRule& rule, Yielder& yielder, StartPlaces& starts);

}  // namespace korv
