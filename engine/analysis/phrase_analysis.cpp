#include "engine/analysis/phrase_analysis.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/analysis/c_value.h"
#include "engine/analysis/reduced_frequency.h"
#include "engine/analysis/word_frequencies.h"

namespace korv {

namespace {

/// Makes what is needed and not there yet. False when stopped.
template <typename Part>
bool PrepareOnce(bool needed, std::shared_ptr<const Part>& part, const auto& make) {
  if (!needed || part) return true;
  const auto made = std::make_shared<Part>();
  if (!make(*made)) return false;
  part = made;
  return true;
}

}  // namespace

AnalysisNeeds& AnalysisNeeds::operator|=(const AnalysisNeeds& other) {
  Positions |= other.Positions;
  Parts |= other.Parts;
  FreeOccurrences |= other.FreeOccurrences;
  Words |= other.Words;
  Joints |= other.Joints;
  CValues |= other.CValues;
  return *this;
}

void PhraseAnalysis::Divide(PartChoice parts) {
  if (parts == choice_) return;
  choice_ = parts;
  parts_ = nullptr;
}

bool PhraseAnalysis::Prepare(const AnalysisNeeds& needs, Yielder& yielder) {
  const Corpus& corpus = table_.Corpus();
  // C-values are made of the phrases alone.
  if (!PrepareOnce(needs.CValues, cValues_,
                   [&](auto& values) { return FindCValues(table_, yielder, values); }))
    return false;
  if (corpus.Places.empty()) return true;
  const auto find = [&](const auto& function) {
    return [&](auto& found) { return function(table_, yielder, found); };
  };
  return PrepareOnce(needs.Positions || needs.Parts, words_,
                     [&](TakenWords& words) { return words.Build(corpus, yielder); }) &&
         PrepareOnce(needs.Parts, parts_,
                     [&](TextParts& parts) {
                       parts.Divide(corpus, *words_, choice_);
                       return true;
                     }) &&
         PrepareOnce(needs.FreeOccurrences, free_, find(FindFreeOccurrences)) &&
         PrepareOnce(needs.Words, wordFrequencies_,
                     [&](auto& frequencies) { return CountWords(corpus, yielder, frequencies); }) &&
         PrepareOnce(needs.Joints, joints_, find(CountJoints));
}

std::optional<double> PhraseAnalysis::Dispersion(PhraseIndex phrase,
                                                 double (*measure)(const PhraseSpread&)) const {
  if (!parts_ || parts_->Count() == 0 || table_.Count(phrase) < 2) return std::nullopt;
  const std::vector<PhraseSpread::Part> parts = PartsWith(phrase);
  return measure({.Parts = parts,
                  .Occurrences = table_.Count(phrase),
                  .AllParts = parts_->Count(),
                  .AllWords = parts_->Words(),
                  .FewestWords = parts_->FewestWords()});
}

std::optional<uint32_t> PhraseAnalysis::Range(PhraseIndex phrase) const {
  if (!parts_ || parts_->Count() == 0) return std::nullopt;
  return static_cast<uint32_t>(PartsWith(phrase).size());
}

/// In the order of the text.
std::vector<PhraseSpread::Part> PhraseAnalysis::PartsWith(PhraseIndex phrase) const {
  std::vector<uint32_t> partOf;
  partOf.reserve(table_.Count(phrase));
  for (const Place place : table_.Places(phrase)) partOf.push_back(parts_->PartOf(place));
  std::ranges::sort(partOf);
  std::vector<PhraseSpread::Part> parts;
  for (size_t i = 0; i < partOf.size(); ++i) {
    if (i == 0 || partOf[i] != partOf[i - 1]) parts.push_back({0, parts_->WordsOf(partOf[i])});
    ++parts.back().Occurrences;
  }
  return parts;
}

std::optional<double> PhraseAnalysis::ReducedFrequency(PhraseIndex phrase) const {
  if (!words_) return std::nullopt;
  std::vector<uint64_t> positions;
  positions.reserve(table_.Count(phrase));
  for (const Place place : table_.Places(phrase)) positions.push_back(words_->Before(place));
  std::ranges::sort(positions);
  return AverageReducedFrequency(positions, words_->Total());
}

std::optional<uint32_t> PhraseAnalysis::NetFrequency(PhraseIndex phrase) const {
  if (!free_) return std::nullopt;
  return free_->OfEntry[ValueOf(phrase)];
}

std::optional<double> PhraseAnalysis::Coverage() const {
  if (!free_ || !words_ || words_->Total() == 0) return std::nullopt;
  return static_cast<double>(free_->WordsCovered) / static_cast<double>(words_->Total());
}

std::optional<double> PhraseAnalysis::Association(PhraseIndex phrase,
                                                  double (*measure)(const PhraseWords&)) const {
  const auto words = static_cast<size_t>(table_.Words(phrase));
  if (!wordFrequencies_ || !words_ || words < 2) return std::nullopt;
  std::array<uint32_t, kMostWords> frequencies;
  const WordNumber* const first = table_.Corpus().From(table_.First(phrase));
  for (size_t k = 0; k < words; ++k) frequencies[k] = (*wordFrequencies_)[ValueOf(first[k])];
  return measure({.Frequencies = std::span(frequencies).first(words),
                  .Frequency = table_.Count(phrase),
                  .Words = words_->Total()});
}

bool PhraseAnalysis::HasJoints(PhraseIndex phrase) const {
  return joints_ && joints_->Weakest[ValueOf(phrase)] > 0;
}

std::optional<double> PhraseAnalysis::WeakestJoint(PhraseIndex phrase) const {
  if (!HasJoints(phrase) || !words_) return std::nullopt;
  return std::log2(static_cast<double>(words_->Total()) * table_.Count(phrase) /
                   static_cast<double>(joints_->Weakest[ValueOf(phrase)]));
}

std::optional<double> PhraseAnalysis::ForwardProbability(PhraseIndex phrase) const {
  if (!HasJoints(phrase)) return std::nullopt;
  return table_.Count(phrase) / static_cast<double>(joints_->WithoutLast[ValueOf(phrase)]);
}

std::optional<double> PhraseAnalysis::BackwardProbability(PhraseIndex phrase) const {
  if (!HasJoints(phrase)) return std::nullopt;
  return table_.Count(phrase) / static_cast<double>(joints_->WithoutFirst[ValueOf(phrase)]);
}

std::optional<double> PhraseAnalysis::CValue(PhraseIndex phrase) const {
  if (!cValues_) return std::nullopt;
  return (*cValues_)[ValueOf(phrase)];
}

}  // namespace korv
