#include "engine/analysis/taken_words.h"

#include <algorithm>
#include <bit>

#include "base/workers.h"

namespace korv {

bool TakenWords::Build(const Corpus& corpus, Yielder& yielder) {
  corpus_ = &corpus;
  blocks_.assign((corpus.Tokens.size() + kBlock - 1) / kBlock, {});
  const bool filled = RunParts(blocks_.size(), yielder, [this](size_t begin, size_t end) {
    for (size_t block = begin; block < end; ++block) FillBlock(block);
  });
  if (!filled) return false;
  total_ = 0;
  for (Block& block : blocks_) {
    block.Before = total_;
    total_ += static_cast<uint64_t>(std::popcount(block.Words));
  }
  total_ += corpus.WordsAtEnds.size();
  return true;
}

void TakenWords::FillBlock(size_t block) {
  const size_t begin = block * kBlock;
  const size_t end = std::min(corpus_->Tokens.size(), begin + kBlock);
  for (size_t i = begin; i < end; ++i)
    blocks_[block].Words |= uint64_t{corpus_->Tokens[i] != kNoWord} << (i - begin);
}

uint64_t TakenWords::Before(Place place) const {
  const Block& block = blocks_[ValueOf(place) / kBlock];
  const uint64_t below = (uint64_t{1} << ValueOf(place) % kBlock) - 1;
  uint64_t words = block.Before + static_cast<uint64_t>(std::popcount(block.Words & below));
  const GrowingArray<Place>& atEnds = corpus_->WordsAtEnds;
  if (atEnds.size() > 0)
    words += static_cast<uint64_t>(std::lower_bound(atEnds.begin(), atEnds.end(), place) - atEnds.begin());
  return words;
}

}  // namespace korv
