#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "base/yielder.h"
#include "engine/corpus/corpus.h"

namespace korv {

enum class PlaceOrder {
  Place,  ///< Reading order.
  Left,   ///< By the word before the phrase, then the one before that, and so on, up to a phrase end.
  Right,  ///< By the words behind it, up to a phrase end.
  File,   ///< By path, then in reading order.
};

/// Sorting many places takes a while. The first ones are known sooner.
struct FirstPlaces {
  size_t Count = 0;                     ///< So many are wanted early; 0 for none.
  std::function<void()> Known = [] {};  ///< Called when these stand where they belong. Not for fewer places.
};

/// Orders the places of a phrase of `words` words, as a concordance shows them; with `fileByFile` those of
/// each file by themselves, files by path. The run must have been counted. Words are compared by Key, and a
/// phrase end comes before every word. At most kMostWords words are compared; reading order decides between
/// places that are equal so far. Costs a sort and, but for reading order, 16 bytes a place meanwhile; the
/// first places cost a linear look at all. Returns false when stopped, with the places in any order.
bool OrderPlaces(const Corpus& corpus, int words, PlaceOrder order, bool fileByFile, Yielder& yielder,
                 std::vector<Place>& places, const FirstPlaces& first = {});

}  // namespace korv
