#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "engine/counting/bloom_filter.h"
#include "engine/counting/entry_table.h"
#include "engine/counting/phrase_hash.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/counting/word_affixes.h"

namespace korv {

/// The listed phrases of a table, arranged for finding those that another phrase contains.
///
/// A phrase of n words stands within a longer one as a run of n consecutive words. The words between the
/// outer two are equal; the first word of the run ends with the phrase's first word, and the last one begins
/// with its last. So a run and the phrases in it have the same family hash, which is made of the words
/// between and of the affix families (see WordAffixes) of the outer two. With the phrase's own first word in
/// place of its family it is the half hash. Bloom filters of both reject most runs without a look-up in the
/// table of phrases.
class ContainmentIndex {
 public:
  /// A listed phrase of two words or more.
  struct Phrase {
    Place First;  ///< Of its earliest occurrence.
    uint32_t Count;
    uint32_t Entry;  ///< Index in PhraseTableData::Entries.
    uint8_t Words;
  };

  explicit ContainmentIndex(const PhraseTableData& data) : data_(data) {}

  /// Call once, before anything else. On all threads; linear in the phrases and the characters of the words.
  /// Costs about 60 bytes a phrase and 32 a word. False when stopped: the index is of no use then.
  bool Build(Yielder& yielder);

  /// Ascend by First.
  const RawVector<Phrase>& Phrases() const { return phrases_; }
  const WordNumber* WordsOf(const Phrase& phrase) const { return data_.Corpus.From(phrase.First); }
  /// Words of the shortest phrase.
  int FewestWords() const { return fewestWords_; }
  const WordAffixes& Affixes() const { return *affixes_; }

  // The hashes of runs and phrases of `words` words; `between` is HashOfWords of all but the outer two.
  uint64_t FamilyHash(WordNumber first, uint64_t between, WordNumber last, uint32_t count, int words) const {
    return WithCount(Joined(suffixFamilies_[ValueOf(first)], between, prefixFamilies_[ValueOf(last)], words),
                     count, words);
  }
  uint64_t HalfHash(WordNumber first, uint64_t between, WordNumber last, uint32_t count, int words) const {
    return WithCount(Joined(HashOfWord(first), between, prefixFamilies_[ValueOf(last)] + 1, words), count,
                     words);
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

  bool CollectPhrases(const Yielder& yielder);
  bool SortByPlace(const Yielder& yielder);
  bool FindAffixes(Yielder& yielder);
  bool HashFamilies(const Yielder& yielder);
  bool AddPhrases(Yielder& yielder);
  void Add(size_t begin, size_t end);

  const PhraseTableData& data_;
  RawVector<Phrase> phrases_;
  int fewestWords_ = kMostWords;
  std::unique_ptr<WordAffixes> affixes_;
  std::vector<uint64_t> suffixFamilies_;  ///< Per word: the hash of its family.
  std::vector<uint64_t> prefixFamilies_;
  std::unique_ptr<BloomFilter> families_;
  std::unique_ptr<BloomFilter> sharedFamilies_;
  std::unique_ptr<BloomFilter> halves_;
  std::unique_ptr<BloomFilter> sharedHalves_;
  EntryTable entries_;
};

}  // namespace korv
