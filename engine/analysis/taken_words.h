#pragma once

#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "engine/corpus/corpus.h"

namespace korv {

/// Where tokens stand among the words that were taken (WordCounts::Taken).
///
/// Distances and parts of a text are measured in these words. The ends of phrases, which have tokens, do not
/// count; words that excluded the phrases with them count, though they have no token.
class TakenWords {
 public:
  /// The corpus of a run that keeps places; it must outlive the object. Linear in the tokens, on all threads;
  /// 16 bytes for 64 tokens. False when stopped: the object is of no use then.
  bool Build(const Corpus& corpus, Yielder& yielder);

  /// The number of words taken before `place`. Constant time, but for the logarithm of
  /// Corpus::WordsAtEnds::size().
  uint64_t Before(Place place) const;
  /// n, all words taken.
  uint64_t Total() const { return total_; }

 private:
  static constexpr uint32_t kBlock = 64;

  struct Block {
    uint64_t Words;   ///< Bit b is set where token b of the block is a word.
    uint64_t Before;  ///< Tokens before the block that are words.
  };

  void FillBlock(size_t block);

  const Corpus* corpus_ = nullptr;
  std::vector<Block> blocks_;
  uint64_t total_ = 0;
};

}  // namespace korv
