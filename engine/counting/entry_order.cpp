#include "engine/counting/entry_order.h"

#include <algorithm>

namespace korv {

bool EntryBefore(const Corpus& corpus, const PhraseEntry& a, const PhraseEntry& b) {
  const WordNumber* x = corpus.From(a.First);
  const WordNumber* y = corpus.From(b.First);
  const int shorter = std::min(a.Words, b.Words);
  int byText = 0;
  for (int k = 0; k < shorter; ++k) {
    if (x[k] == y[k]) continue;
    const uint32_t keyX = corpus.Words.KeyClass(x[k]);
    const uint32_t keyY = corpus.Words.KeyClass(y[k]);
    if (keyX != keyY) return keyX < keyY;
    if (byText == 0) byText = x[k] < y[k] ? -1 : 1;
  }
  return a.Words != b.Words ? a.Words < b.Words : byText < 0;
}

}  // namespace korv
