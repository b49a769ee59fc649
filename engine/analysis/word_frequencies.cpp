#include "engine/analysis/word_frequencies.h"

#include <algorithm>
#include <functional>

#include "base/workers.h"

namespace korv {

bool CountWords(const Corpus& corpus, Yielder& yielder, std::vector<uint32_t>& frequencies) {
  constexpr size_t kTask = size_t{1} << 16;
  const size_t tokens = corpus.Tokens.size();
  const size_t tasks = (tokens + kTask - 1) / kTask;
  std::vector<std::vector<uint32_t>> ofWorkers(WorkerCount(yielder));
  const bool counted = RunTasks(tasks, tasks <= 1, yielder, [&](size_t task, size_t worker) {
    std::vector<uint32_t>& counts = ofWorkers[worker];
    counts.resize(size_t{corpus.Words.Size()} + 1);
    for (size_t i = task * kTask; i < std::min(tokens, (task + 1) * kTask); ++i)
      ++counts[ValueOf(corpus.Tokens[i])];
  });
  if (!counted) return false;
  frequencies.assign(size_t{corpus.Words.Size()} + 1, 0);
  for (const std::vector<uint32_t>& counts : ofWorkers)
    std::transform(counts.begin(), counts.end(), frequencies.begin(), frequencies.begin(), std::plus());
  return true;
}

}  // namespace korv
