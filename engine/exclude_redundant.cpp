#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <memory>
#include <vector>

#include "engine/count_phrases.h"
#include "engine/phrase_table_data.h"
#include "engine/word_affixes.h"
#include "engine/workers.h"

namespace korv {

namespace {

uint64_t Scatter(uint64_t v) {
  v ^= v >> 31;
  v *= 0x9E3779B97F4A7C15;
  v ^= v >> 32;
  v *= 0xD6E8FEB86659FD93;
  return v ^ v >> 32;
}

/// Hashes of runs of words, put together from those of their parts: a polynomial in kBase.
constexpr uint64_t kBase = 0xA24BAED4963EE407;

constexpr std::array<uint64_t, kMostWords + 1> Powers() {
  std::array<uint64_t, kMostWords + 1> powers{1};
  for (size_t k = 1; k < powers.size(); ++k) powers[k] = powers[k - 1] * kBase;
  return powers;
}
constexpr auto kPowers = Powers();

uint64_t OfWord(WordNumber word) {
  return Scatter(word);
}

/// A set that may say yes to what it does not hold, one time in some hundreds.
class LikelySet {
 public:
  explicit LikelySet(size_t members) : bits_(std::bit_ceil(members * 16 + 64) / 64) {}
  void Add(uint64_t hash) { bits_[Word(hash)] |= Mask(hash); }
  bool MayHold(uint64_t hash) const { return (bits_[Word(hash)] & Mask(hash)) == Mask(hash); }

 private:
  size_t Word(uint64_t hash) const { return hash >> 24 & (bits_.size() - 1); }
  static uint64_t Mask(uint64_t hash) {
    return uint64_t{1} << (hash & 63) | uint64_t{1} << (hash >> 6 & 63) | uint64_t{1} << (hash >> 12 & 63);
  }
  std::vector<uint64_t> bits_;
};

/// Finds, for every listed phrase, the listed phrases of the same count within it.
///
/// A phrase stands in a longer one as a run of as many words of which only the first and the last may
/// reach further out: the first of the run ends with the phrase's first word, the last begins with its
/// last. So every run of words of every phrase is taken as a candidate, with its first word replaced by
/// each of its suffixes that is a word and its last by each such prefix, and looked up. A small set over
/// word families answers nearly all of the questions that have no answer.
///
/// Phrases that follow each other in the text by one word and have the same count share all runs but the
/// ones that end behind the first; those are passed over, so that a passage that occurs twice costs its
/// length, not its length times 25.
class Containment {
 public:
  Containment(PhraseTableData& data, const WordAffixes& affixes)
      : data_(data), affixes_(affixes), redundant_(data.Entries.size()) {}

  bool Find(Yielder& yielder) {
    if (!Prepare(yielder)) return false;
    constexpr size_t kTask = 4096;
    const size_t tasks = (order_.size() + kTask - 1) / kTask;
    if (!RunTasks(tasks, order_.size() < kTask, yielder, [&](size_t task, size_t) {
          for (size_t k = task * kTask; k < std::min(order_.size(), (task + 1) * kTask); ++k) Search(k);
        }))
      return false;
    for (size_t e = 0; e < redundant_.size(); ++e)
      if (redundant_[e].load(std::memory_order_relaxed)) data_.Entries[e].Listed = false;
    return true;
  }

 private:
  const WordNumber* TextOf(const PhraseEntry& entry) const { return data_.Numbers.data() + entry.First; }

  static uint64_t HashOf(const WordNumber* words, int n) {
    uint64_t h = 0;
    for (int k = 0; k < n; ++k) h = h * kBase + OfWord(words[k]);
    return h;
  }
  static uint64_t WithCount(uint64_t hash, uint32_t count, int words) {
    return Scatter(hash + (uint64_t{count} << 8) + static_cast<uint64_t>(words));
  }
  /// What a phrase and every run that may hold it have in common.
  uint64_t FamilyHash(WordNumber first, uint64_t inner, WordNumber last, uint32_t count, int words) const {
    const uint64_t h = OfWord(affixes_.SuffixFamily(first)) * kPowers[static_cast<size_t>(words) - 1] +
                       inner * kBase + OfWord(affixes_.PrefixFamily(last));
    return WithCount(h, count, words);
  }

  bool Prepare(Yielder& yielder) {
    for (uint32_t e = 0; e < data_.Entries.size(); ++e)
      if (data_.Entries[e].Listed && data_.Entries[e].Words >= kLeastWords) {
        order_.push_back(e);
        fewest_ = std::min<int>(fewest_, data_.Entries[e].Words);
      }
    likely_ = std::make_unique<LikelySet>(order_.size());
    slots_.assign(std::bit_ceil(order_.size() * 2 + 2), kNoEntry);
    for (const uint32_t e : order_) {
      const PhraseEntry& entry = data_.Entries[e];
      const WordNumber* words = TextOf(entry);
      const int n = entry.Words;
      likely_->Add(FamilyHash(words[0], HashOf(words + 1, n - 2), words[n - 1], entry.Count, n));
      size_t at = WithCount(HashOf(words, n), entry.Count, n) & (slots_.size() - 1);
      while (slots_[at] != kNoEntry) at = (at + 1) & (slots_.size() - 1);
      slots_[at] = e;
      yielder.Yield();
      if (yielder.Stopped()) return false;
    }
    return RunTasks(1, order_.size() < 1000, yielder, [&](size_t, size_t) {
      std::sort(order_.begin(), order_.end(), [this](uint32_t a, uint32_t b) {
        const PhraseEntry& x = data_.Entries[a];
        const PhraseEntry& y = data_.Entries[b];
        return x.First != y.First ? x.First < y.First : x.Words < y.Words;
      });
    });
  }

  /// End, in the text, of the phrase that starts one word before `entry` and has its count; 0 if none.
  uint32_t EndOfNeighbour(size_t k, const PhraseEntry& entry) const {
    while (k > 0 && data_.Entries[order_[k - 1]].First == entry.First) --k;
    for (; k > 0; --k) {
      const PhraseEntry& other = data_.Entries[order_[k - 1]];
      if (other.First + 1 != entry.First) return 0;
      if (other.Count == entry.Count) return other.First + other.Words;
    }
    return 0;
  }

  void Search(size_t k) {
    const PhraseEntry& entry = data_.Entries[order_[k]];
    const WordNumber* words = TextOf(entry);
    const int n = entry.Words;
    const uint32_t known = EndOfNeighbour(k, entry);
    const int firstEnd =
        std::max(fewest_, known > entry.First ? static_cast<int>(known - entry.First) + 1 : 0);
    if (firstEnd > n) return;

    std::array<uint64_t, kMostWords + 1> upTo;
    upTo[0] = 0;
    for (int i = 0; i < n; ++i)
      upTo[static_cast<size_t>(i) + 1] = upTo[static_cast<size_t>(i)] * kBase + OfWord(words[i]);
    const auto between = [&](int from, int to) {
      return upTo[static_cast<size_t>(to)] -
             upTo[static_cast<size_t>(from)] * kPowers[static_cast<size_t>(to - from)];
    };

    for (int end = firstEnd; end <= n; ++end) {
      const WordNumber last = words[end - 1];
      for (int begin = 0; begin + fewest_ <= end; ++begin) {
        const WordNumber first = words[begin];
        const bool whole = begin == 0 && end == n;
        if (affixes_.Suffix(first) == kNoWord && affixes_.Prefix(last) == kNoWord &&
            (data_.OnlyMaximal || whole))
          continue;
        const uint64_t inner = between(begin + 1, end - 1);
        if (!likely_->MayHold(FamilyHash(first, inner, last, entry.Count, end - begin))) continue;
        MarkWithin(words + begin, end - begin, inner, entry.Count, whole || data_.OnlyMaximal);
      }
    }
  }

  /// Marks the listed phrases of this count that the run of `n` words holds from within its first to within
  /// its last word; the run itself only if it is not to be `skipped`.
  void MarkWithin(const WordNumber* run, int n, uint64_t inner, uint32_t count, bool skipRun) {
    const uint64_t power = kPowers[static_cast<size_t>(n) - 1];
    for (WordNumber first = run[0]; first != kNoWord; first = affixes_.Suffix(first))
      for (WordNumber last = run[n - 1]; last != kNoWord; last = affixes_.Prefix(last)) {
        if (skipRun && first == run[0] && last == run[n - 1]) continue;
        const uint64_t hash = WithCount(OfWord(first) * power + inner * kBase + OfWord(last), count, n);
        for (size_t at = hash & (slots_.size() - 1); slots_[at] != kNoEntry;
             at = (at + 1) & (slots_.size() - 1)) {
          const PhraseEntry& entry = data_.Entries[slots_[at]];
          const WordNumber* words = TextOf(entry);
          if (entry.Count == count && entry.Words == n && words[0] == first && words[n - 1] == last &&
              std::equal(run + 1, run + n - 1, words + 1))
            redundant_[slots_[at]].store(1, std::memory_order_relaxed);
        }
      }
  }

  static constexpr uint32_t kNoEntry = 0xFFFFFFFF;

  PhraseTableData& data_;
  const WordAffixes& affixes_;
  int fewest_ = kMostWords;  ///< Words of the shortest listed phrase.
  std::vector<std::atomic<uint8_t>> redundant_;
  std::vector<uint32_t> order_;  ///< The listed entries by place in the text.
  std::vector<uint32_t> slots_;  ///< The listed entries by hash of words and count.
  std::unique_ptr<LikelySet> likely_;
};

}  // namespace

bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  if (data.Entries.empty()) return true;
  const WordAffixes affixes(data.Words, yielder);
  if (yielder.Stopped()) return false;
  return Containment(data, affixes).Find(yielder);
}

}  // namespace korv
