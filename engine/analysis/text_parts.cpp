#include "engine/analysis/text_parts.h"

#include <algorithm>

namespace korv {

namespace {

constexpr uint64_t kFewestWordsForEqualParts = 200;
constexpr uint64_t kUsualParts = 10;
constexpr uint64_t kFewestWordsOfUsualPart = 100;

uint64_t UsualParts(uint64_t words) {
  return std::clamp<uint64_t>(words / kFewestWordsOfUsualPart, PartChoice::kLeastEqual, kUsualParts);
}

}  // namespace

void TextParts::Divide(const Corpus& corpus, const TakenWords& words, PartChoice choice) {
  corpus_ = &corpus;
  words_ = &words;
  if (choice.Equal == PartChoice::kFiles) {
    DivideByFiles();
    if (Count() < 2) DivideEqually(UsualParts(words.Total()));
  } else {
    DivideEqually(static_cast<uint64_t>(choice.Equal));
  }
  fewestWords_ = wordsOf_.empty() ? 0 : *std::ranges::min_element(wordsOf_);
}

void TextParts::DivideByFiles() {
  wordsOf_.clear();
  partOfSource_.clear();
  const std::vector<CorpusSource>& sources = corpus_->Sources;
  for (size_t s = 0; s < sources.size(); ++s) {
    const uint64_t end = s + 1 < sources.size() ? sources[s + 1].WordsBefore : words_->Total();
    partOfSource_.push_back(static_cast<uint32_t>(wordsOf_.size()));
    if (end > sources[s].WordsBefore) wordsOf_.push_back(end - sources[s].WordsBefore);
  }
}

void TextParts::DivideEqually(uint64_t parts) {
  wordsOf_.clear();
  partOfSource_.clear();
  const uint64_t n = words_->Total();
  if (n < kFewestWordsForEqualParts) return;
  for (uint64_t j = 0; j < parts; ++j) wordsOf_.push_back((j + 1) * n / parts - j * n / parts);
}

uint32_t TextParts::PartOf(Place place) const {
  if (!partOfSource_.empty()) return partOfSource_[corpus_->SourceAt(place)];
  // The greatest j with j * n / k <= place, rounded down.
  return static_cast<uint32_t>(((words_->Before(place) + 1) * Count() - 1) / words_->Total());
}

}  // namespace korv
