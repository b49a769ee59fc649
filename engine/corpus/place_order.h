#pragma once

#include <cstdint>
#include <vector>

#include "engine/corpus/corpus.h"

namespace korv {

enum class PlaceOrder {
  Place,  ///< Reading order.
  Left,   ///< By the word before the phrase, then the one before that, and so on, up to a phrase end.
  Right,  ///< By the words behind it, up to a phrase end.
  File,   ///< By path, then in reading order.
};

/// Orders the places of a phrase of `words` words, as a concordance shows them. The run must have been
/// counted. Words are compared by Key, and a phrase end comes before every word. At most kMostWords words are
/// compared; reading order decides between places that are equal so far. Costs a sort.
void OrderPlaces(const Corpus& corpus, int words, PlaceOrder order, std::vector<Place>& places);

}  // namespace korv
