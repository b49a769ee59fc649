#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "engine/counting/bloom_filter.h"
#include "engine/counting/entry_table.h"
#include "engine/counting/phrase_hash.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/counting/word_affixes.h"

namespace korv {

/// The listed phrases of a table that have three words or more, arranged for finding those that another
/// phrase contains. Phrases of two words are looked for in other ways (ContainedPairs).
///
/// A phrase of n words stands within a longer one as a run of n consecutive words. The words between the
/// outer two are equal; the first word of the run ends with the phrase's first word, and the last one begins
/// with its last. So a run and the phrases in it have the same family hash, which is made of the words
/// between and of the affix families (see WordAffixes) of the outer two. With the phrase's own first word in
/// place of its family it is the half hash. Bloom filters of both reject most runs without a look-up in the
/// table of phrases.
class ContainmentIndex {
 public:
  static constexpr int kFewestWords = 3;

  /// A listed phrase of kFewestWords or more.
  struct Phrase {
    Place First;  ///< Of its earliest occurrence.
    uint32_t Count;
    uint32_t Entry;  ///< Index in PhraseTableData::Entries.
    uint8_t Words;
  };

  explicit ContainmentIndex(const PhraseTableData& data) : data_(data) {}

  // Both are called once, in this order, and return false when stopped: the index is of no use then.

  /// Collects the phrases, and finds the affixes that the outer words of phrases are; those of two words
  /// too. On all threads; linear in the phrases and the characters of the words. 32 bytes a phrase, 16
  /// a word.
  bool Collect(Yielder& yielder);
  /// Makes the filters and the table of entries. On all threads; linear in the phrases. About 30 bytes a
  /// phrase.
  bool Hash(Yielder& yielder);

  /// Ascend by First.
  const RawVector<Phrase>& Phrases() const { return phrases_; }
  const WordNumber* WordsOf(const Phrase& phrase) const { return data_.Corpus.From(phrase.First); }
  /// Words of phrase `k` that the phrase of the same count which starts one word before it covers.
  int WordsCoveredBefore(size_t k) const;
  /// Words of the shortest phrase.
  int FewestWords() const { return fewestWords_; }
  const WordAffixes& Affixes() const { return *affixes_; }

  // The hashes of runs and phrases of `words` words. `between` is HashOfWords of all but the outer two, and
  // those of families are HashOfWord of the families of these.
  static uint64_t FamilyHash(uint64_t firstFamily, uint64_t between, uint64_t lastFamily, uint32_t count,
                             int words) {
    return WithCount(Joined(firstFamily, between, lastFamily, words), count, words);
  }
  static uint64_t HalfHash(WordNumber first, uint64_t between, uint64_t lastFamily, uint32_t count,
                           int words) {
    return WithCount(Joined(HashOfWord(first), between, lastFamily + 1, words), count, words);
  }
  static uint64_t PhraseHash(WordNumber first, uint64_t between, WordNumber last, uint32_t count, int words) {
    return WithCount(Joined(HashOfWord(first), between, HashOfWord(last), words), count, words);
  }

  /// The family hashes of the phrases, and those of two phrases or more: a run that is a phrase itself always
  /// has its own family. The same of half hashes.
  const BloomFilter& Families() const { return *families_; }
  const BloomFilter& SharedFamilies() const { return *sharedFamilies_; }
  const BloomFilter& Halves() const { return *halves_; }
  const BloomFilter& SharedHalves() const { return *sharedHalves_; }
  /// The entries of the phrases by their phrase hash.
  const EntryTable& Entries() const { return entries_; }

 private:
  static uint64_t Joined(uint64_t first, uint64_t between, uint64_t last, int words) {
    return first * kHashPowers[static_cast<size_t>(words) - 1] + between * kHashBase + last;
  }
  static uint64_t WithCount(uint64_t hash, uint32_t count, int words) {
    return Scramble(hash + (uint64_t{count} << 8) + static_cast<uint64_t>(words));
  }

  bool CollectPhrases(Yielder& yielder);
  static void SortByPlace(std::span<Phrase> phrases, int bits);
  bool FindAffixes(Yielder& yielder);
  void Add(size_t begin, size_t end);

  const PhraseTableData& data_;
  RawVector<Phrase> phrases_;
  int fewestWords_ = kMostWords;
  std::unique_ptr<WordAffixes> affixes_;
  std::unique_ptr<BloomFilter> families_;
  std::unique_ptr<BloomFilter> sharedFamilies_;
  std::unique_ptr<BloomFilter> halves_;
  std::unique_ptr<BloomFilter> sharedHalves_;
  EntryTable entries_;
};

}  // namespace korv
