#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "engine/corpus/suffix_sorter.h"

namespace korv {

/// Counts how often the beginnings of runs of words occur in a text.
class PrefixCounter {
 public:
  /// A run of words that stands in the text.
  struct Run {
    Place First;
    uint8_t Words;
  };
  /// Gets, for a run and each number of words from 1 to all of them, how often its first words occur. Calls
  /// for one run come from one thread.
  using Take = std::function<void(size_t run, int words, uint32_t count)>;

  /// As SuffixSorter has them. All outlive the object.
  PrefixCounter(std::span<const WordNumber> tokens, uint32_t vocabularySize, Yielder& yielder)
      : tokens_(tokens), vocabularySize_(vocabularySize), yielder_(yielder) {}

  /// Sorts the places of all words that a run begins with by the words behind them, on all threads. False
  /// when stopped.
  bool Count(std::span<const Run> runs, const Take& take);

 private:
  bool GroupPlaces();
  bool GroupRuns(std::span<const Run> runs);
  void CountBucket(WordNumber word, std::span<const Run> runs, SuffixSorter& sorter, const Take& take);

  std::span<const WordNumber> tokens_;
  uint32_t vocabularySize_;
  Yielder& yielder_;
  // Bucket of word w: from element [w - 1] of the ends to element [w].
  std::vector<uint32_t> placeEnds_;
  RawVector<Place> places_;
  std::vector<uint32_t> runEnds_;
  RawVector<uint32_t> runs_;
  RawVector<uint32_t> rankOf_;  ///< By token: its index in its sorted bucket.
};

}  // namespace korv
