#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/corpus/corpus.h"

namespace korv {

/// The places of phrases that may be listed, found by halving: those of `phrase` in Corpus::Places, which are
/// all there are in the text. Empty span: it is nowhere. Nothing where Places does not tell: the run kept no
/// places, its lengths leave the phrase out, its lists do, or it has more than kMostPhraseCharacters. The
/// text must have been counted; `phrase` holds no kNoWord. Cost: the logarithm of the places, times the
/// words, and a question to the lists for each word.
std::optional<std::span<const Place>> SortedPlaces(const Corpus& corpus, std::span<const WordNumber> phrase);

/// The places of any phrase in reading order, by one look at each token: about a nanosecond a word.
std::vector<Place> ScanForPlaces(const Corpus& corpus, std::span<const WordNumber> phrase);

/// All places of `phrase` in reading order, found in the cheaper of the two ways. Empty where it holds
/// kNoWord or no word.
std::vector<Place> PlacesOf(const Corpus& corpus, std::span<const WordNumber> phrase);

}  // namespace korv
