#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>
#include <vector>

#include "base/yielder.h"
#include "base/zeroed_array.h"
#include "engine/counting/count_rule.h"
#include "engine/counting/phrase_table.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"

namespace korv {

/// The greatest frequency of a phrase.
inline constexpr uint32_t kMostFrequency = std::numeric_limits<int32_t>::max();

/// What became of a count.
enum class CountVerdict {
  Added,
  OtherLength,  ///< Left out: fewer or more words than the run's phrases have.
  TooLong,      ///< Left out: more than RunOptions::MostCharacters.
  Excluded,     ///< Left out: it holds a word that excludes the phrases with it.
  // Refused:
  NoPhrase,           ///< A word is empty, or a sign in it stands in no word (a control character, no UTF-8).
  HoldsWordToRemove,  ///< A word that would have been taken out of the text is in it.
  SumTooLarge,        ///< Its frequencies add up to more than kMostFrequency.
};

/// Makes a table of phrases out of counts that were made elsewhere, of parts of a text for one. Counts of one
/// phrase add up, in whichever order they come.
///
///     PhraseSums sums(options, lists, table);
///     sums.Add("the big cat", 2); sums.Add("a dog", 1); sums.Add("the big cat", 1);
///     sums.Finish(yielder);
///
/// The table is then as CountPhrases() leaves it, but that nothing is known of the text: there are no places,
/// no sources and no lines. Memory: for each different phrase 4 bytes a word and about 60 more at its peak,
/// beside the distinct words.
class PhraseSums {
 public:
  /// `table` is emptied. All must outlive the object, and `lists` the table's counting.
  PhraseSums(const RunOptions& options, const WordFilters& lists, PhraseTable& table);

  /// `phrase`: words with single blanks between them, taken as they are. `frequency`: 1..kMostFrequency.
  /// Expected cost: linear in the phrase. Throws std::length_error for more words than a Place can number.
  CountVerdict Add(std::string_view phrase, uint32_t frequency);

  /// Call it when all counts are there: numbers the words by rank, leaves out the phrases that the run's
  /// lists exclude, and puts the rest in the order of words, on all threads. False when stopped; call it
  /// again then.
  bool Finish(Yielder& yielder);

 private:
  struct Slot {
    uint32_t Hash;
    uint32_t EntryPlusOne;  ///< 0: empty.
  };

  CountVerdict NumberWords(std::string_view phrase);
  bool IsWordToIgnore(WordNumber word);
  PhraseEntry& EntryOf(int words);
  size_t SlotOf(const ZeroedArray<Slot>& slots, uint32_t hash, std::span<const WordNumber> phrase) const;
  bool IsAt(const PhraseEntry& entry, std::span<const WordNumber> phrase) const;
  void GrowIfFull();
  bool TakeInOrder(const CountRule& rule, Yielder& yielder);

  PhraseTableData& data_;
  const bool looksForIgnored_;  ///< Words to ignore exclude the phrases with them, or should not be there.
  std::vector<uint8_t> ignored_ = {0};  ///< By word.
  std::array<WordNumber, kMostWords> words_{};
  ZeroedArray<Slot> slots_;  ///< Their number is a power of two. About two thirds of them are taken at most.
  /// While the table grows, the slots before. Those from moved_ on may not be among slots_ yet.
  ZeroedArray<Slot> oldSlots_;
  size_t moved_ = 0;
  bool ended_ = false;
};

}  // namespace korv
