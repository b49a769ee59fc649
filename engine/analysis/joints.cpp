#include "engine/analysis/joints.h"

#include <algorithm>

#include "base/pieces.h"
#include "engine/analysis/prefix_counts.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

class JointCounter {
 public:
  JointCounter(const PhraseTable& table, Yielder& yielder, JointCounts& counts)
      : table_(table), tokens_(table.Corpus().Tokens), yielder_(yielder), counts_(counts) {}

  bool Count() {
    const size_t entries = size_t{table_.EntryCount()} + 1;
    counts_.WithoutLast.assign(entries, 0);
    counts_.WithoutFirst.assign(entries, 0);
    counts_.Weakest.assign(entries, 0);
    return TakePhrases() && CountFirstParts() && CountLastParts();
  }

 private:
  using Run = PrefixCounter::Run;

  bool TakePhrases() {
    uint64_t begin = 0;
    for (const PhraseIndex i : table_.All()) {
      yielder_.Yield();
      if (yielder_.Stopped()) return false;
      if (!table_.Listed(i) || table_.Words(i) < 2) continue;
      phrases_.push_back(i);
      firstParts_.push_back({table_.First(i), static_cast<uint8_t>(table_.Words(i) - 1)});
      begins_.push_back(begin);
      begin += firstParts_.back().Words;
    }
    ofFirstParts_.resize(begin);
    return true;
  }

  /// All are kept, for each belongs to a joint whose other side is counted later.
  bool CountFirstParts() {
    PrefixCounter counter({tokens_.data(), tokens_.size()}, table_.Corpus().Words.Size(), yielder_);
    return counter.Count(firstParts_, [this](size_t k, int words, uint32_t count) {
      ofFirstParts_[begins_[k] + static_cast<size_t>(words) - 1] = count;
      if (words == firstParts_[k].Words) counts_.WithoutLast[ValueOf(phrases_[k])] = count;
    });
  }

  /// In the text read backwards the last part of a phrase is the first.
  bool CountLastParts() {
    const size_t n = tokens_.size();
    RawVector<WordNumber> backwards(n + kTrailingEnds);
    std::fill(backwards.end() - kTrailingEnds, backwards.end(), kNoWord);
    std::vector<Run> lastParts(firstParts_.size());
    const bool turned = InPieces(n, yielder_, [&](size_t begin, size_t end) {
      for (size_t i = begin; i < end; ++i) backwards[n - 1 - i] = tokens_[i];
    });
    for (size_t k = 0; k < lastParts.size(); ++k) {
      const size_t last = ValueOf(firstParts_[k].First) + firstParts_[k].Words;
      lastParts[k] = {Place{static_cast<uint32_t>(n - 1 - last)}, firstParts_[k].Words};
    }
    PrefixCounter counter(backwards, table_.Corpus().Words.Size(), yielder_);
    return turned && counter.Count(lastParts, [&](size_t k, int words, uint32_t count) {
      const size_t joint = static_cast<size_t>(lastParts[k].Words - words);
      uint64_t& weakest = counts_.Weakest[ValueOf(phrases_[k])];
      weakest = std::max(weakest, uint64_t{ofFirstParts_[begins_[k] + joint]} * count);
      if (words == lastParts[k].Words) counts_.WithoutFirst[ValueOf(phrases_[k])] = count;
    });
  }

  const PhraseTable& table_;
  const GrowingArray<WordNumber>& tokens_;
  Yielder& yielder_;
  JointCounts& counts_;
  // By phrase: listed ones of two words or more.
  std::vector<PhraseIndex> phrases_;
  std::vector<Run> firstParts_;  ///< Without the last word.
  std::vector<uint64_t> begins_;
  /// From begins_[k] on, how often the first 1, 2 ... words of phrase k occur.
  RawVector<uint32_t> ofFirstParts_;
};

}  // namespace

bool CountJoints(const PhraseTable& table, Yielder& yielder, JointCounts& counts) {
  return JointCounter(table, yielder, counts).Count();
}

}  // namespace korv
