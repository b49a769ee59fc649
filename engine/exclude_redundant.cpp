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
  void Prefetch(uint64_t hash) const { __builtin_prefetch(&bits_[Word(hash)]); }
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
/// each of its suffixes that is a word and its last by each such prefix, and looked up. Small sets that
/// rarely say yes in vain answer nearly all questions that have no answer: one asks for word families
/// before the replacements are gone through, one for the very phrase before the table is touched.
///
/// Phrases that follow each other in the text by one word and have the same count share all runs but the
/// ones that end behind the first; for long phrases those are passed over, so that a passage that occurs
/// twice costs its length, not its length times 25.
class Containment {
 public:
  explicit Containment(PhraseTableData& data) : data_(data), redundant_(data.Entries.size()) {}

  bool Find(Yielder& yielder) {
    affixes_ = std::make_unique<WordAffixes>(data_.Words, yielder);
    if (yielder.Stopped() || !Prepare(yielder)) return false;
    constexpr size_t kTask = 4096;
    const size_t tasks = (listed_.size() + kTask - 1) / kTask;
    if (!RunTasks(tasks, listed_.size() < kTask, yielder, [&](size_t task, size_t) {
          for (size_t k = task * kTask; k < std::min(listed_.size(), (task + 1) * kTask); ++k) {
            constexpr size_t kAhead = 8;
            if (k + kAhead < listed_.size()) __builtin_prefetch(TextOf(data_.Entries[listed_[k + kAhead]]));
            Search(data_.Entries[listed_[k]]);
          }
        }))
      return false;
    for (size_t e = 0; e < redundant_.size(); ++e)
      if (redundant_[e].load(std::memory_order_relaxed)) data_.Entries[e].Listed = false;
    return true;
  }

 private:
  static constexpr uint32_t kNoEntry = 0xFFFFFFFF;
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
  static uint64_t PlaceHash(uint32_t first, uint32_t count) { return Scatter(uint64_t{first} << 32 | count); }

  bool Prepare(Yielder& yielder) {
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
    phrases_ = std::make_unique<LikelySet>(listed_.size());
    slots_.assign(std::bit_ceil(listed_.size() * 2 + 2), kNoEntry);
    places_.assign(std::bit_ceil(longPhrases * 2 + 2), kNoEntry);
    for (const uint32_t e : listed_) {
      const PhraseEntry& entry = data_.Entries[e];
      const WordNumber* words = TextOf(entry);
      const int n = entry.Words;
      families_->Add(FamilyHash(words[0], HashOf(words + 1, n - 2), words[n - 1], entry.Count, n));
      const uint64_t hash = WithCount(HashOf(words, n), entry.Count, n);
      phrases_->Add(hash);
      Insert(slots_, hash, e);
      if (n >= kLongPhrase) Insert(places_, PlaceHash(entry.First, entry.Count), e);
      yielder.Yield();
      if (yielder.Stopped()) return false;
    }
    return true;
  }

  static void Insert(std::vector<uint32_t>& table, uint64_t hash, uint32_t entry) {
    size_t at = hash & (table.size() - 1);
    while (table[at] != kNoEntry) at = (at + 1) & (table.size() - 1);
    table[at] = entry;
  }

  /// Words of `entry` that the long phrase of the same count which starts one word before it covers.
  int CoveredByNeighbour(const PhraseEntry& entry) const {
    if (entry.Words < kLongPhrase) return 0;
    const size_t mask = places_.size() - 1;
    for (size_t at = PlaceHash(entry.First - 1, entry.Count) & mask; places_[at] != kNoEntry;
         at = (at + 1) & mask) {
      const PhraseEntry& other = data_.Entries[places_[at]];
      if (other.First + 1 == entry.First && other.Count == entry.Count) return other.Words - 1;
    }
    return 0;
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
        if (whole) {
          MarkWithin(words, n, inner, entry.Count, true);
          continue;
        }
        Run& run = runs[count++];
        run = {inner, FamilyHash(words[b], inner, words[e - 1], entry.Count, end - begin),
               static_cast<uint8_t>(begin), static_cast<uint8_t>(end)};
        families_->Prefetch(run.Family);
      }
    for (size_t k = 0; k < count; ++k)
      if (families_->MayHold(runs[k].Family))
        MarkWithin(words + runs[k].Begin, runs[k].End - runs[k].Begin, runs[k].Inner, entry.Count,
                   data_.OnlyMaximal);
  }

  /// Marks the listed phrases of this count that the run of `n` words holds from within its first to within
  /// its last word; the run itself only if it is not to be skipped.
  void MarkWithin(const WordNumber* run, int n, uint64_t inner, uint32_t count, bool skipRun) {
    const uint64_t power = kPowers[static_cast<size_t>(n) - 1];
    for (WordNumber first = run[0]; first != kNoWord; first = affixes_->Suffix(first)) {
      const uint64_t beginning = OfWord(first) * power + inner * kBase;
      for (WordNumber last = run[n - 1]; last != kNoWord; last = affixes_->Prefix(last)) {
        if (skipRun && first == run[0] && last == run[n - 1]) continue;
        const uint64_t hash = WithCount(beginning + OfWord(last), count, n);
        if (phrases_->MayHold(hash)) Mark(hash, run, n, first, last, count);
      }
    }
  }

  void Mark(uint64_t hash, const WordNumber* run, int n, WordNumber first, WordNumber last, uint32_t count) {
    const size_t mask = slots_.size() - 1;
    for (size_t at = hash & mask; slots_[at] != kNoEntry; at = (at + 1) & mask) {
      const PhraseEntry& entry = data_.Entries[slots_[at]];
      if (entry.Count != count || entry.Words != n) continue;
      const WordNumber* words = TextOf(entry);
      if (words[0] == first && words[n - 1] == last && std::equal(run + 1, run + n - 1, words + 1))
        redundant_[slots_[at]].store(1, std::memory_order_relaxed);
    }
  }

  PhraseTableData& data_;
  std::unique_ptr<WordAffixes> affixes_;
  std::vector<uint64_t> suffixFamily_;  ///< Per word, hashed.
  std::vector<uint64_t> prefixFamily_;
  int fewest_ = kMostWords;  ///< Words of the shortest listed phrase.
  std::vector<std::atomic<uint8_t>> redundant_;
  std::vector<uint32_t> listed_;
  std::vector<uint32_t> slots_;   ///< The listed entries by hash of words and count.
  std::vector<uint32_t> places_;  ///< The long ones by hash of place and count.
  std::unique_ptr<LikelySet> families_;
  std::unique_ptr<LikelySet> phrases_;
};

}  // namespace

bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  return data.Entries.empty() || Containment(data).Find(yielder);
}

}  // namespace korv
