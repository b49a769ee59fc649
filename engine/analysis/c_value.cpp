#include "engine/analysis/c_value.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>

#include "base/workers.h"
#include "base/zeroed_array.h"
#include "engine/counting/entry_table.h"
#include "engine/counting/phrase_hash.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

class CValueFinder {
 public:
  CValueFinder(const PhraseTable& table, Yielder& yielder, std::vector<double>& values)
      : data_(table.Data()), yielder_(yielder), values_(values) {}

  bool Find() {
    const size_t n = data_.Entries.size();
    nested_ = ZeroedArray<uint64_t>(n);
    containers_ = ZeroedArray<uint32_t>(n);
    if (!CollectCandidates() || !FillTable()) return false;
    // What a phrase gives to those within it is known when all longer ones have given theirs.
    for (size_t words = ofLength_.size(); words-- > kLeastWords;)
      if (!RunParts(ofLength_[words].size(), yielder_, [&](size_t begin, size_t end) {
            for (size_t k = begin; k < end; ++k) GiveToNested(ofLength_[words][k]);
          }))
        return false;
    values_.assign(n + 1, 0);
    return RunParts(n, yielder_, [this](size_t begin, size_t end) {
      for (size_t e = begin; e < end; ++e)
        if (data_.Entries[e].Listed) values_[e + 1] = ValueOfEntry(e);
    });
  }

 private:
  bool CollectCandidates() {
    for (uint32_t e = 0; e < data_.Entries.size(); ++e) {
      yielder_.Yield();
      if (yielder_.Stopped()) return false;
      if (data_.Entries[e].Listed) ofLength_[data_.Entries[e].Words].push_back(e);
    }
    fewestWords_ = 1;
    while (fewestWords_ < kMostWords && ofLength_[static_cast<size_t>(fewestWords_)].empty()) ++fewestWords_;
    return true;
  }

  bool FillTable() {
    size_t candidates = 0;
    for (const auto& entries : ofLength_) candidates += entries.size();
    table_ = EntryTable(candidates);
    return RunParts(data_.Entries.size(), yielder_, [this](size_t begin, size_t end) {
      for (size_t e = begin; e < end; ++e) {
        const PhraseEntry& entry = data_.Entries[e];
        if (entry.Listed)
          table_.Insert(Hash(HashOfWords(WordsOf(entry), entry.Words), entry.Words),
                        static_cast<uint32_t>(e));
      }
    });
  }

  static uint64_t Hash(uint64_t ofWords, int words) {
    return Scramble(ofWords + static_cast<uint64_t>(words));
  }
  const WordNumber* WordsOf(const PhraseEntry& entry) const { return data_.Corpus.From(entry.First); }

  /// Adds f - t of the entry to the t of each candidate within it, once however often it stands there.
  void GiveToNested(uint32_t container) {
    const PhraseEntry& entry = data_.Entries[container];
    const WordNumber* const words = WordsOf(entry);
    struct Run {
      const WordNumber* First;
      uint64_t Hash;
      int Words;
    };
    std::array<Run, size_t{kMostWords} * kMostWords / 2> runs;
    size_t found = 0;
    std::array<uint64_t, kMostWords + 1> hashUpTo{};
    for (int end = 1; end <= entry.Words; ++end) {
      const auto e = static_cast<size_t>(end);
      hashUpTo[e] = hashUpTo[e - 1] * kHashBase + HashOfWord(words[end - 1]);
      for (int length = fewestWords_; length <= std::min<int>(end, entry.Words - 1); ++length) {
        const auto begin = static_cast<size_t>(end - length);
        const uint64_t hash =
            Hash(hashUpTo[e] - hashUpTo[begin] * kHashPowers[static_cast<size_t>(length)], length);
        table_.Prefetch(hash);
        runs[found++] = {words + begin, hash, length};
      }
    }
    std::array<uint32_t, runs.size()> nested;
    size_t count = 0;
    for (size_t k = 0; k < found; ++k)
      table_.Visit(runs[k].Hash, [&](uint32_t candidate) {
        const PhraseEntry& other = data_.Entries[candidate];
        if (other.Words != runs[k].Words ||
            !std::equal(runs[k].First, runs[k].First + runs[k].Words, WordsOf(other)))
          return false;
        nested[count++] = candidate;
        return true;
      });
    const auto end = nested.begin() + static_cast<std::ptrdiff_t>(count);
    std::sort(nested.begin(), end);
    const uint64_t gift = entry.Count - nested_[container];
    std::for_each(nested.begin(), std::unique(nested.begin(), end), [&](uint32_t candidate) {
      std::atomic_ref(nested_[candidate]).fetch_add(gift, std::memory_order_relaxed);
      std::atomic_ref(containers_[candidate]).fetch_add(1, std::memory_order_relaxed);
    });
  }

  double ValueOfEntry(size_t e) const {
    const PhraseEntry& entry = data_.Entries[e];
    double frequency = entry.Count;
    if (containers_[e] > 0)
      frequency -= static_cast<double>(static_cast<int64_t>(nested_[e])) / containers_[e];
    return std::log2(entry.Words) * frequency;
  }

  const PhraseTableData& data_;
  Yielder& yielder_;
  std::vector<double>& values_;
  std::array<std::vector<uint32_t>, kMostWords + 1> ofLength_;  ///< Candidates by their number of words.
  int fewestWords_ = 1;                                         ///< Of a candidate.
  EntryTable table_;
  // By entry, from 0.
  ZeroedArray<uint64_t> nested_;      ///< t, which may be negative, modulo 2^64.
  ZeroedArray<uint32_t> containers_;  ///< c.
};

}  // namespace

bool FindCValues(const PhraseTable& table, Yielder& yielder, std::vector<double>& values) {
  return CValueFinder(table, yielder, values).Find();
}

}  // namespace korv
