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
/// Phrases are gone through by their places in the text. Two that follow each other by one word and have the
/// same count share all runs but the ones that end behind the first; those are passed over, so that a
/// passage that occurs twice costs its length, not its length times 25.
class Containment {
 public:
  explicit Containment(PhraseTableData& data) : data_(data), redundant_(data.Entries.size()) {}

  bool Find(Yielder& yielder) {
    if (!RunTasks(1, data_.Entries.size() < 1000, yielder, [this](size_t, size_t) { Collect(); }))
      return false;
    affixes_ = std::make_unique<WordAffixes>(data_.Words, isFirst_, isLast_, yielder);
    if (yielder.Stopped()) return false;
    Reserve();
    if (!ForEachListed(yielder, [this](size_t k) { Add(listed_[k]); }) ||
        !ForEachListed(yielder, [this](size_t k) { Search(k); }))
      return false;
    for (size_t e = 0; e < redundant_.size(); ++e)
      if (redundant_[e].load(std::memory_order_relaxed)) data_.Entries[e].Listed = false;
    return true;
  }

 private:
  /// A listed phrase, side by side with its neighbours in the text.
  struct Phrase {
    uint32_t First;
    uint32_t Count;
    uint32_t Entry;  ///< Index in Entries.
    uint8_t Words;
  };

  const WordNumber* TextOf(const Phrase& phrase) const { return data_.Numbers.data() + phrase.First; }

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
  /// Lists the phrases by First, counting digit by digit of it.
  void Collect() {
    isFirst_.assign(data_.Words.Size() + 1, false);
    isLast_.assign(data_.Words.Size() + 1, false);
    for (uint32_t e = 0; e < data_.Entries.size(); ++e) {
      const PhraseEntry& entry = data_.Entries[e];
      if (!entry.Listed || entry.Words < kLeastWords) continue;
      listed_.push_back({entry.First, entry.Count, e, entry.Words});
      fewest_ = std::min<int>(fewest_, entry.Words);
      isFirst_[data_.Numbers[entry.First]] = true;
      isLast_[data_.Numbers[entry.First + entry.Words - 1u]] = true;
    }
    constexpr int kDigitBits = 11;
    constexpr size_t kDigits = size_t{1} << kDigitBits;
    std::vector<Phrase> sorted(listed_.size());
    for (int shift = 0; shift < 32 && data_.Numbers.size() >> shift != 0; shift += kDigitBits) {
      std::array<size_t, kDigits + 1> next{};
      for (const Phrase& phrase : listed_) ++next[(phrase.First >> shift & (kDigits - 1)) + 1];
      for (size_t d = 0; d < kDigits; ++d) next[d + 1] += next[d];
      for (const Phrase& phrase : listed_) sorted[next[phrase.First >> shift & (kDigits - 1)]++] = phrase;
      listed_.swap(sorted);
    }
  }

  void Reserve() {
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
  }

  template <typename Work>
  bool ForEachListed(Yielder& yielder, const Work& work) const {
    constexpr size_t kTask = 4096;
    const size_t n = listed_.size();
    return RunTasks((n + kTask - 1) / kTask, n < kTask, yielder, [&](size_t task, size_t) {
      for (size_t k = task * kTask; k < std::min(n, (task + 1) * kTask); ++k) work(k);
    });
  }

  void Add(const Phrase& phrase) {
    const WordNumber* words = TextOf(phrase);
    const int n = phrase.Words;
    const uint64_t inner = HashOf(words + 1, n - 2);
    const uint64_t family = FamilyHash(words[0], inner, words[n - 1], phrase.Count, n);
    if (families_->Add(family)) largeFamilies_->Add(family);
    const uint64_t half = HalfHash(words[0], inner, words[n - 1], phrase.Count, n);
    if (halves_->Add(half)) largeHalves_->Add(half);
    const uint64_t hash =
        OfWord(words[0]) * kPowers[static_cast<size_t>(n) - 1] + inner * kBase + OfWord(words[n - 1]);
    phrases_.Insert(WithCount(hash, phrase.Count, n), phrase.Entry);
  }

  /// Words of phrase `k` that the phrase of the same count which starts one word before it covers.
  int CoveredByNeighbour(size_t k) const {
    const Phrase& phrase = listed_[k];
    while (k > 0 && listed_[k - 1].First == phrase.First) --k;
    for (; k > 0 && listed_[k - 1].First + 1 == phrase.First; --k)
      if (listed_[k - 1].Count == phrase.Count) return listed_[k - 1].Words - 1;
    return 0;
  }

  void Search(size_t place) {
    const Phrase& phrase = listed_[place];
    const WordNumber* words = TextOf(phrase);
    const int n = phrase.Words;
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
    for (int end = std::max(fewest_, CoveredByNeighbour(place) + 1); end <= n; ++end)
      for (int begin = 0; begin + fewest_ <= end; ++begin) {
        const auto b = static_cast<size_t>(begin);
        const auto e = static_cast<size_t>(end);
        const bool whole = begin == 0 && end == n;
        if (!hasSuffix[b] && !hasPrefix[e - 1] && (data_.OnlyMaximal || whole)) continue;
        const uint64_t inner = upTo[e - 1] - upTo[b + 1] * kPowers[e - b - 2];
        Run& run = runs[count++];
        run = {inner, FamilyHash(words[b], inner, words[e - 1], phrase.Count, end - begin),
               static_cast<uint8_t>(begin), static_cast<uint8_t>(end)};
        (whole ? largeFamilies_ : families_)->Prefetch(run.Family);
      }
    for (size_t k = 0; k < count; ++k) {
      // The whole phrase is of its own family: only one with another member is worth the question.
      const bool whole = runs[k].Begin == 0 && runs[k].End == n;
      if ((whole ? largeFamilies_ : families_)->MayHold(runs[k].Family))
        MarkWithin(words + runs[k].Begin, runs[k].End - runs[k].Begin, runs[k].Inner, phrase.Count,
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
          const WordNumber* words = data_.Numbers.data() + entry.First;
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
  std::vector<Phrase> listed_;  ///< By First.
  std::vector<bool> isFirst_;   ///< Per word: a listed phrase begins with it.
  std::vector<bool> isLast_;    ///< Per word: a listed phrase ends with it.
  EntryTable phrases_;          ///< The listed entries by words and count.
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
