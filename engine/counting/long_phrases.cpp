#include "engine/counting/long_phrases.h"

#include <algorithm>
#include <atomic>
#include <string>

#include "base/workers.h"

namespace korv {

std::optional<uint64_t> CountLongPhrases(const PhraseTableData& data, const CountRule& accepted,
                                         std::span<const uint8_t> mostWords, bool onCallingThread,
                                         Yielder& yielder) {
  constexpr size_t kTask = size_t{1} << 14;
  const WordNumber* const text = data.Corpus.Tokens.data();
  const size_t n = mostWords.size();
  const int minWords = data.Corpus.Options.MinWords;
  const int maxWords = data.Corpus.Options.MaxWords;
  std::atomic<uint64_t> found{0};
  const bool finished = RunTasks((n + kTask - 1) / kTask, onCallingThread, yielder, [&](size_t task, size_t) {
    std::string scratch;
    uint64_t inTask = 0;
    for (size_t i = task * kTask; i < std::min(n, (task + 1) * kTask); ++i) {
      const WordNumber* const first = text + i;
      if (*first == kNoWord) continue;
      if (yielder.Stopped()) return;
      // The text ends with more phrase ends than a phrase has words.
      for (int words = mostWords[i] + 1; words <= maxWords && first[words - 1] != kNoWord; ++words)
        if (words >= minWords && accepted.Accepts(first, words, scratch)) ++inTask;
    }
    found.fetch_add(inTask, std::memory_order_relaxed);
  });
  if (!finished || yielder.Stopped()) return std::nullopt;
  return found.load();
}

}  // namespace korv
