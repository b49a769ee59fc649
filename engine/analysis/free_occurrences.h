#pragma once

#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// How often phrases occur on their own: the occurrences that no occurrence of another phrase contains.
///
/// Phrases are all that were counted and reach the minimum frequency, listed or not. The occurrence of w
/// words at place p is free when no other one, of v words at q, has q <= p and q + v >= p + w. With M[p] the
/// most words of a phrase at p (0 for none), and Reach[p] the greatest q + M[q] of all q < p, it is free
/// exactly where M[p] == w and Reach[p] < p + w. So each place gives at most one free occurrence.
///
/// Phrases that the table has no entry for are redundant by whole words: an occurrence of the longer phrase
/// contains each of theirs, so they are never free and contain nothing that the longer one does not. Entries
/// that were found redundant within words are phrases like others. (Consolidated frequency of Altenberg and
/// Eeg-Olofsson 1990, adjusted frequency of O'Donnell 2011.)
struct FreeOccurrences {
  std::vector<uint32_t> OfEntry;  ///< By PhraseIndex: 0..Count(i). Element 0 stands for no phrase.
  /// By PhraseIndex: those on side A. Empty where the run does not compare.
  std::vector<uint32_t> OnA;
  uint64_t WordsCovered = 0;  ///< Words that stand inside a free occurrence, or any: it is the same.
};

/// Finds them for the table of a run that keeps places. Linear in the tokens and the occurrences, on all
/// threads; memory for the time being 2 bytes a token and 1 byte a place, for good 4 bytes an entry. False
/// when stopped: the result is of no use then.
bool FindFreeOccurrences(const PhraseTable& table, Yielder& yielder, FreeOccurrences& found);

}  // namespace korv
