#pragma once

#include <cstdint>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// The phrases of the run's lengths in a text, and why they were not counted.
struct OfferedPhrases {
  /// Occurrences of MinWords to MaxWords words in a row, counted or not. A word to ignore ends a row where
  /// phrases that hold one are excluded.
  uint64_t Offered = 0;
  // Occurrences that do not count, each under the first reason that holds.
  uint64_t TooLong = 0;       ///< More than RunOptions::MostCharacters characters.
  uint64_t AllIgnored = 0;    ///< Nothing but words to ignore, in the mode that excludes such phrases.
  uint64_t NotCountOnly = 0;  ///< No count-only entry matches.

  int LongestRow = 0;        ///< The most words in a row; MaxWords at most.
  uint64_t WordsInRows = 0;  ///< The tokens that are words.

  uint64_t Counted() const { return Offered - TooLong - AllIgnored - NotCountOnly; }
};

/// Examines the text of a counted table, in order to explain why nothing was counted. Cost: the text times
/// MaxWords. Returns false when stopped, with the numbers up to there.
bool FindOfferedPhrases(const PhraseTable& table, Yielder& yielder, OfferedPhrases& offered);

}  // namespace korv
