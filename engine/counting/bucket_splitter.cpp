#include "engine/counting/bucket_splitter.h"

#include <algorithm>

#include "base/pieces.h"

namespace korv {

BucketSplitter::BucketSplitter(std::span<const WordNumber> tokens, uint32_t vocabularySize, int maxWords,
                               size_t most, const Yielder& yielder)
    : tokens_(tokens), vocabularySize_(vocabularySize), maxWords_(maxWords), most_(most), yielder_(yielder) {}

std::vector<BucketPart> BucketSplitter::Split(std::span<Place> places) {
  places_ = places;
  parts_.clear();
  spare_.clear();
  spare_.resize(places.size());
  Add({0, places.size(), 1, 0});
  return std::move(parts_);
}

void BucketSplitter::Add(const Range& range) {
  if (yielder_.Stopped() || range.Begin == range.End) return;
  if (range.Depth == maxWords_)
    parts_.push_back({range.Begin, range.End, range.Common, maxWords_});
  else if (range.End - range.Begin <= most_)
    parts_.push_back({range.Begin, range.End, range.Common, 0});
  else
    SplitByWord(range);
}

/// Puts the places of a range in order of their next word, and returns how many have each word.
std::vector<uint32_t> BucketSplitter::GatherByWord(const Range& range) {
  const std::span<Place> places = places_.subspan(range.Begin, range.End - range.Begin);
  const WordNumber* next = tokens_.data() + range.Depth;
  std::vector<uint32_t> counts(size_t{vocabularySize_} + 1);
  InPieces(places.size(), yielder_, [&](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) ++counts[ValueOf(next[ValueOf(places[i])])];
  });
  std::vector<uint32_t> begins(counts.size());
  uint32_t sum = 0;
  for (size_t w = 0; w < counts.size(); ++w) {
    begins[w] = sum;
    sum += counts[w];
  }
  if (yielder_.Stopped()) return counts;
  InPieces(places.size(), yielder_, [&](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) spare_[begins[ValueOf(next[ValueOf(places[i])])]++] = places[i];
  });
  std::copy(spare_.begin(), spare_.begin() + static_cast<std::ptrdiff_t>(places.size()), places.begin());
  return counts;
}

void BucketSplitter::SplitByWord(const Range& range) {
  const std::vector<uint32_t> counts = GatherByWord(range);
  // Small groups side by side make one part.
  Range gathered{range.Begin, range.Begin, range.Depth, range.Common};
  size_t begin = range.Begin;
  for (size_t word = 0; word < counts.size() && !yielder_.Stopped(); ++word) {
    if (counts[word] == 0) continue;
    const size_t end = begin + counts[word];
    if (end - gathered.Begin > most_) {
      Add(gathered);
      gathered = {begin, begin, range.Depth, begin == range.Begin ? range.Common : range.Depth};
    }
    if (end - begin <= most_) {
      gathered.End = end;
    } else {
      if (word == ValueOf(kNoWord))
        parts_.push_back({begin, end, gathered.Common, range.Depth});
      else
        SplitAtOne({begin, end, range.Depth + 1, gathered.Common});
      gathered = {end, end, range.Depth, range.Depth};
    }
    begin = end;
  }
  Add(gathered);
}

BucketSplitter::Compared BucketSplitter::Compare(Place a, Place b, int depth) const {
  const WordNumber* const first = tokens_.data() + ValueOf(a);
  const WordNumber* const second = tokens_.data() + ValueOf(b);
  int k = depth;
  while (k < maxWords_ && first[k] == second[k] && first[k] != kNoWord) ++k;
  if (k == maxWords_ || first[k] == second[k]) return {k, 0};
  return {k, first[k] < second[k] ? -1 : 1};
}

/// Puts the places of a range before, at and behind the one in its middle.
void BucketSplitter::SplitAtOne(const Range& range) {
  const std::span<Place> places = places_.subspan(range.Begin, range.End - range.Begin);
  const Place one = places[places.size() / 2];
  size_t before = 0;
  size_t equal = 0;
  size_t behind = 0;
  int equalWords = range.Depth;
  int mostBefore = range.Depth;
  int mostBehind = range.Depth;
  const bool finished = InPieces(places.size(), yielder_, [&](size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) {
      const Place place = places[i];
      const Compared compared = Compare(place, one, range.Depth);
      if (compared.Sign < 0) {
        mostBefore = std::max(mostBefore, compared.Words);
        places[before++] = place;
      } else if (compared.Sign > 0) {
        mostBehind = std::max(mostBehind, compared.Words);
        spare_[places.size() - ++behind] = place;
      } else {
        equalWords = compared.Words;
        spare_[equal++] = place;
      }
    }
  });
  if (!finished) return;
  const auto at = [&](size_t index) { return places.begin() + static_cast<std::ptrdiff_t>(index); };
  const auto inSpare = [&](size_t index) { return spare_.begin() + static_cast<std::ptrdiff_t>(index); };
  std::copy(inSpare(0), inSpare(equal), at(before));
  std::reverse_copy(inSpare(places.size() - behind), inSpare(places.size()), at(before + equal));

  Add({range.Begin, range.Begin + before, range.Depth, range.Common});
  parts_.push_back({range.Begin + before, range.Begin + before + equal,
                    before > 0 ? mostBefore : range.Common, equalWords});
  Add({range.Begin + before + equal, range.End, range.Depth, mostBehind});
}

}  // namespace korv
