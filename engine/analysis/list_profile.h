#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/yielder.h"
#include "engine/counting/phrase_table.h"
#include "engine/run_options.h"

namespace korv {

/// The listed phrases that have one frequency.
struct FrequencyStep {
  uint32_t Frequency;
  uint64_t Phrases;  ///< How many of them; at least 1.

  bool operator==(const FrequencyStep&) const = default;
};

/// The listed phrases that have one number of words.
struct LengthStep {
  uint64_t Phrases = 0;
  uint64_t Occurrences = 0;  ///< Of these phrases together.

  bool operator==(const LengthStep&) const = default;
};

/// What a list looks like from afar.
struct ListProfile {
  /// In descending order of frequency. The phrases of step s have the ranks from 1 + the phrases of all
  /// steps before it on. Few: n occurrences have at most sqrt(2 n) different frequencies.
  std::vector<FrequencyStep> Frequencies;
  /// By number of words.
  std::array<LengthStep, kMostWords + 1> Lengths{};
};

/// The profile of the listed phrases. Cost: a step per entry, and a sort of the different frequencies.
/// Returns false when stopped; the profile is of no use then.
bool FindListProfile(const PhraseTable& table, Yielder& yielder, ListProfile& profile);

}  // namespace korv
