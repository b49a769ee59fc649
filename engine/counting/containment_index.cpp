#include "engine/counting/containment_index.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <span>
#include <utility>
#include <vector>

#include "base/workers.h"
#include "base/zeroed_array.h"

namespace korv {

bool ContainmentIndex::Collect(Yielder& yielder) {
  return CollectPhrases(yielder) && FindAffixes(yielder);
}

/// Parts of the entries put their phrases into ranges of places, each of which is sorted by itself then.
bool ContainmentIndex::CollectPhrases(Yielder& yielder) {
  constexpr size_t kPart = size_t{1} << 16;
  constexpr int kRangeBits = 8;
  const bool small = data_.Entries.size() < 1000;
  const size_t tasks = (data_.Entries.size() + kPart - 1) / kPart;
  const int shift = std::max(0, static_cast<int>(std::bit_width(data_.Corpus.Tokens.size())) - kRangeBits);
  std::vector<std::array<uint32_t, size_t{1} << kRangeBits>> next(tasks);
  const auto forEach = [&](size_t task, const auto& use) {
    for (size_t e = task * kPart; e < std::min(data_.Entries.size(), (task + 1) * kPart); ++e)
      if (const PhraseEntry& entry = data_.Entries[e]; entry.Listed && entry.Words >= kFewestWords)
        use(entry, next[task][ValueOf(entry.First) >> shift], e);
  };
  if (!RunTasks(tasks, small, yielder, [&](size_t task, size_t) {
        forEach(task, [](const PhraseEntry&, uint32_t& size, size_t) { ++size; });
      }))
    return false;
  std::vector<size_t> begins{0};
  uint32_t sum = 0;
  for (size_t range = 0; range < next.front().size(); ++range) {
    for (auto& ofTask : next) sum += std::exchange(ofTask[range], sum);
    begins.push_back(sum);
  }
  phrases_.resize(sum);
  std::atomic<int> fewest{kMostWords};
  if (!RunTasks(tasks, small, yielder, [&](size_t task, size_t) {
        int fewestOfTask = kMostWords;
        forEach(task, [&](const PhraseEntry& entry, uint32_t& at, size_t e) {
          phrases_[at++] = {entry.First, entry.Count, static_cast<uint32_t>(e), entry.Words};
          fewestOfTask = std::min<int>(fewestOfTask, entry.Words);
        });
        for (int now = fewest; fewestOfTask < now && !fewest.compare_exchange_weak(now, fewestOfTask);) {
        }
      }))
    return false;
  fewestWords_ = fewest;
  return RunTasks(begins.size() - 1, small, yielder, [&](size_t range, size_t) {
    SortByPlace(std::span(phrases_).subspan(begins[range], begins[range + 1] - begins[range]), shift);
  });
}

/// A radix sort by the lowest `bits` of First, which are those in which the places differ.
void ContainmentIndex::SortByPlace(std::span<Phrase> phrases, int bits) {
  constexpr int kDigitBits = 11;
  constexpr size_t kDigits = size_t{1} << kDigitBits;
  if (phrases.size() < 2) return;
  RawVector<Phrase> sorted(phrases.size());
  for (int shift = 0; shift < bits; shift += kDigitBits) {
    const auto digit = [shift](const Phrase& phrase) {
      return ValueOf(phrase.First) >> shift & (kDigits - 1);
    };
    std::array<size_t, kDigits + 1> next{};
    for (const Phrase& phrase : phrases) ++next[digit(phrase) + 1];
    for (size_t d = 0; d < kDigits; ++d) next[d + 1] += next[d];
    for (const Phrase& phrase : phrases) sorted[next[digit(phrase)]++] = phrase;
    std::copy(sorted.begin(), sorted.end(), phrases.begin());
  }
}

int ContainmentIndex::WordsCoveredBefore(size_t k) const {
  const Phrase& phrase = phrases_[k];
  while (k > 0 && phrases_[k - 1].First == phrase.First) --k;
  for (; k > 0 && phrases_[k - 1].First + 1 == phrase.First; --k)
    if (phrases_[k - 1].Count == phrase.Count) return phrases_[k - 1].Words - 1;
  return 0;
}

bool ContainmentIndex::FindAffixes(Yielder& yielder) {
  const Vocabulary& words = data_.Corpus.Words;
  ZeroedArray<uint8_t> isFirst(size_t{words.Size()} + 1);
  ZeroedArray<uint8_t> isLast(size_t{words.Size()} + 1);
  const auto mark = [](uint8_t& flag) { std::atomic_ref(flag).store(1, std::memory_order_relaxed); };
  const bool marked = RunParts(data_.Entries.size(), yielder, [&](size_t begin, size_t end) {
    for (size_t e = begin; e < end; ++e) {
      PrefetchWords(data_, e + kEntriesAhead);
      const PhraseEntry& entry = data_.Entries[e];
      if (!entry.Listed || entry.Words < kLeastWords) continue;
      const WordNumber* phrase = data_.Corpus.From(entry.First);
      mark(isFirst[ValueOf(phrase[0])]);
      mark(isLast[ValueOf(phrase[entry.Words - 1])]);
    }
  });
  if (!marked) return false;
  affixes_ = std::make_unique<WordAffixes>(words, isFirst, isLast, yielder);
  return !yielder.Stopped();
}

bool ContainmentIndex::Hash(Yielder& yielder) {
  const size_t n = phrases_.size();
  families_ = std::make_unique<BloomFilter>(n);
  sharedFamilies_ = std::make_unique<BloomFilter>(n / 2);
  halves_ = std::make_unique<BloomFilter>(n);
  sharedHalves_ = std::make_unique<BloomFilter>(n / 2);
  entries_ = EntryTable(n);
  return RunParts(n, yielder, [this](size_t begin, size_t end) { Add(begin, end); });
}

/// Adds phrases [begin, end) to the filters and the table. A few are hashed at a time, so that the memory
/// which they go to is on its way before it is needed.
void ContainmentIndex::Add(size_t begin, size_t end) {
  struct Hashes {
    uint64_t Family;
    uint64_t Half;
    uint64_t Phrase;
  };
  std::array<Hashes, 32> hashes;
  while (begin < end) {
    const size_t together = std::min(hashes.size(), end - begin);
    for (size_t k = 0; k < together; ++k) {
      const Phrase& phrase = phrases_[begin + k];
      const WordNumber* words = WordsOf(phrase);
      const int n = phrase.Words;
      const uint64_t between = HashOfWords(words + 1, n - 2);
      const uint64_t firstFamily = HashOfWord(affixes_->Of(words[0]).SuffixFamily);
      const uint64_t lastFamily = HashOfWord(affixes_->Of(words[n - 1]).PrefixFamily);
      hashes[k] = {FamilyHash(firstFamily, between, lastFamily, phrase.Count, n),
                   HalfHash(words[0], between, lastFamily, phrase.Count, n),
                   PhraseHash(words[0], between, words[n - 1], phrase.Count, n)};
      families_->Prefetch(hashes[k].Family);
      halves_->Prefetch(hashes[k].Half);
      entries_.Prefetch(hashes[k].Phrase);
    }
    for (size_t k = 0; k < together; ++k) {
      if (families_->Add(hashes[k].Family)) sharedFamilies_->Add(hashes[k].Family);
      if (halves_->Add(hashes[k].Half)) sharedHalves_->Add(hashes[k].Half);
      entries_.Insert(hashes[k].Phrase, phrases_[begin + k].Entry);
    }
    begin += together;
  }
}

}  // namespace korv
