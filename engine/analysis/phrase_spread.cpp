#include "engine/analysis/phrase_spread.h"

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>

#include "engine/corpus/corpus.h"

namespace korv {

std::vector<uint32_t> OccurrencesByPart(const PhraseTable& table, PhraseIndex phrase, const TakenWords& words,
                                        size_t parts) {
  std::vector<uint32_t> occurrences(parts);
  // The greatest j with floor(j n / parts) <= w.
  for (const Place place : table.Places(phrase))
    ++occurrences[((words.Before(place) + 1) * parts - 1) / words.Total()];
  return occurrences;
}

std::vector<double> TextBorders(const Corpus& corpus, const TakenWords& words) {
  std::vector<double> borders;
  for (size_t s = 1; s < corpus.Sources.size(); ++s) {
    const uint64_t before = corpus.Sources[s].WordsBefore;
    const uint64_t end = s + 1 < corpus.Sources.size() ? corpus.Sources[s + 1].WordsBefore : words.Total();
    if (before > 0 && end > before)
      borders.push_back(static_cast<double>(before) / static_cast<double>(words.Total()));
  }
  return borders;
}

std::vector<SourceOccurrences> OccurrencesBySource(const PhraseTable& table,
                                                   std::span<const PhraseIndex> phrases) {
  std::map<size_t, std::vector<uint32_t>> ofSource;
  for (size_t k = 0; k < phrases.size(); ++k) {
    for (const Place place : table.Places(phrases[k])) {
      std::vector<uint32_t>& occurrences = ofSource[table.Corpus().SourceAt(place)];
      occurrences.resize(phrases.size());
      ++occurrences[k];
    }
  }
  std::vector<SourceOccurrences> sources;
  sources.reserve(ofSource.size());
  for (auto& [source, occurrences] : ofSource) sources.push_back({source, std::move(occurrences)});
  std::ranges::stable_sort(sources, std::greater(), [](const SourceOccurrences& source) {
    return std::accumulate(source.Occurrences.begin(), source.Occurrences.end(), uint64_t{0});
  });
  return sources;
}

}  // namespace korv
