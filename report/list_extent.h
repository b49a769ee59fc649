#pragma once

#include <cstdint>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// What all phrases of a list have in common, over the listed ones and before any filter.
struct ListExtent {
  uint32_t Phrases = 0;       ///< Number of listed phrases.
  uint32_t HighestCount = 0;  ///< Occurrences of the most frequent one.
  int LongestCharacters = 0;  ///< Characters of the longest one.
  int LongestWords = 0;       ///< The most words in one.
  uint64_t Occurrences = 0;   ///< Sum of their counts.
};

/// Yields, and measures the whole list whether or not a stop is asked for. Linear in the entries; on all
/// threads where there are many.
ListExtent MeasureList(const PhraseTable& table, Yielder& yielder);

}  // namespace korv
