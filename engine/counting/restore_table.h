#pragma once

#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/text/word_counts.h"

namespace korv {

/// What the table of a finished run consists of, and nothing that follows from the rest: not the first places
/// of phrases, which places belong to which word, the numbers of files and the frequency chain.
struct StoredTable {
  /// Its rules, options and filters are set; the run kept places. Its words are ranked. SourceOfBlock and
  /// PlacesOfWord are not looked at.
  korv::Corpus Corpus;
  /// In the order of the table. First is not looked at.
  std::vector<PhraseEntry> Entries;
  /// Per source, whether a phrase was counted in it. Empty unless the source was a folder.
  std::vector<uint8_t> SourceHasPhrase;
  uint64_t PhraseCount = 0;
  uint64_t Occurrences = 0;
  uint64_t LongPhrases = 0;
};

/// The parts of a finished run's table, to be stored. The run kept places.
std::vector<uint8_t> SourcesWithPhrase(const PhraseTableData& data);

/// Makes the table of a finished run again, but for its frequency chain, without counting. Trusts nothing:
/// every index and order on which the engine relies is looked at, and `words`, the words of the run, too.
/// What the numbers of phrases say of themselves (Occurrences and the like) is only held against each other.
/// False where there is no such table, and when stopped; `table` is of no use then.
///
/// Cost: on all threads about one comparison of words a place, and a look at each occurrence of an entry; a
/// byte a place meanwhile.
bool RestoreTable(StoredTable&& stored, const WordCounts& words, PhraseTable& table, Yielder& yielder);

}  // namespace korv
