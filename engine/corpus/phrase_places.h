#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/corpus/corpus.h"

namespace korv {

/// The places of `phrase`, found in the suffix array Corpus::Places by binary search. The span holds all
/// places in the text, and is empty where there are none. Returns nothing where the suffix array cannot tell:
/// the run kept no places, or it did not count the phrase for its number of words, its characters or its
/// filters. The text must have been counted, and `phrase` must hold a word and no kNoWord. Cost: words times
/// the logarithm of the places, and a look-up in the filters for each word.
std::optional<std::span<const Place>> SortedPlaces(const Corpus& corpus, std::span<const WordNumber> phrase);

/// The places of any phrase in reading order, found by a scan of all tokens: about a nanosecond each.
std::vector<Place> ScanForPlaces(const Corpus& corpus, std::span<const WordNumber> phrase);

/// All places of `phrase` in reading order, by SortedPlaces where it can tell, else by the scan. Empty where
/// the phrase holds kNoWord or no word.
std::vector<Place> PlacesOf(const Corpus& corpus, std::span<const WordNumber> phrase);

}  // namespace korv
