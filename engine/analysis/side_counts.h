#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "engine/analysis/taken_words.h"
#include "engine/corpus/side.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// How often phrases occur on the two sides of a run that compares (Corpus::SecondSide).
struct SideCounts {
  /// By PhraseIndex: their occurrences on side A. All others are on side B. Element 0 stands for no phrase.
  std::vector<uint32_t> OnA;
};

/// In how many files of each side phrases occur.
struct SideFiles {
  using Pair = std::array<uint32_t, 2>;  ///< By Side.

  std::vector<Pair> OfEntry;  ///< By PhraseIndex. Element 0 stands for no phrase.
  Pair WithWords{};           ///< The files of each side with at least one word taken.
};

/// Both are for the table of a run that keeps places and compares, take time linear in the occurrences
/// (files: and the logarithm of those of a phrase) on all threads, 4 and 8 bytes an entry, and return false
/// when stopped: `found` is of no use then.
bool CountOnSides(const PhraseTable& table, Yielder& yielder, SideCounts& found);
bool CountFilesOfSides(const PhraseTable& table, const TakenWords& words, Yielder& yielder, SideFiles& found);

}  // namespace korv
