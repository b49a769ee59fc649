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

/// A set that may say yes to what it does not hold, one time in some tens. Any thread may add.
class LikelySet {
 public:
  explicit LikelySet(size_t members) : bits_(std::bit_ceil(members * 8 + 64) / 64) {}
  /// Whether it may have been there before.
  bool Add(uint64_t hash) {
    const uint64_t mask = Mask(hash);
    return (bits_[Word(hash)].fetch_or(mask, std::memory_order_relaxed) & mask) == mask;
  }
  void Prefetch(uint64_t hash) const { __builtin_prefetch(&bits_[Word(hash)]); }
  bool MayHold(uint64_t hash) const {
    const uint64_t mask = Mask(hash);
    return (bits_[Word(hash)].load(std::memory_order_relaxed) & mask) == mask;
  }

 private:
  size_t Word(uint64_t hash) const { return hash >> 24 & (bits_.size() - 1); }
  static uint64_t Mask(uint64_t hash) {
    return uint64_t{1} << (hash & 63) | uint64_t{1} << (hash >> 6 & 63) | uint64_t{1} << (hash >> 12 & 63);
  }
  std::vector<std::atomic<uint64_t>> bits_;
};

/// Entries by a hash, open addressing, at most two thirds full. Any thread may insert; look-ups come after.
class EntryTable {
 public:
  void Reserve(size_t entries) {
    slots_ = std::vector<std::atomic<uint64_t>>(std::bit_ceil(entries * 3 / 2 + 2));
  }
  void Insert(uint64_t hash, uint32_t entry) {
    const uint64_t slot = (hash & kHashPart) | (uint64_t{entry} + 1);
    for (size_t at = First(hash);; at = Next(at)) {
      uint64_t empty = 0;
      if (slots_[at].compare_exchange_strong(empty, slot, std::memory_order_relaxed)) return;
    }
  }
  /// Calls `use` with each entry inserted under this hash, and with few others, until it returns true.
  template <typename Use>
  void Visit(uint64_t hash, const Use& use) const {
    for (size_t at = First(hash);; at = Next(at)) {
      const uint64_t slot = slots_[at].load(std::memory_order_relaxed);
      if (slot == 0) return;
      if ((slot & kHashPart) == (hash & kHashPart) && use(static_cast<uint32_t>(slot) - 1)) return;
    }
  }

 private:
  static constexpr uint64_t kHashPart = 0xFFFFFFFF00000000;
  size_t First(uint64_t hash) const { return hash & (slots_.size() - 1); }
  size_t Next(size_t at) const { return (at + 1) & (slots_.size() - 1); }
  std::vector<std::atomic<uint64_t>> slots_;
};

/// Finds, for every listed phrase, the listed phrases of the same count within it.
///
/// A phrase stands in a longer one as a run of as many words of which only the first and the last may
/// reach further out: the first of the run ends with the phrase's first word, the last begins with its
/// last. So every run of words of every phrase is taken as a candidate, with its first word replaced by
/// each of its suffixes that is a word and its last by each such prefix, and looked up. Small sets of what
/// phrases have in common with the runs that hold them answer nearly all of the questions that have no
/// answer.
///
/// Phrases that follow each other in the text by one word and have the same count share all runs but the
/// ones that end behind the first; for long phrases those are passed over, so that a passage that occurs
/// twice costs its length, not its length times 25.
class Containment {
 public:
  explicit Containment(PhraseTableData& data) : data_(data), redundant_(data.Entries.size()) {}

  bool Find(Yielder& yielder) {
    affixes_ = std::make_unique<WordAffixes>(data_.Words, yielder);
    if (yielder.Stopped()) return false;
    Reserve();
    if (!ForEachListed(yielder, [this](uint32_t e) { Add(e); }) ||
        !ForEachListed(yielder, [this](uint32_t e) { Search(data_.Entries[e]); }))
      return false;
    for (size_t e = 0; e < redundant_.size(); ++e)
      if (redundant_[e].load(std::memory_order_relaxed)) data_.Entries[e].Listed = false;
    return true;
  }

 private:
  /// From this many words on it pays to ask for the neighbour.
  static constexpr int kLongPhrase = 9;

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
    return WithCount(
        suffixFamily_[first] * kPowers[static_cast<size_t>(words) - 1] + inner * kBase + prefixFamily_[last],
        count, words);
  }
  /// The same for one choice of the first word.
  uint64_t HalfHash(WordNumber first, uint64_t inner, WordNumber last, uint32_t count, int words) const {
    return WithCount(
        OfWord(first) * kPowers[static_cast<size_t>(words) - 1] + inner * kBase + prefixFamily_[last] + 1,
        count, words);
  }
  static uint64_t PlaceHash(uint32_t first, uint32_t count) { return Scatter(uint64_t{first} << 32 | count); }

  void Reserve() {
    size_t longPhrases = 0;
    for (uint32_t e = 0; e < data_.Entries.size(); ++e) {
      const PhraseEntry& entry = data_.Entries[e];
      if (!entry.Listed || entry.Words < kLeastWords) continue;
      listed_.push_back(e);
      fewest_ = std::min<int>(fewest_, entry.Words);
      longPhrases += entry.Words >= kLongPhrase ? 1 : 0;
    }
    suffixFamily_.resize(data_.Words.Size() + 1);
    prefixFamily_.resize(data_.Words.Size() + 1);
    for (WordNumber w = 1; w <= data_.Words.Size(); ++w) {
      suffixFamily_[w] = OfWord(affixes_->SuffixFamily(w));
      prefixFamily_[w] = OfWord(affixes_->PrefixFamily(w));
    }
    families_ = std::make_unique<LikelySet>(listed_.size());
    largeFamilies_ = std::make_unique<LikelySet>(listed_.size() / 2);
    halves_ = std::make_unique<LikelySet>(listed_.size());
    largeHalves_ = std::make_unique<LikelySet>(listed_.size() / 2);
    phrases_.Reserve(listed_.size());
    places_.Reserve(longPhrases);
  }

  template <typename Work>
  bool ForEachListed(Yielder& yielder, const Work& work) const {
    constexpr size_t kTask = 4096;
    constexpr size_t kAhead = 8;
    const size_t n = listed_.size();
    return RunTasks((n + kTask - 1) / kTask, n < kTask, yielder, [&](size_t task, size_t) {
      for (size_t k = task * kTask; k < std::min(n, (task + 1) * kTask); ++k) {
        if (k + kAhead < n) __builtin_prefetch(TextOf(data_.Entries[listed_[k + kAhead]]));
        work(listed_[k]);
      }
    });
  }

  void Add(uint32_t e) {
    const PhraseEntry& entry = data_.Entries[e];
    const WordNumber* words = TextOf(entry);
    const int n = entry.Words;
    const uint64_t inner = HashOf(words + 1, n - 2);
    const uint64_t family = FamilyHash(words[0], inner, words[n - 1], entry.Count, n);
    if (families_->Add(family)) largeFamilies_->Add(family);
    const uint64_t half = HalfHash(words[0], inner, words[n - 1], entry.Count, n);
    if (halves_->Add(half)) largeHalves_->Add(half);
    const uint64_t hash =
        OfWord(words[0]) * kPowers[static_cast<size_t>(n) - 1] + inner * kBase + OfWord(words[n - 1]);
    phrases_.Insert(WithCount(hash, entry.Count, n), e);
    if (n >= kLongPhrase) places_.Insert(PlaceHash(entry.First, entry.Count), e);
  }

  /// Words of `entry` that the long phrase of the same count which starts one word before it covers.
  int CoveredByNeighbour(const PhraseEntry& entry) const {
    if (entry.Words < kLongPhrase) return 0;
    int covered = 0;
    places_.Visit(PlaceHash(entry.First - 1, entry.Count), [&](uint32_t e) {
      const PhraseEntry& other = data_.Entries[e];
      if (other.First + 1 != entry.First || other.Count != entry.Count) return false;
      covered = other.Words - 1;
      return true;
    });
    return covered;
  }

  void Search(const PhraseEntry& entry) {
    const WordNumber* words = TextOf(entry);
    const int n = entry.Words;
    std::array<uint64_t, kMostWords + 1> upTo;
    std::array<bool, kMostWords> hasSuffix;
    std::array<bool, kMostWords> hasPrefix;
    upTo[0] = 0;
    for (size_t i = 0; i < static_cast<size_t>(n); ++i) {
      upTo[i + 1] = upTo[i] * kBase + OfWord(words[i]);
      hasSuffix[i] = affixes_->Suffix(words[i]) != kNoWord;
      hasPrefix[i] = affixes_->Prefix(words[i]) != kNoWord;
    }

    // First the questions, so that the memory they ask for is on its way when the answers are needed.
    struct Run {
      uint64_t Inner;
      uint64_t Family;
      uint8_t Begin;
      uint8_t End;
    };
    std::array<Run, kMostWords * kMostWords / 2> runs;
    size_t count = 0;
    for (int end = std::max(fewest_, CoveredByNeighbour(entry) + 1); end <= n; ++end)
      for (int begin = 0; begin + fewest_ <= end; ++begin) {
        const auto b = static_cast<size_t>(begin);
        const auto e = static_cast<size_t>(end);
        const bool whole = begin == 0 && end == n;
        if (!hasSuffix[b] && !hasPrefix[e - 1] && (data_.OnlyMaximal || whole)) continue;
        const uint64_t inner = upTo[e - 1] - upTo[b + 1] * kPowers[e - b - 2];
        Run& run = runs[count++];
        run = {inner, FamilyHash(words[b], inner, words[e - 1], entry.Count, end - begin),
               static_cast<uint8_t>(begin), static_cast<uint8_t>(end)};
        (whole ? largeFamilies_ : families_)->Prefetch(run.Family);
      }
    for (size_t k = 0; k < count; ++k) {
      // The whole phrase is of its own family: only one with another member is worth the question.
      const bool whole = runs[k].Begin == 0 && runs[k].End == n;
      if ((whole ? largeFamilies_ : families_)->MayHold(runs[k].Family))
        MarkWithin(words + runs[k].Begin, runs[k].End - runs[k].Begin, runs[k].Inner, entry.Count,
                   whole || data_.OnlyMaximal, whole);
    }
  }

  /// Marks the listed phrases of this count that the run of `n` words holds from within its first to within
  /// its last word; the run itself only if it is not to be skipped.
  void MarkWithin(const WordNumber* run, int n, uint64_t inner, uint32_t count, bool skipRun, bool isPhrase) {
    const uint64_t power = kPowers[static_cast<size_t>(n) - 1];
    for (WordNumber first = run[0]; first != kNoWord; first = affixes_->Suffix(first)) {
      // Where the run itself is one of the phrases, its own half says nothing.
      const uint64_t half = HalfHash(first, inner, run[n - 1], count, n);
      if (!(isPhrase && first == run[0] ? largeHalves_ : halves_)->MayHold(half)) continue;
      const uint64_t beginning = OfWord(first) * power + inner * kBase;
      for (WordNumber last = run[n - 1]; last != kNoWord; last = affixes_->Prefix(last)) {
        if (skipRun && first == run[0] && last == run[n - 1]) continue;
        phrases_.Visit(WithCount(beginning + OfWord(last), count, n), [&](uint32_t e) {
          const PhraseEntry& entry = data_.Entries[e];
          const WordNumber* words = TextOf(entry);
          const bool same = entry.Count == count && entry.Words == n && words[0] == first &&
                            words[n - 1] == last && std::equal(run + 1, run + n - 1, words + 1);
          if (same) redundant_[e].store(1, std::memory_order_relaxed);
          return same;
        });
      }
    }
  }

  PhraseTableData& data_;
  std::unique_ptr<WordAffixes> affixes_;
  std::vector<uint64_t> suffixFamily_;  ///< Per word, hashed.
  std::vector<uint64_t> prefixFamily_;
  int fewest_ = kMostWords;  ///< Words of the shortest listed phrase.
  std::vector<std::atomic<uint8_t>> redundant_;
  std::vector<uint32_t> listed_;
  EntryTable phrases_;  ///< The listed entries by words and count.
  EntryTable places_;   ///< The long ones by place and count.
  std::unique_ptr<LikelySet> families_;
  std::unique_ptr<LikelySet> largeFamilies_;  ///< Those of two phrases and more.
  std::unique_ptr<LikelySet> halves_;
  std::unique_ptr<LikelySet> largeHalves_;
};

}  // namespace

bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  return data.Entries.empty() || Containment(data).Find(yielder);
}

}  // namespace korv
