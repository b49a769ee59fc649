#include "engine/counting/words_by_ending.h"

#include <utility>

#include "base/pieces.h"

namespace korv {

bool WordsByEnding::Build(const Vocabulary& words, const Yielder& yielder) {
  const size_t n = size_t{words.Size()} + 1;
  firstChild_ = ZeroedArray<WordNumber>(n);
  nextSibling_ = ZeroedArray<WordNumber>(n);
  return InPieces(n, yielder, [this](size_t begin, size_t end) {
    for (size_t w = begin; w < end; ++w) {
      const WordNumber word{static_cast<uint32_t>(w)};
      if (word == kNoWord) continue;
      if (const WordNumber parent = affixes_.Suffix(word); parent != kNoWord)
        nextSibling_[w] = std::exchange(firstChild_[ValueOf(parent)], word);
    }
  });
}

}  // namespace korv
