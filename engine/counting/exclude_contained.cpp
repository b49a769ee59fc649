#include <algorithm>
#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "base/workers.h"
#include "base/zeroed_array.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

class ContainedPhrases {
 public:
  ContainedPhrases(PhraseTableData& data, Yielder& yielder) : data_(data), yielder_(yielder) {}

  bool Exclude() {
    const size_t n = data_.Entries.size();
    byWords_.reserve(n);
    for (uint32_t e = 0; e < n; ++e)
      if (data_.Entries[e].Listed) byWords_.push_back(e);
    // Entries that share a key are not in the order of their words.
    std::ranges::sort(byWords_, [this](uint32_t a, uint32_t b) {
      return std::ranges::lexicographical_compare(WordsOf(a), WordsOf(b));
    });
    redundant_ = ZeroedArray<uint8_t>(n);
    if (yielder_.Stopped() || !RunParts(byWords_.size(), yielder_, [this](size_t begin, size_t end) {
          for (size_t k = begin; k < end; ++k) MarkWithin(byWords_[k]);
        }))
      return false;
    for (size_t e = 0; e < n; ++e)
      if (redundant_[e] != 0) data_.Entries[e].Listed = false;
    return true;
  }

 private:
  std::span<const WordNumber> WordsOf(uint32_t e) const {
    return {data_.Corpus.From(data_.Entries[e].First), data_.Entries[e].Words};
  }

  void MarkWithin(uint32_t container) {
    const std::span<const WordNumber> words = WordsOf(container);
    for (size_t length = 2; length < words.size(); ++length)
      for (size_t first = 0; first + length <= words.size(); ++first)
        Mark(words.subspan(first, length), data_.Entries[container].Count);
  }

  void Mark(std::span<const WordNumber> run, uint32_t count) {
    const auto found = std::lower_bound(byWords_.begin(), byWords_.end(), run,
                                        [this](uint32_t e, std::span<const WordNumber> words) {
                                          return std::ranges::lexicographical_compare(WordsOf(e), words);
                                        });
    if (found == byWords_.end() || data_.Entries[*found].Count != count ||
        !std::ranges::equal(WordsOf(*found), run))
      return;
    std::atomic_ref(redundant_[*found]).store(1, std::memory_order_relaxed);
  }

  PhraseTableData& data_;
  Yielder& yielder_;
  std::vector<uint32_t> byWords_;  ///< Listed entries, in the order of the numbers of their words.
  ZeroedArray<uint8_t> redundant_;
};

}  // namespace

bool ExcludeContainedPhrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  return data.OnlyMaximal || ContainedPhrases(data, yielder).Exclude();
}

}  // namespace korv
