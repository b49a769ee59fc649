#include "engine/analysis/c_value.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdint>
#include <span>

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
    totals_ = ZeroedArray<Totals>(n);
    if (!CollectCandidates() || !FillTable()) return false;
    // What a phrase gives to those within it is known when all longer ones have given theirs.
    for (size_t words = ofLength_.size(); words-- > kLeastWords;)
      if (!RunParts(ofLength_[words].size(), yielder_, [&](size_t begin, size_t end) {
            GiveToNested(std::span(ofLength_[words]).subspan(begin, end - begin));
          }))
        return false;
    values_.assign(n + 1, 0);
    return RunParts(n, yielder_, [this](size_t begin, size_t end) {
      for (size_t e = begin; e < end; ++e)
        if (data_.Entries[e].Listed) values_[e + 1] = ValueOfEntry(e);
    });
  }

 private:
  static constexpr uint32_t kNone = UINT32_MAX;
  /// So many phrases are hashed and looked up together, so that the memory which they go to is on its way
  /// before it is needed.
  static constexpr size_t kTogether = 16;

  struct Totals {
    uint64_t Nested;      ///< t, which may be negative, modulo 2^64.
    uint64_t Containers;  ///< c.
  };

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
      for (; begin < end; begin += kTogether) Insert(begin, std::min(end, begin + kTogether));
    });
  }

  void Insert(size_t begin, size_t end) {
    for (size_t e = begin; e < end; ++e) __builtin_prefetch(WordsOf(data_.Entries[e]));
    std::array<uint64_t, kTogether> hashes;
    for (size_t e = begin; e < end; ++e) {
      const PhraseEntry& entry = data_.Entries[e];
      hashes[e - begin] = Hash(HashOfWords(WordsOf(entry), entry.Words), entry.Words);
      table_.Prefetch(hashes[e - begin]);
    }
    for (size_t e = begin; e < end; ++e)
      if (data_.Entries[e].Listed) table_.Insert(hashes[e - begin], static_cast<uint32_t>(e));
  }

  static uint64_t Hash(uint64_t ofWords, int words) {
    return Scramble(ofWords + static_cast<uint64_t>(words));
  }
  const WordNumber* WordsOf(const PhraseEntry& entry) const { return data_.Corpus.From(entry.First); }

  /// A run of words of a phrase, and the candidate that it is.
  struct Run {
    const WordNumber* First;
    uint64_t Hash;
    uint32_t Container;  ///< The phrase.
    uint32_t Candidate;
    uint8_t Words;
  };

  /// Has phrases give to those within them.
  void GiveToNested(std::span<const uint32_t> containers) {
    std::vector<Run> runs;
    for (size_t begin = 0; begin < containers.size(); begin += kTogether) {
      const auto some = containers.subspan(begin, std::min(kTogether, containers.size() - begin));
      for (const uint32_t container : some) __builtin_prefetch(WordsOf(data_.Entries[container]));
      runs.clear();
      for (const uint32_t container : some) AddRuns(container, runs);
      KeepCandidates(runs);
      for (size_t first = 0, last; first < runs.size(); first = last) {
        for (last = first; last < runs.size() && runs[last].Container == runs[first].Container;) ++last;
        Give(std::span(runs).subspan(first, last - first));
      }
    }
  }

  /// All that are shorter than the phrase.
  void AddRuns(uint32_t container, std::vector<Run>& runs) const {
    const PhraseEntry& entry = data_.Entries[container];
    const WordNumber* const words = WordsOf(entry);
    std::array<uint64_t, kMostWords + 1> hashUpTo{};
    for (int end = 1; end <= entry.Words; ++end) {
      const auto e = static_cast<size_t>(end);
      hashUpTo[e] = hashUpTo[e - 1] * kHashBase + HashOfWord(words[end - 1]);
      for (int length = fewestWords_; length <= std::min<int>(end, entry.Words - 1); ++length) {
        const auto begin = static_cast<size_t>(end - length);
        const uint64_t hash =
            Hash(hashUpTo[e] - hashUpTo[begin] * kHashPowers[static_cast<size_t>(length)], length);
        table_.Prefetch(hash);
        runs.push_back({words + begin, hash, container, kNone, static_cast<uint8_t>(length)});
      }
    }
  }

  /// The entry with the hash of a run is nearly always the run itself: its memory is fetched first.
  void KeepCandidates(std::vector<Run>& runs) const {
    std::erase_if(runs, [this](Run& run) {
      table_.Visit(run.Hash, [&](uint32_t candidate) {
        run.Candidate = candidate;
        __builtin_prefetch(&data_.Entries[candidate]);
        return true;
      });
      return run.Candidate == kNone;
    });
    for (const Run& run : runs) {
      __builtin_prefetch(WordsOf(data_.Entries[run.Candidate]));
      __builtin_prefetch(&totals_[run.Candidate], 1);
    }
    std::erase_if(runs, [this](Run& run) {
      if (IsCandidate(run, run.Candidate)) return false;
      run.Candidate = kNone;
      table_.Visit(run.Hash, [&](uint32_t candidate) {
        if (IsCandidate(run, candidate)) run.Candidate = candidate;
        return run.Candidate != kNone;
      });
      return run.Candidate == kNone;
    });
  }

  bool IsCandidate(const Run& run, uint32_t candidate) const {
    const PhraseEntry& entry = data_.Entries[candidate];
    return entry.Words == run.Words && std::equal(run.First, run.First + run.Words, WordsOf(entry));
  }

  /// Adds f - t of a phrase to the t of each candidate within it, once however often it stands there.
  void Give(std::span<Run> runs) {
    std::ranges::sort(runs, {}, &Run::Candidate);
    const uint32_t container = runs.front().Container;
    const uint64_t gift = data_.Entries[container].Count - totals_[container].Nested;
    for (size_t k = 0; k < runs.size(); ++k) {
      if (k > 0 && runs[k].Candidate == runs[k - 1].Candidate) continue;
      Totals& totals = totals_[runs[k].Candidate];
      std::atomic_ref(totals.Nested).fetch_add(gift, std::memory_order_relaxed);
      std::atomic_ref(totals.Containers).fetch_add(1, std::memory_order_relaxed);
    }
  }

  double ValueOfEntry(size_t e) const {
    const PhraseEntry& entry = data_.Entries[e];
    const auto nested = static_cast<double>(static_cast<int64_t>(totals_[e].Nested));
    const auto containers = static_cast<double>(totals_[e].Containers);
    return std::log2(entry.Words) * (entry.Count - (containers > 0 ? nested / containers : 0));
  }

  const PhraseTableData& data_;
  Yielder& yielder_;
  std::vector<double>& values_;
  std::array<std::vector<uint32_t>, kMostWords + 1> ofLength_;  ///< Candidates by their number of words.
  int fewestWords_ = 1;                                         ///< Of a candidate.
  EntryTable table_;
  ZeroedArray<Totals> totals_;  ///< By entry, from 0.
};

}  // namespace

bool FindCValues(const PhraseTable& table, Yielder& yielder, std::vector<double>& values) {
  return CValueFinder(table, yielder, values).Find();
}

}  // namespace korv
