#include "engine/analysis/phrase_analysis.h"

#include <algorithm>

#include "engine/analysis/reduced_frequency.h"

namespace korv {

AnalysisNeeds& AnalysisNeeds::operator|=(const AnalysisNeeds& other) {
  Positions |= other.Positions;
  Parts |= other.Parts;
  FreeOccurrences |= other.FreeOccurrences;
  return *this;
}

bool PhraseAnalysis::Prepare(const AnalysisNeeds& needs, Yielder& yielder) {
  if (table_.Corpus().Places.empty()) return true;
  if ((needs.Positions || needs.Parts) && !prepared_.Positions) {
    if (!words_.Build(table_.Corpus(), yielder)) return false;
    prepared_.Positions = true;
  }
  if (needs.Parts && !prepared_.Parts) {
    parts_.Divide(table_.Corpus(), words_, choice_);
    prepared_.Parts = true;
  }
  if (needs.FreeOccurrences && !prepared_.FreeOccurrences) {
    if (!FindFreeOccurrences(table_, yielder, free_)) return false;
    prepared_.FreeOccurrences = true;
  }
  return true;
}

std::optional<double> PhraseAnalysis::Dispersion(PhraseIndex phrase,
                                                 double (*measure)(const PhraseSpread&)) const {
  if (parts_.Count() == 0 || table_.Count(phrase) < 2) return std::nullopt;
  const std::vector<PhraseSpread::Part> parts = PartsWith(phrase);
  return measure({.Parts = parts,
                  .Occurrences = table_.Count(phrase),
                  .AllParts = parts_.Count(),
                  .AllWords = parts_.Words(),
                  .FewestWords = parts_.FewestWords()});
}

std::optional<uint32_t> PhraseAnalysis::Range(PhraseIndex phrase) const {
  if (parts_.Count() == 0) return std::nullopt;
  return static_cast<uint32_t>(PartsWith(phrase).size());
}

/// In the order of the text.
std::vector<PhraseSpread::Part> PhraseAnalysis::PartsWith(PhraseIndex phrase) const {
  std::vector<uint32_t> partOf;
  partOf.reserve(table_.Count(phrase));
  for (const Place place : table_.Places(phrase)) partOf.push_back(parts_.PartOf(place));
  std::ranges::sort(partOf);
  std::vector<PhraseSpread::Part> parts;
  for (size_t i = 0; i < partOf.size(); ++i) {
    if (i == 0 || partOf[i] != partOf[i - 1]) parts.push_back({0, parts_.WordsOf(partOf[i])});
    ++parts.back().Occurrences;
  }
  return parts;
}

std::optional<double> PhraseAnalysis::ReducedFrequency(PhraseIndex phrase) const {
  if (!prepared_.Positions) return std::nullopt;
  std::vector<uint64_t> positions;
  positions.reserve(table_.Count(phrase));
  for (const Place place : table_.Places(phrase)) positions.push_back(words_.Before(place));
  std::ranges::sort(positions);
  return AverageReducedFrequency(positions, words_.Total());
}

std::optional<uint32_t> PhraseAnalysis::NetFrequency(PhraseIndex phrase) const {
  if (!prepared_.FreeOccurrences) return std::nullopt;
  return free_.OfEntry[ValueOf(phrase)];
}

}  // namespace korv
