#include "engine/analysis/text_parts.h"

#include <algorithm>
#include <limits>

namespace korv {

namespace {

constexpr uint64_t kFewestWordsForEqualParts = 200;
constexpr uint64_t kUsualParts = 10;
constexpr uint64_t kFewestWordsOfUsualPart = 100;

uint64_t UsualParts(uint64_t words) {
  return std::clamp<uint64_t>(words / kFewestWordsOfUsualPart, PartChoice::kLeastEqual, kUsualParts);
}

// Which of `parts` equal ones of `words` words the word with `before` others before it lies in: the greatest
// j with j * words / parts <= before, rounded down.
uint64_t EqualPartOf(uint64_t before, uint64_t words, uint64_t parts) {
  return ((before + 1) * parts - 1) / words;
}

}  // namespace

void TextParts::Divide(const Corpus& corpus, const TakenWords& words, PartChoice choice,
                       std::optional<Side> side) {
  corpus_ = &corpus;
  words_ = &words;
  const std::vector<CorpusSource>& sources = corpus.Sources;
  firstSource_ = side == Side::B ? *corpus.SecondSide : 0;
  endSource_ = side == Side::A ? *corpus.SecondSide : sources.size();
  const auto before = [&](size_t source) {
    return source < sources.size() ? sources[source].WordsBefore : words.Total();
  };
  wordsBefore_ = side ? before(firstSource_) : 0;
  allWords_ = (side ? before(endSource_) : words.Total()) - wordsBefore_;
  const auto asked = static_cast<uint64_t>(choice.Equal);
  if (choice.Equal == PartChoice::kFiles) {
    DivideSources(1);
    if (Count() < 2) DivideEqually(UsualParts(allWords_));
  } else if (choice.OfEachFile) {
    DivideSources(asked);
  } else {
    DivideEqually(asked);
  }
  fewestWords_ = wordsOf_.empty() ? 0 : *std::ranges::min_element(wordsOf_);
  FindBegins();
}

/// The first place with so many words before it; there is one.
Place TextParts::PlaceBehind(uint64_t words) const {
  uint32_t first = 0;
  for (auto length = static_cast<uint32_t>(corpus_->Tokens.size()); length > 0;) {
    const uint32_t half = length / 2;
    const bool below = words_->Before(Place{first + half}) < words;
    first += below ? half + 1 : 0;
    length = below ? length - half - 1 : half;
  }
  return Place{first};
}

/// Parts follow each other without a gap, so that the words before a part are those of the parts before it.
void TextParts::FindBegins() {
  if (!Few()) return;
  begins_.fill(Place{std::numeric_limits<uint32_t>::max()});
  uint64_t before = wordsBefore_;
  for (size_t part = 1; part < Count(); ++part) {
    before += wordsOf_[part - 1];
    begins_[part - 1] = PlaceBehind(before);
  }
}

void TextParts::DivideSources(uint64_t parts) {
  wordsOf_.clear();
  partOfSource_.clear();
  partsOfSource_ = parts;
  if (parts > 1 && allWords_ < kFewestWordsForEqualParts) return;
  for (size_t s = firstSource_; s < endSource_; ++s) {
    partOfSource_.push_back(static_cast<uint32_t>(wordsOf_.size()));
    const uint64_t n = corpus_->WordsOfSource(s, words_->Total());
    const uint64_t k = std::min(parts, n);
    for (uint64_t j = 0; j < k; ++j) wordsOf_.push_back((j + 1) * n / k - j * n / k);
  }
}

void TextParts::DivideEqually(uint64_t parts) {
  wordsOf_.clear();
  partOfSource_.clear();
  const uint64_t n = allWords_;
  if (n < kFewestWordsForEqualParts) return;
  for (uint64_t j = 0; j < parts; ++j) wordsOf_.push_back((j + 1) * n / parts - j * n / parts);
}

uint32_t TextParts::PartOf(Place place) const {
  if (Few()) {
    uint32_t part = 0;
    for (const Place begin : begins_) part += begin <= place ? 1 : 0;
    return part;
  }
  if (partOfSource_.empty())
    return static_cast<uint32_t>(EqualPartOf(words_->Before(place) - wordsBefore_, allWords_, Count()));
  const size_t source = corpus_->SourceAt(place);
  const uint32_t first = partOfSource_[source - firstSource_];
  if (partsOfSource_ == 1) return first;
  const uint64_t before = words_->Before(place);
  const uint64_t words = corpus_->WordsOfSource(source, words_->Total());
  return first + static_cast<uint32_t>(EqualPartOf(before - corpus_->Sources[source].WordsBefore, words,
                                                   std::min(partsOfSource_, words)));
}

}  // namespace korv
