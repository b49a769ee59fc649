#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/run_options.h"
#include "engine/word_stream.h"
#include "platform/yielder.h"

namespace korv {

/// Index of an entry, 1-based; 0 means none.
using PhraseIndex = uint32_t;

class PhraseTable;

/// The counts of one phrase by file. `FileNumbers` and `FileCounts` are parallel, in reading order;
/// file numbers are 1-based indexes into PhraseTable::FilePaths.
struct FileTally {
  uint32_t FileNumber = 0;
  uint32_t Count = 0;  ///< 1..99,999; more occurrences in one file are not recorded.
};

/// The phrases of one counting run with their numbers of occurrences. (Draft of the public face; see
/// the operations in count_phrases.h, sort_phrases.h, redundancy.h and frequency_chain.h.)
class PhraseTable {
 public:
  PhraseTable();
  ~PhraseTable();
  PhraseTable(PhraseTable&&) noexcept;
  PhraseTable& operator=(PhraseTable&&) noexcept;

  /// Number of different phrases of the run, listed or not.
  uint64_t PhraseCount() const;
  /// Number of phrase occurrences that the run counted, listed or not.
  uint64_t Occurrences() const;

  /// Entries 1..EntryCount(). Only phrases that can be listed are kept as entries: neither those below
  /// the minimum frequency nor those that a one-word-longer phrase makes redundant.
  PhraseIndex EntryCount() const;
  std::string Text(PhraseIndex i) const;
  void AppendText(PhraseIndex i, std::string& out) const;
  std::string Key(PhraseIndex i) const;
  uint32_t Count(PhraseIndex i) const;
  bool Listed(PhraseIndex i) const;
  int Words(PhraseIndex i) const;       ///< Number of words.
  int Characters(PhraseIndex i) const;  ///< Number of characters, blanks included.

  PhraseIndex ChainHead() const;
  uint32_t ChainPosition(PhraseIndex i) const;  ///< Rank, 1 for the first; 0 when not in the chain.
  PhraseIndex ChainNext(PhraseIndex i) const;   ///< 0 at the end.

  /// Folder runs only. Cost: the phrase's number of occurrences.
  uint32_t FileCount(PhraseIndex i) const;
  std::vector<FileTally> Files(PhraseIndex i) const;
  const std::vector<std::filesystem::path>& FilePaths() const;
};

/// Counts every phrase of the stream and fills `table` with those that may be listed, in ascending order
/// of Key, then Text. `found` is told the number of different phrases found so far. A stop leaves the
/// table usable only after another call that is not stopped; returns false then.
bool CountPhrases(WordStream& stream, PhraseTable& table, Yielder& yielder);
/// Clears Listed of every entry that a longer phrase of the same count contains. False when stopped.
bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder);

enum class ChainOrder { ByCount, ByFiles };
/// Orders the listed entries: by Count (or FileCount, then Count), descending, then by index.
bool SetUpFrequencyChain(PhraseTable& table, ChainOrder order, Yielder& yielder);

}  // namespace korv
