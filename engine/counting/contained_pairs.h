#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/bloom_filter.h"
#include "engine/counting/containment_index.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/counting/redundant_flags.h"
#include "engine/counting/second_words.h"
#include "engine/counting/word_groups.h"
#include "engine/counting/words_by_ending.h"

namespace korv {

/// Finds the listed phrases of two words that other listed phrases of the same count contain.
///
/// Such a phrase "a b" stands in two neighbouring words "u v" of the other one: u is a or ends with it, and v
/// is b or begins with it. Single letters are words of most texts, so that nearly every two neighbours may
/// hold some phrase: a table of all phrases would be asked tens of millions of times, in memory that is far
/// away each time. Here the neighbours that stand behind one u become the set of seconds (b, count) first,
/// which many of them share. Then, one a after the other, the sets of a and of the words that end with a are
/// looked up among the phrases that begin with a, and these fit into a cache.
///
/// Expected time is linear in the words of the phrases, but for the number of affixes that a word has. Memory
/// beside the phrases: about 12 bytes for each different pair of neighbours, its count included, and 16 a
/// word of the vocabulary.
class ContainedPairs {
 public:
  /// `longer` has its phrases and affixes. All must outlive the object.
  ContainedPairs(const PhraseTableData& data, const ContainmentIndex& longer);

  /// Sets `redundant` of each entry that is found. Call once; on all threads. False when stopped.
  bool Mark(RedundantFlags& redundant, Yielder& yielder);

 private:
  struct Pair {
    WordNumber First;
    SecondWord Behind;
    uint32_t Entry;  ///< Index in PhraseTableData::Entries.
  };
  struct Neighbours {
    WordNumber First;
    SecondWord Behind;
    bool operator==(const Neighbours&) const = default;
  };
  /// What a thread needs for collecting.
  struct Collector {
    /// Some that have been met, each where its hash points: phrases that hold the same neighbours lie close
    /// together, so that most are left out when they come again.
    std::vector<Neighbours> Met;
    std::vector<Neighbours> Found;
  };
  /// The seconds behind the words of a bucket, one word after the other.
  struct BucketSeconds {
    std::vector<uint32_t> Begins;  ///< By WordGroups::IndexOf(); one more behind the last.
    std::vector<SecondWord> Seconds;
  };

  bool CollectPairs(Yielder& yielder);
  bool CollectNeighbours(Yielder& yielder);
  void CollectNeighbours(size_t task, Collector& collector);
  void FindSeconds(size_t bucket, SecondSet& met, const Yielder& yielder);
  void AddWithPrefixes(SecondWord second, SecondSet& met, std::vector<SecondWord>& seconds) const;
  void MarkBucket(size_t bucket, RedundantFlags& redundant, const Yielder& yielder) const;
  std::span<const SecondWord> SecondsOf(WordNumber word) const;

  const PhraseTableData& data_;
  const ContainmentIndex& longer_;
  WordGroups<Pair> pairs_;
  WordGroups<Neighbours> neighbours_;
  BloomFilter behind_{0};  ///< The seconds of the pairs.
  std::vector<BucketSeconds> seconds_;
  WordsByEnding byEnding_;
};

}  // namespace korv
