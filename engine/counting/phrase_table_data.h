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

/// A phrase: the Words tokens from First on.
struct PhraseEntry {
  Place First;     ///< Of its earliest occurrence.
  uint32_t Count;  ///< Of its occurrences.
  /// Index of its first place in Corpus::Places where places are kept, else in CountsOfEntries.
  uint32_t Slice;
  uint8_t Words;
  bool Listed;
};
static_assert(sizeof(PhraseEntry) == 16);

/// The contents of a PhraseTable, for the stages that fill and order it.
///
///   Entries[i - 1] is entry i;
///   Chain[r - 1] == i  ==  Rank[i] == r, for every listed entry i once the chain is there;
///   the places of entry e, where they are kept, are Corpus.Places[s] with e.Slice <= s < e.Slice + e.Count;
///   e.First is the least of them.
struct PhraseTableData {
  korv::Corpus Corpus;
  // Words are renumbered by rank, block by block of tokens, so that a stop can come between two blocks.
  RawVector<WordNumber> NewNumbers;
  std::vector<uint8_t> BlockRenumbered;

  std::vector<PhraseEntry> Entries;
  std::atomic<uint64_t> PhraseCount{0};
  uint64_t Occurrences = 0;
  uint64_t LongPhrases = 0;
  /// No entry is contained in another of the same count along word boundaries.
  bool OnlyMaximal = false;
  /// Entries ascend by the numbers of their words. That is the order by Key unless words share Keys.
  bool OrderedByNumbers = false;

  // Folder runs.
  std::vector<DocumentNumber> FileNumberOfSource;  ///< kNoDocument for a source without a phrase.
  std::vector<std::filesystem::path> FilePaths;

  // The frequency chain.
  RawVector<PhraseIndex> Chain;
  RawVector<PhraseRank> Rank;

  // Only while phrases are added one at a time.
  bool ForWordList = false;
  std::unordered_map<std::string, PhraseIndex> IndexOfText;
  std::vector<DocumentCounts> CountsOfEntries;
  std::filesystem::path CurrentFile;
  bool CurrentFileNumbered = false;
  mutable std::vector<PhraseIndex> ByText;  ///< In descending order of Text. Empty when outdated.
  mutable int MaxSearchDepth = 0;
};

/// Entries of a table lie all over its text. A loop over them prefetches the words of the one that is so far
/// ahead.
inline constexpr size_t kEntriesAhead = 16;

/// Prefetches the words of an entry; does nothing behind the last.
inline void PrefetchWords(const PhraseTableData& data, size_t entry) {
  if (entry < data.Entries.size()) __builtin_prefetch(data.Corpus.From(data.Entries[entry].First));
}

}  // namespace korv
