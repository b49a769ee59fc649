#include "engine/corpus/corpus.h"

#include <algorithm>

namespace korv {

void Corpus::IndexSources() {
  SourceOfBlock.clear();
  size_t source = 0;
  for (size_t place = 0; place < Tokens.size(); place += kSourceBlock) {
    while (source + 1 < Sources.size() && Sources[source + 1].Begin <= place) ++source;
    SourceOfBlock.push_back(static_cast<uint32_t>(source));
  }
}

size_t Corpus::SourceAt(Place place) const {
  const uint32_t block = ValueOf(place) / kSourceBlock;
  const auto first = Sources.begin() + SourceOfBlock[block];
  const auto last =
      block + 1 < SourceOfBlock.size() ? Sources.begin() + SourceOfBlock[block + 1] + 1 : Sources.end();
  const auto after = std::upper_bound(
      first, last, ValueOf(place), [](uint32_t p, const CorpusSource& source) { return p < source.Begin; });
  return static_cast<size_t>(after - Sources.begin()) - 1;
}

uint64_t Corpus::WordsOfSource(size_t source, uint64_t taken) const {
  const uint64_t end = source + 1 < Sources.size() ? Sources[source + 1].WordsBefore : taken;
  return end - Sources[source].WordsBefore;
}

Place Corpus::EndOfSideA() const {
  const size_t end = *SecondSide < Sources.size() ? Sources[*SecondSide].Begin : Tokens.size();
  return Place{static_cast<uint32_t>(end)};
}

}  // namespace korv
