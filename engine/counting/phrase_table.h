#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/corpus/document_counts.h"
#include "engine/counting/phrase_index.h"

namespace korv {

struct Corpus;
struct PhraseTableData;

/// The phrases of a counting run with their frequencies.
///
/// It is filled in one of two ways. CountPhrases (count_phrases.h) fills it from the corpus of the run and
/// keeps as entries only the phrases that may be listed; the others are in PhraseCount() and Occurrences().
/// AddWordToList adds one phrase at a time and keeps them all. Then SortPhrases, ListByFrequency,
/// ExcludeRedundantSubphrases and SetUpFrequencyChain are called, in this order.
///
///   Entries are numbered 1..EntryCount();
///   ascending by (Key, Text) once sorted;
///   Count(i) == Places(i).size(), and First(i) is the least of Places(i), where the run keeps places;
///   AtChainPosition(ChainPosition(i)) == i and Count(i) >= Count(ChainNext(i)) in a chain by count.
///
/// An entry is a place in the text and takes 16 bytes, however long the phrase is. Its characters are put
/// together when they are wanted.
class PhraseTable {
 public:
  PhraseTable();
  ~PhraseTable();
  PhraseTable(PhraseTable&&) noexcept;
  PhraseTable& operator=(PhraseTable&&) noexcept;

  /// Number of different phrases found so far, listed or not. Never decreases during a run. Any thread may
  /// call this.
  uint64_t PhraseCount() const;
  /// Number of phrase occurrences counted, listed or not. Relative frequencies refer to it.
  uint64_t Occurrences() const;
  /// Number of phrase occurrences that would count but for having more than RunOptions::MostCharacters.
  uint64_t LongPhrases() const;

  // ---- Adding one phrase at a time.

  /// Empties the table. `forWordList`: entries are words of a list. They have no limit of length and no
  /// files.
  void Clear(bool forWordList = false);
  /// Counts one occurrence of `phrase`, its words joined by single blanks. A phrase of more than
  /// RunOptions::MostCharacters is only counted for a word list. Expected cost: linear in the phrase.
  void AddWordToList(std::string_view phrase);
  /// Begins the file `path`. It gets a number with its first phrase.
  void BeginFile(const std::filesystem::path& path);

  struct Lookup {
    bool Found;
    /// The position of the phrase among all phrases in descending order of Text, from 1. When it is not
    /// there: the position where it would be inserted, negated.
    int64_t Position;
  };
  /// Looks `text` up by binary search. The first call after a change sorts.
  Lookup FindPhrase(std::string_view text) const;
  /// The most steps that a binary search of FindPhrase has taken.
  int MaxSearchDepth() const;

  // ---- Entries.

  uint32_t EntryCount() const;
  /// All of them, in the order of the table.
  IndexRange<PhraseIndex> All() const { return {PhraseIndex{1}, PhraseIndex{EntryCount()}}; }
  void AppendText(PhraseIndex i, std::string& out) const;
  std::string Text(PhraseIndex i) const;
  /// Prefetches the text of entry `i`, which is wanted soon, and the numbers of entry `later`, whose text is
  /// prefetched next. Entries outside the table do no harm.
  void Prefetch(PhraseIndex i, PhraseIndex later) const;
  /// FoldKey(FoldAccents(Text)), by which entries are ordered.
  std::string Key(PhraseIndex i) const;
  uint32_t Count(PhraseIndex i) const;
  /// The place of its earliest occurrence.
  Place First(PhraseIndex i) const;
  int Words(PhraseIndex i) const;       ///< Number of words.
  int Characters(PhraseIndex i) const;  ///< Number of characters, blanks included.
  /// False for phrases below the minimum frequency and for redundant ones.
  bool Listed(PhraseIndex i) const;
  void SetListed(PhraseIndex i, bool listed);

  // ---- The frequency chain.

  PhraseIndex ChainHead() const;                       ///< kNoPhrase for an empty chain.
  uint32_t ChainLength() const;                        ///< How many phrases are listed by it.
  PhraseRank ChainPosition(PhraseIndex i) const;       ///< The rank; kNoRank when not in the chain.
  PhraseIndex AtChainPosition(PhraseRank rank) const;  ///< The inverse; kNoPhrase beyond the end.
  PhraseIndex ChainNext(PhraseIndex i) const;  ///< kNoPhrase at the end and for entries not in the chain.

  // ---- Runs that keep places.

  /// All places of the phrase, in no order. Empty where the run kept no places. Constant time.
  std::span<const Place> Places(PhraseIndex i) const;
  /// The text that was counted.
  const korv::Corpus& Corpus() const;

  // ---- Folder runs: the files that a phrase occurs in. Costs a sort of its occurrences.

  DocumentCounts Files(PhraseIndex i) const;
  uint32_t FileCount(PhraseIndex i) const;
  /// The files that contributed a phrase, by DocumentNumber: number 1 comes first.
  const std::vector<std::filesystem::path>& FilePaths() const;

  /// The memory that the table and its text take, in bytes; small things left out. Of a finished run.
  uint64_t Bytes() const;

  PhraseTableData& Data() { return *data_; }
  const PhraseTableData& Data() const { return *data_; }

 private:
  std::unique_ptr<PhraseTableData> data_;
};

}  // namespace korv
