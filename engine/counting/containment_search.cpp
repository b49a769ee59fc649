#include "engine/counting/containment_search.h"

#include <algorithm>
#include <array>

namespace korv {

namespace {

/// So many candidates are looked up together.
constexpr size_t kTogether = 64;

}  // namespace

void ContainmentSearch::AddPhrase(size_t k) {
  const ContainmentIndex::Phrase& phrase = index_.Phrases()[k];
  const WordNumber* words = index_.WordsOf(phrase);
  const int n = phrase.Words;
  const int fewest = index_.FewestWords();
  std::array<uint64_t, kMostWords + 1> hashUpTo;
  std::array<uint64_t, kMostWords> firstFamily;
  std::array<uint64_t, kMostWords> lastFamily;
  std::array<bool, kMostWords> hasSuffix;
  std::array<bool, kMostWords> hasPrefix;
  hashUpTo[0] = 0;
  for (size_t i = 0; i < static_cast<size_t>(n); ++i) {
    const WordAffixes::Affixes& affixes = index_.Affixes().Of(words[i]);
    hashUpTo[i + 1] = hashUpTo[i] * kHashBase + HashOfWord(words[i]);
    firstFamily[i] = HashOfWord(affixes.SuffixFamily);
    lastFamily[i] = HashOfWord(affixes.PrefixFamily);
    hasSuffix[i] = affixes.Suffix != kNoWord;
    hasPrefix[i] = affixes.Prefix != kNoWord;
  }
  for (int end = std::max(fewest, index_.WordsCoveredBefore(k) + 1); end <= n; ++end)
    for (int begin = 0; begin + fewest <= end; ++begin) {
      const auto b = static_cast<size_t>(begin);
      const auto e = static_cast<size_t>(end);
      const bool isPhrase = begin == 0 && end == n;
      const bool skipRun = isPhrase || data_.OnlyMaximal;
      if (!hasSuffix[b] && !hasPrefix[e - 1] && skipRun) continue;
      const uint64_t between = hashUpTo[e - 1] - hashUpTo[b + 1] * kHashPowers[e - b - 2];
      const int run = end - begin;
      families_.push_back(
          {.Run = words + begin,
           .Between = between,
           .Hash = index_.FamilyHash(firstFamily[b], between, lastFamily[e - 1], phrase.Count, run),
           .First = words[b],
           .Last = words[e - 1],
           .Count = phrase.Count,
           .Words = static_cast<uint8_t>(run),
           .SkipRun = skipRun,
           .IsPhrase = isPhrase});
      FamiliesFor(families_.back()).Prefetch(families_.back().Hash);
    }
  if (families_.size() >= kTogether) LookUpFamilies();
}

void ContainmentSearch::Finish() {
  LookUpFamilies();
  LookUpHalves();
  LookUpPhrases();
}

const BloomFilter& ContainmentSearch::FamiliesFor(const Candidate& candidate) const {
  return candidate.IsPhrase ? index_.SharedFamilies() : index_.Families();
}

const BloomFilter& ContainmentSearch::HalvesFor(const Candidate& candidate) const {
  return candidate.IsPhrase && candidate.First == candidate.Run[0] ? index_.SharedHalves() : index_.Halves();
}

void ContainmentSearch::LookUpFamilies() {
  for (Candidate& c : families_) {
    if (!FamiliesFor(c).MayHold(c.Hash)) continue;
    const uint64_t lastFamily = HashOfWord(index_.Affixes().Of(c.Last).PrefixFamily);
    for (; c.First != kNoWord; c.First = index_.Affixes().Suffix(c.First)) {
      c.Hash = index_.HalfHash(c.First, c.Between, lastFamily, c.Count, c.Words);
      HalvesFor(c).Prefetch(c.Hash);
      halves_.push_back(c);
    }
    if (halves_.size() >= kTogether) LookUpHalves();
  }
  families_.clear();
}

void ContainmentSearch::LookUpHalves() {
  for (Candidate& c : halves_) {
    if (!HalvesFor(c).MayHold(c.Hash)) continue;
    for (; c.Last != kNoWord; c.Last = index_.Affixes().Prefix(c.Last)) {
      if (c.SkipRun && c.First == c.Run[0] && c.Last == c.Run[c.Words - 1]) continue;
      c.Hash = ContainmentIndex::PhraseHash(c.First, c.Between, c.Last, c.Count, c.Words);
      index_.Entries().Prefetch(c.Hash);
      phrases_.push_back(c);
    }
    if (phrases_.size() >= kTogether) LookUpPhrases();
  }
  halves_.clear();
}

void ContainmentSearch::LookUpPhrases() {
  for (const Candidate& c : phrases_)
    index_.Entries().Visit(c.Hash, [&](uint32_t entry) {
      const bool found = IsPhraseOf(c, data_.Entries[entry]);
      if (found) redundant_.Set(entry);
      return found;
    });
  phrases_.clear();
}

bool ContainmentSearch::IsPhraseOf(const Candidate& candidate, const PhraseEntry& entry) const {
  const WordNumber* words = data_.Corpus.From(entry.First);
  const int n = candidate.Words;
  return entry.Count == candidate.Count && entry.Words == n && words[0] == candidate.First &&
         words[n - 1] == candidate.Last && std::equal(candidate.Run + 1, candidate.Run + n - 1, words + 1);
}

}  // namespace korv
