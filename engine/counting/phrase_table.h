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

/// The phrases of one counting run with their numbers of occurrences.
///
/// It is filled in one of two ways. A counting run fills it from the words of the whole text
/// (CountPhrases, count_phrases.h) and keeps as entries only the phrases that may be listed; the others are
/// in PhraseCount() and Occurrences(). AddWordToList fills it one phrase at a time and keeps them all; that
/// is how word lists are read. Then, in this order: SortPhrases, ExcludeRedundantSubphrases,
/// SetUpFrequencyChain.
///
/// Phrases are kept as places in the text, 16 bytes each, however long they are; their characters are put
/// together when asked for.
class PhraseTable {
 public:
  PhraseTable();
  ~PhraseTable();
  PhraseTable(PhraseTable&&) noexcept;
  PhraseTable& operator=(PhraseTable&&) noexcept;

  /// Number of different phrases found so far, listed or not. Never decreases during a run; may be asked
  /// from any thread.
  uint64_t PhraseCount() const;
  /// Number of phrase occurrences counted, listed or not: the whole that relative frequencies refer to.
  uint64_t Occurrences() const;
  /// Number of phrase occurrences that only their length kept from being counted: more characters than
  /// kMostPhraseCharacters.
  uint64_t LongPhrases() const;

  // ---- Filling one phrase at a time.

  /// Empties the table. `forWordList`: entries are words of a list, without limit of length and files.
  void Clear(bool forWordList = false);
  /// Counts one occurrence of `phrase` (words joined by single blanks). In a phrase run phrases of more
  /// than kMostPhraseCharacters are ignored. Expected constant cost.
  void AddWordToList(std::string_view phrase);
  /// From here on phrases belong to the file `path`; it gets a number with its first phrase.
  void BeginFile(const std::filesystem::path& path);

  struct Lookup {
    bool Found;
    /// The place of the phrase among all phrases in descending order of Text, 1-based; when it is not
    /// there, the negated place at which it would be inserted.
    int64_t Position;
  };
  /// Where `text` stands. Binary search; the first call after a change sorts.
  Lookup FindPhrase(std::string_view text) const;
  /// The most halving steps that a FindPhrase has taken.
  int MaxSearchDepth() const;

  // ---- Entries 1..EntryCount(); ascending by Key, then Text, once sorted.

  uint32_t EntryCount() const;
  /// All of them, in the order of the table.
  IndexRange<PhraseIndex> All() const { return {PhraseIndex{1}, PhraseIndex{EntryCount()}}; }
  void AppendText(PhraseIndex i, std::string& out) const;
  std::string Text(PhraseIndex i) const;
  /// Hints that Text(i) and the numbers of entry `i` will be wanted soon, and that those of `later` will be
  /// a little after them. Entries outside the table are no harm.
  void Prefetch(PhraseIndex i, PhraseIndex later) const;
  /// The folded, lower-cased form by which entries are ordered.
  std::string Key(PhraseIndex i) const;
  uint32_t Count(PhraseIndex i) const;
  /// The place of its earliest occurrence in the Corpus().
  Place First(PhraseIndex i) const;
  int Words(PhraseIndex i) const;       ///< Number of words.
  int Characters(PhraseIndex i) const;  ///< Number of characters, blanks included.
  /// Cleared for phrases below the minimum frequency and for redundant ones.
  bool Listed(PhraseIndex i) const;
  void SetListed(PhraseIndex i, bool listed);

  // ---- The frequency chain.

  PhraseIndex ChainHead() const;                       ///< kNoPhrase for an empty chain.
  PhraseRank ChainPosition(PhraseIndex i) const;       ///< The rank; kNoRank when not in the chain.
  PhraseIndex AtChainPosition(PhraseRank rank) const;  ///< The inverse; kNoPhrase beyond the end.
  PhraseIndex ChainNext(PhraseIndex i) const;  ///< kNoPhrase at the end and for entries not in the chain.

  // ---- Runs that keep places.

  /// Where the phrase stands, in no order; empty where the run kept no places. Constant.
  std::span<const Place> Places(PhraseIndex i) const;
  /// The text that was counted.
  const korv::Corpus& Corpus() const;

  // ---- Folder runs: the files that a phrase occurs in. Cost: its number of occurrences.

  DocumentCounts Files(PhraseIndex i) const;
  uint32_t FileCount(PhraseIndex i) const;
  /// The files that contributed a phrase, in reading order; file number 1 is the first.
  const std::vector<std::filesystem::path>& FilePaths() const;

  PhraseTableData& Data() { return *data_; }
  const PhraseTableData& Data() const { return *data_; }

 private:
  std::unique_ptr<PhraseTableData> data_;
};

}  // namespace korv
