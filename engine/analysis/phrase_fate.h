#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// What may have become of a phrase, in the order in which the rules act.
enum class FateCause {
  ApartByEnds,   ///< Its words follow each other only where a phrase ends between them.
  NeverInARow,   ///< Its words never follow each other.
  TooFewWords,   ///< Fewer than RunOptions::MinWords.
  TooManyWords,  ///< More than RunOptions::MaxWords.
  TooLong,       ///< More than RunOptions::MostCharacters characters.
  AllIgnored,    ///< Nothing but words to ignore, in the mode that excludes such phrases.
  NotCountOnly,  ///< No count-only entry matches.
  TooRare,       ///< Fewer occurrences than RunOptions::MinFrequency.
  Redundant,     ///< As often as a longer listed phrase that contains it.
  Listed,
};

/// Why a phrase is, or is not, among the listed ones.
struct PhraseFate {
  std::vector<FateCause> Causes;  ///< All that hold; Redundant and Listed only by themselves.
  uint64_t Occurrences = 0;       ///< In the text, counted or not.
  uint64_t Apart = 0;             ///< ApartByEnds: how often its words follow each other over phrase ends ...
  Place FirstApart{};             ///< ... and the first word of the first time.
  PhraseIndex Within = kNoPhrase;  ///< Redundant: the shortest such phrase, of equal ones the first.
  uint32_t Rank = 0;               ///< Listed: its place by frequency, from 1.
};

/// Looks what became of a phrase, in the numbers of the counted run; it holds a word and no kNoWord, and at
/// most kMostWords words. False when stopped. Cost: a look at every entry and at the text of those that occur
/// as often; of a phrase that is nowhere, a scan of all tokens.
bool FindPhraseFate(const PhraseTable& table, std::span<const WordNumber> phrase, Yielder& yielder,
                    PhraseFate& fate);

}  // namespace korv
