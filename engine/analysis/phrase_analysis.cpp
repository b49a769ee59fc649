#include "engine/analysis/phrase_analysis.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/analysis/c_value.h"
#include "engine/analysis/reduced_frequency.h"
#include "engine/analysis/word_frequencies.h"

namespace korv {

namespace {

/// The parts with places, in the order of the text. One object serves many phrases: it keeps its room.
class PartsWithPlaces {
 public:
  std::span<const PhraseSpread::Part> Of(std::span<const Place> places, const TextParts& parts) {
    with_.clear();
    if (parts.Few())
      CountInFew(places, parts);
    else
      CountInMany(places, parts);
    return with_;
  }

 private:
  void CountInFew(std::span<const Place> places, const TextParts& parts) {
    std::array<uint32_t, TextParts::kFew> occurrences{};
    for (const Place place : places) ++occurrences[parts.PartOf(place)];
    for (size_t part = 0; part < parts.Count(); ++part)
      if (occurrences[part] > 0) with_.push_back({occurrences[part], parts.WordsOf(part)});
  }

  void CountInMany(std::span<const Place> places, const TextParts& parts) {
    partOf_.clear();
    for (const Place place : places) partOf_.push_back(parts.PartOf(place));
    std::ranges::sort(partOf_);
    for (size_t i = 0; i < partOf_.size(); ++i) {
      if (i == 0 || partOf_[i] != partOf_[i - 1]) with_.push_back({0, parts.WordsOf(partOf_[i])});
      ++with_.back().Occurrences;
    }
  }

  std::vector<uint32_t> partOf_;
  std::vector<PhraseSpread::Part> with_;
};

std::span<const PhraseSpread::Part> PartsWith(std::span<const Place> places, const TextParts& parts) {
  // Millions of phrases ask, most of them with two or three places.
  thread_local PartsWithPlaces room;
  return room.Of(places, parts);
}

std::optional<double> DispersionOf(std::span<const Place> places, const TextParts* parts,
                                   double (*measure)(const PhraseSpread&)) {
  if (parts == nullptr || parts->Count() == 0 || places.size() < 2) return std::nullopt;
  return measure({.Parts = PartsWith(places, *parts),
                  .Occurrences = places.size(),
                  .AllParts = parts->Count(),
                  .AllWords = parts->Words(),
                  .FewestWords = parts->FewestWords()});
}

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
  Sides |= other.Sides;
  SideFiles |= other.SideFiles;
  SideParts |= other.SideParts;
  return *this;
}

void PhraseAnalysis::Divide(PartChoice parts) {
  if (parts == choice_) return;
  choice_ = parts;
  parts_ = nullptr;
  sideParts_ = {};
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
         PrepareOnce(needs.Joints, joints_, find(CountJoints)) &&
         (!corpus.SecondSide || PrepareSides(needs, yielder));
}

bool PhraseAnalysis::PrepareSides(const AnalysisNeeds& needs, Yielder& yielder) {
  const Corpus& corpus = table_.Corpus();
  const bool files = needs.SideFiles || (needs.Sides && basis_ == ComparisonBasis::Files);
  const bool words = files || needs.SideParts;
  if (!PrepareOnce(words, words_, [&](TakenWords& taken) { return taken.Build(corpus, yielder); }) ||
      !PrepareOnce(needs.Sides, sideCounts_,
                   [&](SideCounts& counts) { return CountOnSides(table_, yielder, counts); }) ||
      !PrepareOnce(
          files, sideFiles_,
          [&](korv::SideFiles& found) { return CountFilesOfSides(table_, *words_, yielder, found); }) ||
      !PrepareOnce(needs.Sides && basis_ == ComparisonBasis::Net, free_,
                   [&](FreeOccurrences& found) { return FindFreeOccurrences(table_, yielder, found); }))
    return false;
  for (const Side side : {Side::A, Side::B})
    PrepareOnce(needs.SideParts, sideParts_[static_cast<size_t>(side)], [&](TextParts& parts) {
      parts.Divide(corpus, *words_, choice_, side);
      return true;
    });
  return true;
}

std::optional<double> PhraseAnalysis::Dispersion(PhraseIndex phrase,
                                                 double (*measure)(const PhraseSpread&)) const {
  return DispersionOf(table_.Places(phrase), parts_.get(), measure);
}

std::optional<uint32_t> PhraseAnalysis::Range(PhraseIndex phrase) const {
  if (!parts_ || parts_->Count() == 0) return std::nullopt;
  return static_cast<uint32_t>(PartsWith(table_.Places(phrase), *parts_).size());
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

std::optional<uint32_t> PhraseAnalysis::Compared(PhraseIndex phrase, Side side) const {
  switch (basis_) {
    case ComparisonBasis::Words:
      break;
    case ComparisonBasis::Files:
      return FilesOn(phrase, side);
    case ComparisonBasis::Net:
      if (!free_ || free_->OnA.empty()) return std::nullopt;
      const uint32_t onA = free_->OnA[ValueOf(phrase)];
      return side == Side::A ? onA : free_->OfEntry[ValueOf(phrase)] - onA;
  }
  return FrequencyOn(phrase, side);
}

std::optional<uint32_t> PhraseAnalysis::FrequencyOn(PhraseIndex phrase, Side side) const {
  if (!sideCounts_) return std::nullopt;
  const uint32_t onA = sideCounts_->OnA[ValueOf(phrase)];
  return side == Side::A ? onA : table_.Count(phrase) - onA;
}

std::optional<uint32_t> PhraseAnalysis::FilesOn(PhraseIndex phrase, Side side) const {
  if (!sideFiles_) return std::nullopt;
  return sideFiles_->OfEntry[ValueOf(phrase)][static_cast<size_t>(side)];
}

std::optional<uint32_t> PhraseAnalysis::FilesWithWords(Side side) const {
  if (!sideFiles_) return std::nullopt;
  return sideFiles_->WithWords[static_cast<size_t>(side)];
}

std::optional<double> PhraseAnalysis::DispersionOn(PhraseIndex phrase, Side side,
                                                   double (*measure)(const PhraseSpread&)) const {
  const TextParts* const parts = sideParts_[static_cast<size_t>(side)].get();
  if (parts == nullptr) return std::nullopt;
  const Place end = table_.Corpus().EndOfSideA();
  std::vector<Place> places;
  for (const Place place : table_.Places(phrase))
    if ((place < end) == (side == Side::A)) places.push_back(place);
  return DispersionOf(places, parts, measure);
}

}  // namespace korv
