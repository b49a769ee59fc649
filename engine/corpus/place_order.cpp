#include "engine/corpus/place_order.h"

#include <algorithm>

namespace korv {

namespace {

/// Whether the words from `a` on, a step apart, come before those from `b` on.
bool Before(const WordNumber* a, const WordNumber* b, std::ptrdiff_t step, bool atEqual) {
  for (int k = 0; k < kMostWords; ++k, a += step, b += step) {
    if (*a != *b) return *a < *b;
    if (*a == kNoWord) break;
  }
  return atEqual;
}

}  // namespace

void OrderPlaces(const Corpus& corpus, int words, PlaceOrder order, std::vector<Place>& places) {
  std::ranges::sort(places);
  switch (order) {
    case PlaceOrder::Place:
      break;
    case PlaceOrder::Left:
      std::ranges::sort(places, [&](Place a, Place b) {
        return Before(corpus.From(a - 1), corpus.From(b - 1), -1, a < b);
      });
      break;
    case PlaceOrder::Right:
      std::ranges::sort(places, [&](Place a, Place b) {
        return Before(corpus.From(a) + words, corpus.From(b) + words, 1, a < b);
      });
      break;
    case PlaceOrder::File:
      std::ranges::stable_sort(places, [&](Place a, Place b) {
        return corpus.Sources[corpus.SourceAt(a)].Path < corpus.Sources[corpus.SourceAt(b)].Path;
      });
      break;
  }
}

}  // namespace korv
