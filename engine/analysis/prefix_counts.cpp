#include "engine/analysis/prefix_counts.h"

#include <algorithm>

#include "base/pieces.h"
#include "base/workers.h"

namespace korv {

namespace {

/// Below this many tokens a thread costs more than it saves.
constexpr size_t kTooFewForThreads = 20000;

/// Turns the sizes of buckets, each at the index of its word, into their begins.
void BeginBuckets(std::vector<uint32_t>& sizes) {
  uint32_t begin = 0;
  for (uint32_t& size : sizes) begin += std::exchange(size, begin);
}

}  // namespace

bool PrefixCounter::Count(std::span<const Run> runs, const Take& take) {
  if (!GroupPlaces() || !GroupRuns(runs)) return false;
  rankOf_.resize(tokens_.size());
  const int mostWords = runs.empty() ? 0 : std::ranges::max_element(runs, {}, &Run::Words)->Words;
  std::vector<std::unique_ptr<SuffixSorter>> sorters(WorkerCount(yielder_));
  constexpr size_t kWordsOfTask = 64;
  return RunTasks(vocabularySize_ / kWordsOfTask + 1, tokens_.size() < kTooFewForThreads, yielder_,
                  [&](size_t task, size_t worker) {
                    if (!sorters[worker])
                      sorters[worker] =
                          std::make_unique<SuffixSorter>(tokens_, vocabularySize_, mostWords, yielder_);
                    const auto first = static_cast<uint32_t>(task * kWordsOfTask + 1);
                    const auto last = std::min<uint32_t>(vocabularySize_, first + kWordsOfTask - 1);
                    for (const WordNumber word : IndexRange(WordNumber{first}, WordNumber{last})) {
                      if (yielder_.Stopped()) return;
                      CountBucket(word, runs, *sorters[worker], take);
                    }
                  });
}

bool PrefixCounter::GroupPlaces() {
  placeEnds_.assign(size_t{vocabularySize_} + 1, 0);
  const bool counted = InPieces(tokens_.size(), yielder_, [this](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) ++placeEnds_[ValueOf(tokens_[i])];
  });
  if (!counted) return false;
  placeEnds_[0] = 0;
  BeginBuckets(placeEnds_);
  places_.resize(tokens_.size());
  return InPieces(tokens_.size(), yielder_, [this](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i)
      if (tokens_[i] != kNoWord) places_[placeEnds_[ValueOf(tokens_[i])]++] = Place{static_cast<uint32_t>(i)};
  });
}

bool PrefixCounter::GroupRuns(std::span<const Run> runs) {
  const auto firstWord = [&](size_t run) { return ValueOf(tokens_[ValueOf(runs[run].First)]); };
  runEnds_.assign(size_t{vocabularySize_} + 1, 0);
  const bool counted = InPieces(runs.size(), yielder_, [&](size_t begin, size_t end) {
    for (size_t run = begin; run < end; ++run) ++runEnds_[firstWord(run)];
  });
  if (!counted) return false;
  BeginBuckets(runEnds_);
  runs_.resize(runs.size());
  return InPieces(runs.size(), yielder_, [&](size_t begin, size_t end) {
    for (size_t run = begin; run < end; ++run) runs_[runEnds_[firstWord(run)]++] = static_cast<uint32_t>(run);
  });
}

void PrefixCounter::CountBucket(WordNumber word, std::span<const Run> runs, SuffixSorter& sorter,
                                const Take& take) {
  const auto bucketOf = [word](const auto& items, const std::vector<uint32_t>& ends) {
    const uint32_t begin = ends[ValueOf(word) - 1];
    return std::span(items).subspan(begin, ends[ValueOf(word)] - begin);
  };
  const std::span<const uint32_t> runsOfWord = bucketOf(runs_, runEnds_);
  if (runsOfWord.empty()) return;
  sorter.Sort(bucketOf(places_, placeEnds_));
  if (yielder_.Stopped()) return;
  const std::span<const Suffix> suffixes = sorter.Suffixes();
  for (size_t i = 0; i < suffixes.size(); ++i) rankOf_[ValueOf(suffixes[i].At)] = static_cast<uint32_t>(i);
  int most = 0;
  for (const uint32_t run : runsOfWord) most = std::max<int>(most, runs[run].Words);
  // For each number of words: how many suffixes begin with the same ones as suffix i.
  std::vector<uint32_t> equal(suffixes.size());
  for (int words = 1; words <= most && !yielder_.Stopped(); ++words) {
    for (size_t begin = 0; begin < suffixes.size();) {
      size_t end = begin + 1;
      while (end < suffixes.size() && sorter.Lcp()[end] >= words) ++end;
      std::fill(equal.begin() + static_cast<std::ptrdiff_t>(begin),
                equal.begin() + static_cast<std::ptrdiff_t>(end), static_cast<uint32_t>(end - begin));
      begin = end;
    }
    for (const uint32_t run : runsOfWord)
      if (words <= runs[run].Words) take(run, words, equal[rankOf_[ValueOf(runs[run].First)]]);
  }
}

}  // namespace korv
