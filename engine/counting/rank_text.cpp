#include "engine/counting/rank_text.h"

#include <algorithm>

#include "base/workers.h"

namespace korv {

bool TooFewForThreads(const PhraseTableData& data) {
  return data.Corpus.Tokens.size() < 20000;
}

bool RankText(PhraseTableData& data, Yielder& yielder) {
  constexpr size_t kBlock = size_t{1} << 18;
  if (!data.Corpus.Words.Ranked() && !RunTasks(1, TooFewForThreads(data), yielder, [&](size_t, size_t) {
        data.Corpus.Words.Rank(data.NewNumbers, yielder);
      }))
    return false;
  const size_t blocks = (data.Corpus.Tokens.size() + kBlock - 1) / kBlock;
  data.BlockRenumbered.resize(blocks, 0);
  return RunTasks(blocks, TooFewForThreads(data), yielder, [&](size_t block, size_t) {
    if (data.BlockRenumbered[block]) return;
    const size_t end = std::min(data.Corpus.Tokens.size(), (block + 1) * kBlock);
    for (size_t i = block * kBlock; i < end; ++i)
      data.Corpus.Tokens[i] = data.NewNumbers[ValueOf(data.Corpus.Tokens[i])];
    data.BlockRenumbered[block] = 1;
  });
}

std::vector<WordNumber> FirstWordsOfTasks(const ZeroedArray<uint64_t>& bucketEnds, uint64_t places,
                                          const Vocabulary& words) {
  constexpr uint64_t kTasks = 256;
  const uint64_t perTask = std::max<uint64_t>(1, places / kTasks);
  std::vector<WordNumber> firsts{WordNumber{1}};
  uint64_t begin = 0;
  for (const WordNumber w : words.All()) {
    if (bucketEnds[ValueOf(w)] - begin < perTask) continue;
    begin = bucketEnds[ValueOf(w)];
    firsts.push_back(w + 1);
  }
  if (ValueOf(firsts.back()) <= words.Size()) firsts.push_back(WordNumber{words.Size() + 1});
  return firsts;
}

}  // namespace korv
