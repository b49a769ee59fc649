#include "engine/analysis/free_occurrences.h"

#include <algorithm>
#include <atomic>

#include "base/workers.h"
#include "base/zeroed_array.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

class FreeOccurrenceFinder {
 public:
  FreeOccurrenceFinder(const PhraseTable& table, Yielder& yielder, FreeOccurrences& found)
      : data_(table.Data()), yielder_(yielder), found_(found) {}

  bool Find() {
    const size_t places = data_.Corpus.Places.size();
    const size_t tokens = data_.Corpus.Tokens.size();
    ofPlace_ = ZeroedArray<uint8_t>(places);
    atToken_ = ZeroedArray<uint8_t>(tokens);
    freeAt_ = ZeroedArray<uint8_t>(tokens);
    found_.OfEntry.assign(data_.Entries.size() + 1, 0);
    if (data_.Corpus.SecondSide) found_.OnA.assign(data_.Entries.size() + 1, 0);
    return RunParts(data_.Entries.size(), yielder_, [this](size_t b, size_t e) { MarkLongest(b, e); }) &&
           RunParts(places, yielder_, [this](size_t b, size_t e) { MoveToText(b, e); }) &&
           RunParts(tokens, yielder_, [this](size_t b, size_t e) { MarkFree(b, e); }) &&
           RunParts(places, yielder_, [this](size_t b, size_t e) { MoveToPlaces(b, e); }) &&
           RunParts(data_.Entries.size(), yielder_, [this](size_t b, size_t e) { CountFree(b, e); }) &&
           TakeCovered();
  }

 private:
  /// Per place: most words of an entry that has it. Entries of one place may be in parts of several threads.
  void MarkLongest(size_t begin, size_t end) {
    for (size_t e = begin; e < end; ++e) {
      const PhraseEntry& entry = data_.Entries[e];
      for (size_t i = entry.Slice; i < size_t{entry.Slice} + entry.Count; ++i) {
        const std::atomic_ref longest(ofPlace_[i]);
        uint8_t words = longest.load(std::memory_order_relaxed);
        while (words < entry.Words &&
               !longest.compare_exchange_weak(words, entry.Words, std::memory_order_relaxed)) {
        }
      }
    }
  }

  void MoveToText(size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) atToken_[ValueOf(data_.Corpus.Places[i])] = ofPlace_[i];
  }

  /// No phrase from further back than kMostWords reaches the first token.
  void MarkFree(size_t begin, size_t end) {
    size_t reach = 0;
    for (size_t p = begin - std::min<size_t>(begin, kMostWords); p < begin; ++p)
      if (atToken_[p] > 0) reach = std::max(reach, p + atToken_[p]);
    uint64_t covered = 0;
    for (size_t p = begin; p < end; ++p) {
      const uint8_t words = atToken_[p];
      if (words > 0 && reach < p + words) {
        freeAt_[p] = words;
        reach = p + words;
      }
      covered += reach > p;
    }
    covered_.fetch_add(covered, std::memory_order_relaxed);
  }

  void MoveToPlaces(size_t begin, size_t end) {
    for (size_t i = begin; i < end; ++i) ofPlace_[i] = freeAt_[ValueOf(data_.Corpus.Places[i])];
  }

  void CountFree(size_t begin, size_t end) {
    for (size_t e = begin; e < end; ++e) {
      const PhraseEntry& entry = data_.Entries[e];
      const uint8_t* const first = ofPlace_.Data() + entry.Slice;
      found_.OfEntry[e + 1] = static_cast<uint32_t>(std::count(first, first + entry.Count, entry.Words));
    }
    if (!found_.OnA.empty())
      for (size_t e = begin; e < end; ++e) found_.OnA[e + 1] = CountFreeOnA(data_.Entries[e]);
  }

  uint32_t CountFreeOnA(const PhraseEntry& entry) const {
    const Place end = data_.Corpus.EndOfSideA();
    uint32_t count = 0;
    for (size_t i = entry.Slice; i < size_t{entry.Slice} + entry.Count; ++i)
      if (ofPlace_[i] == entry.Words && data_.Corpus.Places[i] < end) ++count;
    return count;
  }

  bool TakeCovered() {
    found_.WordsCovered = covered_.load();
    return true;
  }

  const PhraseTableData& data_;
  Yielder& yielder_;
  FreeOccurrences& found_;
  // In words of a phrase, 0 for none.
  ZeroedArray<uint8_t> ofPlace_;  ///< By index in Corpus::Places: first the longest entry, then the free one.
  ZeroedArray<uint8_t> atToken_;  ///< By token: the longest entry.
  ZeroedArray<uint8_t> freeAt_;   ///< By token: the free entry.
  std::atomic<uint64_t> covered_{0};
};

}  // namespace

bool FindFreeOccurrences(const PhraseTable& table, Yielder& yielder, FreeOccurrences& found) {
  return FreeOccurrenceFinder(table, yielder, found).Find();
}

}  // namespace korv
