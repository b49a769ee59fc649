#include "engine/corpus/place_order.h"

#include <algorithm>
#include <numeric>

#include "base/pieces.h"

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

/// A place with what it is ordered by first, so that most comparisons need not look at the text.
struct KeyedPlace {
  uint64_t Key;
  Place At;
};

/// For each source where its path stands among all paths.
std::vector<uint32_t> RanksOfFiles(const Corpus& corpus) {
  std::vector<uint32_t> byPath(corpus.Sources.size());
  std::iota(byPath.begin(), byPath.end(), 0);
  const auto path = [&](uint32_t source) -> const std::filesystem::path& {
    return corpus.Sources[source].Path;
  };
  std::ranges::stable_sort(byPath, [&](uint32_t a, uint32_t b) { return path(a) < path(b); });
  std::vector<uint32_t> ranks(byPath.size());
  for (size_t k = 1; k < byPath.size(); ++k)
    ranks[byPath[k]] = ranks[byPath[k - 1]] + (path(byPath[k - 1]) < path(byPath[k]) ? 1 : 0);
  return ranks;
}

uint64_t Pair(uint64_t high, uint64_t low) {
  return high << 32 | low;
}

/// Sorts so that a stop is soon seen, and the first elements before the rest.
template <typename Element, typename Less>
bool Sort(std::vector<Element>& elements, const Yielder& yielder, const FirstPlaces& first, const Less& less,
          const std::function<void()>& firstSorted) {
  size_t sorted = 0;
  if (first.Count > 0 && first.Count < elements.size()) {
    const auto end = elements.begin() + static_cast<std::ptrdiff_t>(first.Count);
    std::nth_element(elements.begin(), end, elements.end(), less);
    std::sort(elements.begin(), end, less);
    if (yielder.Stopped()) return false;
    firstSorted();
    sorted = first.Count;
  }
  const auto rest = elements.begin() + static_cast<std::ptrdiff_t>(sorted);
  const size_t size = elements.size() - sorted;
  const auto at = [&](size_t k) { return rest + static_cast<std::ptrdiff_t>(std::min(k, size)); };
  size_t run = 0;
  if (!InPieces(size, yielder, [&](size_t begin, size_t end) {
        run = std::max(run, end - begin);
        std::sort(at(begin), at(end), less);
      }))
    return false;
  for (; run < size; run *= 2)
    for (size_t begin = 0; begin + run < size; begin += 2 * run) {
      if (yielder.Stopped()) return false;
      std::inplace_merge(at(begin), at(begin + run), at(begin + 2 * run), less);
    }
  return true;
}

bool SortByKey(const Corpus& corpus, int words, PlaceOrder order, bool fileByFile, const Yielder& yielder,
               std::vector<Place>& places, const FirstPlaces& first) {
  const std::vector<uint32_t> ranks = fileByFile ? RanksOfFiles(corpus) : std::vector<uint32_t>{};
  const std::ptrdiff_t step = order == PlaceOrder::Left ? -1 : 1;
  const auto side = [&](Place p) { return corpus.From(p) + (order == PlaceOrder::Left ? -1 : words); };
  const auto keyOf = [&](Place place) {
    const WordNumber* next = side(place);
    const uint64_t word = order == PlaceOrder::Place ? ValueOf(place) : ValueOf(*next);
    if (fileByFile) return Pair(ranks[corpus.SourceAt(place)], word);
    return Pair(word, *next == kNoWord ? 0 : ValueOf(next[step]));
  };
  std::vector<KeyedPlace> keyed(places.size());
  if (!InPieces(places.size(), yielder, [&](size_t begin, size_t end) {
        for (size_t k = begin; k < end; ++k) keyed[k] = {keyOf(places[k]), places[k]};
      }))
    return false;
  const auto less = [&](const KeyedPlace& a, const KeyedPlace& b) {
    if (a.Key != b.Key) return a.Key < b.Key;
    if (order == PlaceOrder::Place) return a.At < b.At;
    return Before(side(a.At), side(b.At), step, a.At < b.At);
  };
  const auto takeOver = [&](size_t end) {
    for (size_t k = 0; k < end; ++k) places[k] = keyed[k].At;
  };
  if (!Sort(keyed, yielder, first, less, [&] {
        takeOver(first.Count);
        first.Known();
      }))
    return false;
  takeOver(places.size());
  return true;
}

}  // namespace

bool OrderPlaces(const Corpus& corpus, int words, PlaceOrder order, bool fileByFile, Yielder& yielder,
                 std::vector<Place>& places, const FirstPlaces& first) {
  if (order == PlaceOrder::File)
    return SortByKey(corpus, words, PlaceOrder::Place, /*fileByFile=*/true, yielder, places, first);
  if (order == PlaceOrder::Place && !fileByFile)
    return Sort(places, yielder, first, std::less<>(), first.Known);
  return SortByKey(corpus, words, order, fileByFile, yielder, places, first);
}

}  // namespace korv
