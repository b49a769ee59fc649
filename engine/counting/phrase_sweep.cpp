#include "engine/counting/phrase_sweep.h"

#include <algorithm>
#include <utility>

namespace korv {

PhraseSweep::PhraseSweep(const SweepContext& context)
    : context_(context),
      minWords_(context.Data->Corpus.Options.MinWords),
      maxWords_(context.Data->Corpus.Options.MaxWords),
      minFrequency_(static_cast<uint32_t>(context.Data->Corpus.Options.MinFrequency)),
      keepRedundant_(context.Data->Corpus.Options.KeepRedundant),
      keepSlices_(KeepsPlaces(context.Data->Corpus.Options)) {}

void PhraseSweep::BeginBucket(std::span<const Place> places, uint32_t slice) {
  places_ = places;
  slice_ = slice;
  after_ = 0;
  open_.clear();
}

void PhraseSweep::SweepSorted(std::span<const Suffix> suffixes, std::span<const uint8_t> lcp, uint32_t begin,
                              int common) {
  struct Sorted {
    std::span<const Suffix> Suffixes;
    std::span<const uint8_t> Lcps;

    Place At(uint32_t i) const { return Suffixes[i].At; }
    WordNumber Left(uint32_t i) const { return Suffixes[i].Left; }
    int Lcp(uint32_t i) const { return Lcps[i]; }
  };
  Sweep(Sorted{suffixes, lcp}, static_cast<uint32_t>(suffixes.size()), begin, common);
}

void PhraseSweep::SweepEqual(std::span<const Place> places, int words, uint32_t begin, int common) {
  struct Equal {
    std::span<const Place> Places;
    const WordNumber* Tokens;
    int Words;

    Place At(uint32_t i) const { return Places[i]; }
    WordNumber Left(uint32_t i) const { return Tokens[ValueOf(Places[i]) - 1]; }
    int Lcp(uint32_t /*i*/) const { return Words; }
  };
  Sweep(Equal{places, context_.Data->Corpus.Tokens.data(), words}, static_cast<uint32_t>(places.size()),
        begin, common);
}

template <typename Part>
void PhraseSweep::Sweep(const Part& part, uint32_t size, uint32_t begin, int common) {
  const bool singlesToo = minFrequency_ == 1 || context_.Accepted->ByPhrase();
  constexpr uint32_t kStopEvery = 1u << 16;
  for (uint32_t i = size; i-- > 0;) {
    if (i % kStopEvery == 0 && context_.Stop->Stopped()) return;
    const int before = i > 0 ? part.Lcp(i) : common;
    const int after = std::exchange(after_, before);
    const Place at = part.At(i);
    Interval closed{0, begin + i, begin + i + 1, at, part.Left(i)};
    if (singlesToo) {
      closed.Depth = context_.Lengths->Most(at);
      if (closed.Depth > std::max(before, after)) Close(closed, std::max(before, after));
    }
    while (!open_.empty() && open_.back().Depth > before) {
      Interval inner = open_.back();
      open_.pop_back();
      inner.Begin = begin + i;
      inner.First = std::min(inner.First, closed.First);
      if (inner.Left != closed.Left) inner.Left = kNoWord;
      Close(inner, std::max(before, open_.empty() ? 0 : open_.back().Depth));
      closed = inner;
    }
    if (before == 0) continue;
    if (!open_.empty() && open_.back().Depth == before) {
      open_.back().First = std::min(open_.back().First, closed.First);
      if (open_.back().Left != closed.Left) open_.back().Left = kNoWord;
    } else {
      open_.push_back({before, 0, closed.End, closed.First, closed.Left});
    }
  }
}

// The phrases of outerDepth + 1 to interval.Depth words occur at exactly the places of the interval.
void PhraseSweep::Close(const Interval& interval, int outerDepth) {
  const WordNumber* first = context_.Data->Corpus.From(interval.First);
  const int to = context_.Lengths->Most(interval.First, interval.Depth);
  const int from = std::max(outerDepth + 1, minWords_);
  if (from > to) return;
  if (context_.Accepted->ByPhrase()) return CloseByPhrase(interval, from, to);

  const int accepted =
      context_.Accepted->AcceptsAll() ? from : std::max(from, context_.Accepted->FirstLength(first, to));
  if (accepted > to) return;
  const uint32_t count = interval.End - interval.Begin;
  repeats_ += static_cast<uint64_t>(to - accepted + 1) * (count - 1);
  if (count < minFrequency_) return;
  if (keepRedundant_) {
    for (int words = to; words >= accepted; --words) Add(interval, words);
  } else if (!GoesOnBefore(interval, to)) {
    Add(interval, to);
  }
}

/// Whether the same word stands before all places of an interval, and makes a longer phrase with the `words`
/// words behind it.
bool PhraseSweep::GoesOnBefore(const Interval& interval, int words) const {
  return interval.Left != kNoWord && words < maxWords_ &&
         context_.Lengths->Most(interval.First - 1, words + 1) > words;
}

void PhraseSweep::Add(const Interval& interval, int words) {
  entries_.push_back({interval.First, interval.End - interval.Begin,
                      keepSlices_ ? slice_ + interval.Begin : 0, static_cast<uint8_t>(words), true});
}

void PhraseSweep::CloseByPhrase(const Interval& interval, int from, int to) {
  const WordNumber* first = context_.Data->Corpus.From(interval.First);
  const uint32_t count = interval.End - interval.Begin;
  bool any = false;
  for (int words = to; words >= from; --words) {
    if (!context_.Accepted->Accepts(first, words, scratch_)) continue;
    any = true;
    occurrences_ += count;
    repeats_ += count - 1;
    if (count >= minFrequency_) Add(interval, words);
  }
  if (!any || context_.SourceHasPhrase == nullptr) return;
  for (uint32_t i = interval.Begin; i < interval.End; ++i)
    (*context_.SourceHasPhrase)[context_.Data->Corpus.SourceAt(places_[i])].store(1,
                                                                                  std::memory_order_relaxed);
}

}  // namespace korv
