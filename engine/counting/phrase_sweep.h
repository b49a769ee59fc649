#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "engine/corpus/suffix_sorter.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/counting/start_places.h"

namespace korv {

/// What a sweep needs of the run. Everything must outlive the sweep.
struct SweepContext {
  const PhraseTableData* Data;
  const CountRule* Accepted;
  const Yielder* Stop;
  const PhraseLengths* Lengths;
  /// Per source: set where a phrase was counted. Null unless patterns for whole phrases are in force.
  std::vector<std::atomic<uint8_t>>* SourceHasPhrase;
};

/// Finds the phrases of one bucket of sorted places from their common prefixes.
///
/// Neighbours with a common prefix form nested intervals (LCP intervals). The phrases that end between the
/// depth of an interval and that of the one around it occur at exactly its places. Only the longest of them
/// can be listed; the shorter ones are redundant. It is redundant too where the same word stands before all
/// of the places, because of the phrase that begins with that word. Redundant ones get no entry, unless the
/// options keep them.
///
/// The sweep goes from the last place to the first. It closes inner intervals before outer ones and later
/// before earlier ones, so that the entries in reverse are in the order of the words.
class PhraseSweep {
 public:
  explicit PhraseSweep(const SweepContext& context);

  /// The next parts are those of another bucket. `places` are in order as far as they have been swept, and
  /// are looked at where patterns for whole phrases are in force. `slice` is the index of the first one in
  /// Corpus::Places.
  void BeginBucket(std::span<const Place> places, uint32_t slice);
  /// Adds the entries of a part of the bucket, last phrase first; the last part comes first. `begin` is the
  /// index of its first place in the bucket, which has `common` words in common with the place before. After
  /// a stop the entries are of no use.
  void SweepSorted(std::span<const Suffix> suffixes, std::span<const uint8_t> lcp, uint32_t begin,
                   int common);
  /// The same of places that have `words` words in common, as far as they are compared.
  void SweepEqual(std::span<const Place> places, int words, uint32_t begin, int common);

  std::vector<PhraseEntry>& Entries() { return entries_; }
  /// The occurrences that were not the first of their phrase, of all phrases.
  uint64_t Repeats() const { return repeats_; }
  /// All occurrences. Only counted where patterns for whole phrases are in force.
  uint64_t Occurrences() const { return occurrences_; }

 private:
  /// The suffixes [Begin, End), whose first Depth words are equal.
  struct Interval {
    int Depth;
    uint32_t Begin;
    uint32_t End;
    Place First;      ///< The earliest of the places.
    WordNumber Left;  ///< The word before all of them, kNoWord where they differ.
  };

  template <typename Part>
  void Sweep(const Part& part, uint32_t size, uint32_t begin, int common);
  bool GoesOnBefore(const Interval& interval, int words) const;
  void Close(const Interval& interval, int outerDepth);
  void CloseByPhrase(const Interval& interval, int from, int to);
  void Add(const Interval& interval, int words);

  SweepContext context_;
  int minWords_;
  int maxWords_;
  uint32_t minFrequency_;
  bool keepRedundant_;
  bool keepSlices_;
  std::span<const Place> places_;  ///< Of the bucket.
  uint32_t slice_ = 0;
  int after_ = 0;  ///< Words that the place before the one that is next has in common with that behind it.
  std::vector<Interval> open_;
  std::vector<PhraseEntry> entries_;
  uint64_t repeats_ = 0;
  uint64_t occurrences_ = 0;
  std::string scratch_;
};

}  // namespace korv
