#include "engine/counting/contained_pairs.h"

#include <algorithm>
#include <bit>

#include "base/workers.h"

namespace korv {

namespace {

/// Entries or phrases that a task looks at.
constexpr size_t kPart = size_t{1} << 16;

size_t TasksFor(size_t n) {
  return (n + kPart - 1) / kPart;
}

/// Enough for even shares, and so many that what one holds fits into a cache.
size_t BucketsFor(size_t entries) {
  return std::bit_ceil(std::clamp<size_t>(entries / 1024, 1, 256));
}

/// So little that a thread would cost more than it saves.
bool IsSmall(const PhraseTableData& data) {
  return data.Entries.size() < 1000;
}

}  // namespace

ContainedPairs::ContainedPairs(const PhraseTableData& data, const ContainmentIndex& longer)
    : data_(data),
      longer_(longer),
      pairs_(data.Corpus.Words.Size(), TasksFor(data.Entries.size()), BucketsFor(data.Entries.size())),
      neighbours_(data.Corpus.Words.Size(), TasksFor(longer.Phrases().size()), pairs_.Buckets()),
      byEnding_(longer.Affixes()) {}

bool ContainedPairs::Mark(RedundantFlags& redundant, Yielder& yielder) {
  if (!CollectPairs(yielder)) return false;
  const bool none = pairs_.Size() == 0;
  pairs_.DropGiven();
  if (none) return true;
  if (!CollectNeighbours(yielder)) return false;
  return RunTasks(pairs_.Buckets(), IsSmall(data_), yielder,
                  [&](size_t bucket, size_t) { MarkBucket(bucket, redundant, yielder); });
}

bool ContainedPairs::CollectPairs(Yielder& yielder) {
  const std::vector<PhraseEntry>& entries = data_.Entries;
  const bool collected = RunTasks(pairs_.Tasks(), IsSmall(data_), yielder, [&](size_t task, size_t) {
    std::vector<Pair> pairs;
    for (size_t e = task * kPart; e < std::min(entries.size(), (task + 1) * kPart); ++e) {
      PrefetchWords(data_, e + kEntriesAhead);
      if (!entries[e].Listed || entries[e].Words != 2) continue;
      const WordNumber* words = data_.Corpus.From(entries[e].First);
      pairs.push_back({words[0], {words[1], entries[e].Count}, static_cast<uint32_t>(e)});
    }
    pairs_.Give(task, pairs);
  });
  if (!collected) return false;
  behind_ = BloomFilter(pairs_.Size());
  return RunTasks(pairs_.Buckets(), IsSmall(data_), yielder, [this](size_t bucket, size_t) {
    pairs_.Gather(bucket);
    for (const Pair& pair : pairs_.OfBucket(bucket)) behind_.Add(HashOf(pair.Behind));
  });
}

bool ContainedPairs::CollectNeighbours(Yielder& yielder) {
  std::vector<Collector> collectors(WorkerCount(yielder));
  if (!RunTasks(neighbours_.Tasks(), IsSmall(data_), yielder,
                [&](size_t task, size_t worker) { CollectNeighbours(task, collectors[worker]); }))
    return false;
  collectors = {};
  seconds_.resize(neighbours_.Buckets());
  std::vector<SecondSet> met(WorkerCount(yielder));
  const auto find = [&](size_t bucket, size_t worker) {
    neighbours_.Gather(bucket);
    FindSeconds(bucket, met[worker], yielder);
    neighbours_.Drop(bucket);
  };
  const bool found = RunTasks(neighbours_.Buckets(), IsSmall(data_), yielder, find);
  neighbours_.DropGiven();
  return found && byEnding_.Build(data_.Corpus.Words, yielder);
}

void ContainedPairs::CollectNeighbours(size_t task, Collector& collector) {
  const size_t begin = task * kPart;
  const size_t end = std::min(longer_.Phrases().size(), begin + kPart);
  auto& [met, found] = collector;
  met.assign(std::bit_ceil(end - begin), {});
  found.clear();
  for (size_t k = begin; k < end; ++k) {
    const ContainmentIndex::Phrase& phrase = longer_.Phrases()[k];
    const WordNumber* words = longer_.WordsOf(phrase);
    for (int second = std::max(1, longer_.WordsCoveredBefore(k)); second < phrase.Words; ++second) {
      const Neighbours two{words[second - 1], {words[second], phrase.Count}};
      Neighbours& last = met[(HashOf(two.Behind) + ValueOf(two.First)) & (met.size() - 1)];
      if (last == two) continue;
      last = two;
      found.push_back(two);
    }
  }
  neighbours_.Give(task, found);
}

void ContainedPairs::FindSeconds(size_t bucket, SecondSet& met, const Yielder& yielder) {
  auto& [begins, seconds] = seconds_[bucket];
  begins.assign(neighbours_.WordsOfBucket() + 1, 0);
  for (size_t index = 0; index + 1 < begins.size(); ++index) {
    const WordNumber word = neighbours_.WordAt(bucket, index);
    const auto longer = neighbours_.Of(word);
    const auto pairs = pairs_.Of(word);
    if (!longer.empty() || !pairs.empty()) {
      if (yielder.Stopped()) return;
      met.Clear(longer.size() + pairs.size());
      for (const Neighbours& two : longer) AddWithPrefixes(two.Behind, met, seconds);
      for (const Pair& pair : pairs)
        AddWithPrefixes({longer_.Affixes().Prefix(pair.Behind.Word), pair.Behind.Count}, met, seconds);
    }
    begins[index + 1] = static_cast<uint32_t>(seconds.size());
  }
}

/// Adds a second and those whose words its word begins with, as far as they have not been met.
void ContainedPairs::AddWithPrefixes(SecondWord second, SecondSet& met,
                                     std::vector<SecondWord>& seconds) const {
  // Where one has been met all that are shorter have been, too.
  for (; second.Word != kNoWord && met.Insert(second, 0); second.Word = longer_.Affixes().Prefix(second.Word))
    if (behind_.MayHold(HashOf(second))) seconds.push_back(second);
}

std::span<const SecondWord> ContainedPairs::SecondsOf(WordNumber word) const {
  const auto& [begins, seconds] = seconds_[neighbours_.BucketOf(word)];
  const size_t index = neighbours_.IndexOf(word);
  return std::span(seconds).subspan(begins[index], begins[index + 1] - begins[index]);
}

void ContainedPairs::MarkBucket(size_t bucket, RedundantFlags& redundant, const Yielder& yielder) const {
  SecondSet entries;
  const auto mark = [&](const SecondWord& second) {
    if (const uint32_t entry = entries.Find(second); entry != SecondSet::kNone) redundant.Set(entry);
  };
  for (size_t index = 0; index < pairs_.WordsOfBucket(); ++index) {
    const WordNumber first = pairs_.WordAt(bucket, index);
    const auto pairs = pairs_.Of(first);
    if (pairs.empty()) continue;
    entries.Clear(pairs.size());
    for (const Pair& pair : pairs) entries.Insert(pair.Behind, pair.Entry);
    std::ranges::for_each(SecondsOf(first), mark);
    byEnding_.Visit(first, [&](WordNumber word) {
      if (yielder.Stopped()) return;
      std::ranges::for_each(SecondsOf(word), mark);
      for (const Pair& pair : pairs_.Of(word)) mark(pair.Behind);
    });
  }
}

}  // namespace korv
