#pragma once

#include <cstdint>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// What a text offers of phrases of the run's lengths, and what keeps them from being counted.
struct OfferedPhrases {
  /// Occurrences of MinWords to MaxWords words in a row, counted or not. Where phrases with a word to ignore
  /// are excluded, such a word ends a row.
  uint64_t Offered = 0;
  // What is not counted, each for the first reason that holds.
  uint64_t TooLong = 0;       ///< More than kMostPhraseCharacters characters.
  uint64_t AllIgnored = 0;    ///< Nothing but words to ignore, in the mode that excludes such phrases.
  uint64_t NotCountOnly = 0;  ///< No count-only entry matches.

  int LongestRow = 0;        ///< The most words that stand in a row, MaxWords at most.
  uint64_t WordsInRows = 0;  ///< Words of the text but for those that end phrases themselves.

  uint64_t Counted() const { return Offered - TooLong - AllIgnored - NotCountOnly; }
};

/// Looks at the whole text of a counted table; made for telling why nothing was counted. Proportional to the
/// text times MaxWords. False when stopped, with what was seen up to there.
bool FindOfferedPhrases(const PhraseTable& table, Yielder& yielder, OfferedPhrases& offered);

}  // namespace korv
