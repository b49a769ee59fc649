#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/corpus/corpus.h"
#include "engine/corpus/document_counts.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// One phrase: a place in the text.
struct PhraseEntry {
  Place First;     ///< Of its earliest occurrence.
  uint32_t Count;  ///< All occurrences.
  uint32_t Slice;  ///< Where places are kept: index in Corpus.Places of the first of Count. Else in
                   ///< CountsOfEntries.
  uint8_t Words;   ///< Number of words.
  bool Listed;
};
static_assert(sizeof(PhraseEntry) == 16);

/// What lies behind a PhraseTable, for the stages that fill and order it.
struct PhraseTableData {
  korv::Corpus Corpus;
  /// Renumbering by rank goes block by block, so that a stop may come between two.
  RawVector<WordNumber> NewNumbers;
  std::vector<uint8_t> BlockRenumbered;

  // The phrases, entry i at Entries[i - 1].
  std::vector<PhraseEntry> Entries;
  std::atomic<uint64_t> PhraseCount{0};
  uint64_t Occurrences = 0;
  uint64_t LongPhrases = 0;
  /// Containment along word boundaries was already resolved, so that no entry contains another that way.
  bool OnlyMaximal = false;
  /// Entries ascend by word numbers (which is the order by Key unless words share Keys).
  bool OrderedByNumbers = false;

  // Folder runs.
  std::vector<DocumentNumber> FileNumberOfSource;  ///< kNoDocument for a source without a phrase.
  std::vector<std::filesystem::path> FilePaths;

  // The chain: entries by rank, and ranks by entry (both 1-based values; element 0 of Rank is unused).
  RawVector<PhraseIndex> Chain;
  RawVector<PhraseRank> Rank;

  // Filling one phrase at a time; over once the entries are sorted.
  bool ForWordList = false;
  std::unordered_map<std::string, PhraseIndex> IndexOfText;
  std::vector<DocumentCounts> CountsOfEntries;
  std::filesystem::path CurrentFile;
  bool CurrentFileNumbered = false;
  mutable std::vector<PhraseIndex> ByText;  ///< Entries in descending order of Text; empty when outdated.
  mutable int MaxSearchDepth = 0;
};

}  // namespace korv
