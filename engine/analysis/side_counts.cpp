#include "engine/analysis/side_counts.h"

#include <algorithm>

#include "base/workers.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

/// Index `i` of 0.. as that of an entry.
PhraseIndex EntryAt(size_t i) {
  return PhraseIndex{static_cast<uint32_t>(i) + 1};
}

/// `sources` is room for the files of a phrase.
SideFiles::Pair FilesOf(const Corpus& corpus, std::span<const Place> places, std::vector<size_t>& sources) {
  sources.clear();
  for (const Place place : places) sources.push_back(corpus.SourceAt(place));
  std::ranges::sort(sources);
  sources.erase(std::unique(sources.begin(), sources.end()), sources.end());
  const auto ofB = std::ranges::lower_bound(sources, *corpus.SecondSide);
  return {static_cast<uint32_t>(ofB - sources.begin()), static_cast<uint32_t>(sources.end() - ofB)};
}

}  // namespace

bool CountOnSides(const PhraseTable& table, Yielder& yielder, SideCounts& found) {
  const Place end = table.Corpus().EndOfSideA();
  found.OnA.assign(size_t{table.EntryCount()} + 1, 0);
  return RunParts(table.EntryCount(), yielder, [&](size_t begin, size_t last) {
    for (size_t i = begin; i < last; ++i) {
      const auto onA =
          std::ranges::count_if(table.Places(EntryAt(i)), [end](Place place) { return place < end; });
      found.OnA[i + 1] = static_cast<uint32_t>(onA);
    }
  });
}

bool CountFilesOfSides(const PhraseTable& table, const TakenWords& words, Yielder& yielder,
                       SideFiles& found) {
  const Corpus& corpus = table.Corpus();
  found.WithWords = {};
  for (size_t s = 0; s < corpus.Sources.size(); ++s)
    if (corpus.WordsOfSource(s, words.Total()) > 0) ++found.WithWords[s < *corpus.SecondSide ? 0 : 1];
  found.OfEntry.assign(size_t{table.EntryCount()} + 1, {});
  return RunParts(table.EntryCount(), yielder, [&](size_t begin, size_t last) {
    std::vector<size_t> sources;
    for (size_t i = begin; i < last; ++i)
      found.OfEntry[i + 1] = FilesOf(corpus, table.Places(EntryAt(i)), sources);
  });
}

}  // namespace korv
