#include "engine/corpus/phrase_places.h"

#include <algorithm>

namespace korv {

namespace {

bool IsShortEnough(const Corpus& corpus, std::span<const WordNumber> phrase) {
  size_t characters = phrase.size() - 1;
  for (const WordNumber word : phrase) characters += corpus.Words.Characters(word);
  return characters <= static_cast<size_t>(corpus.Options.MostCharacters);
}

/// Whether the filters let the phrase count, so that all of its places are in the suffix array. With
/// count-only patterns for whole phrases every place is there: they decide for each phrase of a place by
/// itself.
bool ListsAdmit(const Corpus& corpus, std::span<const WordNumber> phrase) {
  const WordFilters& lists = *corpus.Lists;
  if (lists.HasCountOnlyPhrases()) return true;
  const auto text = [&](WordNumber word) { return corpus.Words.Text(word); };
  if (corpus.Options.IgnoreMode == IgnoreRule::ExcludeAll && lists.HasWordsToIgnore() &&
      std::ranges::all_of(phrase, [&](WordNumber word) { return lists.IsWordToIgnore(text(word)); }))
    return false;
  return !lists.HasCountOnly() ||
         std::ranges::any_of(phrase, [&](WordNumber word) { return lists.IsCountOnlyWord(text(word)); });
}

}  // namespace

std::optional<std::span<const Place>> SortedPlaces(const Corpus& corpus, std::span<const WordNumber> phrase) {
  const auto words = static_cast<int>(phrase.size());
  if (corpus.PlacesOfWord.empty() || words < corpus.Options.MinWords || words > corpus.Options.MaxWords ||
      !IsShortEnough(corpus, phrase) || !ListsAdmit(corpus, phrase))
    return std::nullopt;
  // A phrase end is smaller than every word, and no word of the phrase is compared past one.
  const auto compare = [&](Place place) {
    for (size_t k = 1; k < phrase.size(); ++k)
      if (const WordNumber word = corpus.From(place)[k]; word != phrase[k]) return word < phrase[k] ? -1 : 1;
    return 0;
  };
  const uint32_t begin = corpus.PlacesOfWord[ValueOf(phrase[0]) - 1];
  const uint32_t end = corpus.PlacesOfWord[ValueOf(phrase[0])];
  const auto bucket = std::span(corpus.Places).subspan(begin, end - begin);
  const auto first =
      std::partition_point(bucket.begin(), bucket.end(), [&](Place p) { return compare(p) < 0; });
  const auto last = std::partition_point(first, bucket.end(), [&](Place p) { return compare(p) == 0; });
  return std::span(first, last);
}

std::vector<Place> ScanForPlaces(const Corpus& corpus, std::span<const WordNumber> phrase) {
  std::vector<Place> places;
  const auto begin = corpus.Tokens.begin();
  // The trailing phrase ends, which are no word of the phrase, leave room for the rest of it.
  for (auto at = std::find(begin, corpus.Tokens.end(), phrase[0]); at != corpus.Tokens.end();
       at = std::find(at + 1, corpus.Tokens.end(), phrase[0]))
    if (std::equal(phrase.begin() + 1, phrase.end(), at + 1))
      places.push_back(Place{static_cast<uint32_t>(at - begin)});
  return places;
}

std::vector<Place> PlacesOf(const Corpus& corpus, std::span<const WordNumber> phrase) {
  if (phrase.empty() || std::ranges::find(phrase, kNoWord) != phrase.end()) return {};
  const auto sorted = SortedPlaces(corpus, phrase);
  if (!sorted) return ScanForPlaces(corpus, phrase);
  std::vector<Place> places(sorted->begin(), sorted->end());
  std::ranges::sort(places);
  return places;
}

}  // namespace korv
