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

/// Orders the places of a phrase of `words` words in a counted run. Words come in the order of Keys, after a
/// phrase end; at most kMostWords of them are compared, then reading order decides. A sort.
void OrderPlaces(const Corpus& corpus, int words, PlaceOrder order, std::vector<Place>& places);

}  // namespace korv
