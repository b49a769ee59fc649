#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/counting/containment_index.h"
#include "engine/counting/redundant_flags.h"

namespace korv {

/// Finds the listed phrases that other listed phrases of the same count contain.
///
/// Every run of words of a phrase is a candidate. It passes three look-ups, each in memory that is far away:
/// in the Bloom filter of families; with each choice of the first word, in that of halves; with each choice
/// of the last word too, in the table of phrases. Candidates are collected before each, so that the memory is
/// on its way for many of them at once. Each thread uses an object of its own.
class ContainmentSearch {
 public:
  /// Sets `redundant` of each entry that is found. All must outlive the search.
  ContainmentSearch(const PhraseTableData& data, const ContainmentIndex& index, RedundantFlags& redundant)
      : data_(data), index_(index), redundant_(redundant) {}

  /// Adds the runs of the index's phrase `k` as candidates.
  ///
  /// Phrases are gone through in the order of their places. Two that start one word apart and have the same
  /// count share all runs but those that end behind the first. The second leaves these out, so that a passage
  /// which occurs twice costs its length, not its length times kMostWords.
  void AddPhrase(size_t k);
  /// Looks up the candidates that are left. Call it after the last phrase.
  void Finish();

 private:
  /// A run of words, and the choice of its first and last word that is looked up.
  struct Candidate {
    const WordNumber* Run;
    uint64_t Between;  ///< HashOfWords of all but the outer two.
    uint64_t Hash;     ///< Of the next look-up.
    WordNumber First;  ///< Run[0] or a suffix of it.
    WordNumber Last;   ///< Run[Words - 1] or a prefix of it.
    uint32_t Count;
    uint8_t Words;
    bool SkipRun;   ///< The run as it stands is not to be found.
    bool IsPhrase;  ///< The run is a listed phrase itself.
  };

  const BloomFilter& FamiliesFor(const Candidate& candidate) const;
  const BloomFilter& HalvesFor(const Candidate& candidate) const;
  void LookUpFamilies();
  void LookUpHalves();
  void LookUpPhrases();
  bool IsPhraseOf(const Candidate& candidate, const PhraseEntry& entry) const;

  const PhraseTableData& data_;
  const ContainmentIndex& index_;
  RedundantFlags& redundant_;
  // The candidates for each look-up.
  std::vector<Candidate> families_;
  std::vector<Candidate> halves_;
  std::vector<Candidate> phrases_;
};

}  // namespace korv
