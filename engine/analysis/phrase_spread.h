#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/analysis/taken_words.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// How many of a phrase's occurrences begin in each of `parts` equal parts of the n words taken: part j holds
/// the words from floor(j n / parts) up to floor((j + 1) n / parts), the last one excluded. Cost: a step per
/// occurrence. The run kept its places.
std::vector<uint32_t> OccurrencesByPart(const PhraseTable& table, PhraseIndex phrase, const TakenWords& words,
                                        size_t parts);

/// Where the texts of a run border on each other: as shares of the n words taken, between 0 and 1, ascending.
/// Texts without a word taken have no borders. Linear in the texts.
std::vector<double> TextBorders(const Corpus& corpus, const TakenWords& words);

/// A text of the run with the occurrences of some phrases.
struct SourceOccurrences {
  size_t Source;                      ///< Its index in Corpus::Sources.
  std::vector<uint32_t> Occurrences;  ///< Of each of the phrases.

  bool operator==(const SourceOccurrences&) const = default;
};

/// The texts that hold one of the phrases: those with most of their occurrences first, of equals the one that
/// was read first. Cost: a step per occurrence, and a sort of the texts. The run kept its places.
std::vector<SourceOccurrences> OccurrencesBySource(const PhraseTable& table,
                                                   std::span<const PhraseIndex> phrases);

}  // namespace korv
