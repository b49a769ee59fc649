#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "engine/corpus/suffix_sorter.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

/// What one sweep needs of the run.
struct SweepContext {
  const PhraseTableData* Data;
  const CountRule* Accepted;
  const Yielder* Stop;
  /// Per index of Data->Corpus.Tokens: most words of a phrase that starts there.
  const uint8_t* MostWords;
  /// Folder runs with entries for whole phrases: set per source in which a phrase was counted.
  std::vector<std::atomic<uint8_t>>* SourceHasPhrase;
};

/// Lists the repeated phrases of one bucket of sorted places (and the single ones where the minimum
/// frequency is 1).
///
/// Places whose neighbours share words form nested intervals, one per run of phrases that occur at the
/// same places; of such a run only the longest can be listed, the others being redundant. An interval all
/// of whose places have the same word before them is redundant too, because of the phrase that begins
/// with that word. Going from the last place to the first closes inner intervals before outer ones and
/// later ones before earlier ones, so that reading the result backwards gives the order of the words.
class PhraseSweep {
 public:
  explicit PhraseSweep(const SweepContext& context);

  /// Adds the entries of a bucket, last phrase first. `slice` is the index in Corpus.Places of its first
  /// place. After a stop the entries are of no use.
  void Sweep(std::span<const Suffix> suffixes, std::span<const uint8_t> lcp, uint32_t slice);

  std::vector<PhraseEntry>& Entries() { return entries_; }
  /// How many occurrences, over all phrases, were not the first of their phrase.
  uint64_t Repeats() const { return repeats_; }
  /// All occurrences; only where entries for whole phrases are in force.
  uint64_t Occurrences() const { return occurrences_; }

 private:
  /// Places [Begin, End) that share their first Depth words.
  struct Interval {
    int Depth;
    uint32_t Begin;
    uint32_t End;
    Place First;      ///< The earliest of the places.
    WordNumber Left;  ///< The word before all of them, kNoWord where they differ.
  };

  int MostWords(Place place) const { return context_.MostWords[ValueOf(place)]; }
  void Close(const Interval& interval, int outerDepth, uint32_t slice);
  void CloseByPhrase(const Interval& interval, int from, int to, uint32_t slice);

  SweepContext context_;
  int minWords_;
  uint32_t minFrequency_;
  bool keepSlices_;
  std::span<const Suffix> suffixes_;
  std::vector<Interval> open_;
  std::vector<PhraseEntry> entries_;
  uint64_t repeats_ = 0;
  uint64_t occurrences_ = 0;
  std::string scratch_;
};

}  // namespace korv
