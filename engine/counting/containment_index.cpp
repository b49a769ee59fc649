#include "engine/counting/containment_index.h"

#include <algorithm>
#include <array>
#include <atomic>

#include "base/pieces.h"
#include "base/workers.h"
#include "base/zeroed_array.h"

namespace korv {

bool ContainmentIndex::Collect(Yielder& yielder) {
  const bool small = data_.Entries.size() < 1000;
  const bool collected = RunTasks(1, small, yielder, [&](size_t, size_t) {
    if (CollectPhrases(yielder)) SortByPlace(yielder);
  });
  return collected && FindAffixes(yielder);
}

bool ContainmentIndex::CollectPhrases(const Yielder& yielder) {
  phrases_.reserve(data_.Entries.size());
  return InPieces(data_.Entries.size(), yielder, [this](size_t begin, size_t end) {
    for (size_t e = begin; e < end; ++e) {
      const PhraseEntry& entry = data_.Entries[e];
      if (!entry.Listed || entry.Words < kFewestWords) continue;
      phrases_.push_back({entry.First, entry.Count, static_cast<uint32_t>(e), entry.Words});
      fewestWords_ = std::min<int>(fewestWords_, entry.Words);
    }
  });
}

/// A radix sort by First, lowest digit first.
bool ContainmentIndex::SortByPlace(const Yielder& yielder) {
  constexpr int kDigitBits = 11;
  constexpr size_t kDigits = size_t{1} << kDigitBits;
  const size_t n = phrases_.size();
  RawVector<Phrase> sorted(n);
  for (int shift = 0; shift < 32 && data_.Corpus.Tokens.size() >> shift != 0; shift += kDigitBits) {
    const auto digit = [shift](const Phrase& phrase) {
      return ValueOf(phrase.First) >> shift & (kDigits - 1);
    };
    std::array<size_t, kDigits + 1> next{};
    const bool counted = InPieces(n, yielder, [&](size_t begin, size_t end) {
      for (size_t k = begin; k < end; ++k) ++next[digit(phrases_[k]) + 1];
    });
    if (!counted) return false;
    for (size_t d = 0; d < kDigits; ++d) next[d + 1] += next[d];
    const bool scattered = InPieces(n, yielder, [&](size_t begin, size_t end) {
      for (size_t k = begin; k < end; ++k) sorted[next[digit(phrases_[k])]++] = phrases_[k];
    });
    if (!scattered) return false;
    phrases_.swap(sorted);
  }
  return true;
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
