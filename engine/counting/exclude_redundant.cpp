#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <memory>
#include <vector>

#include "base/workers.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/text/word_affixes.h"

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
class BloomFilter {
 public:
  explicit BloomFilter(size_t members) : bits_(std::bit_ceil(members * 8 + 64) / 64) {}
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
  void Prefetch(uint64_t hash) const { __builtin_prefetch(&slots_[First(hash)]); }
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
    affixes_ = std::make_unique<WordAffixes>(data_.Corpus.Words, isFirst_, isLast_, yielder);
    if (yielder.Stopped()) return false;
    Reserve();
    if (!ForParts(yielder, [this](size_t begin, size_t end) { Add(begin, end); })) return false;
    if (!ForParts(yielder, [this](size_t begin, size_t end) {
          Search search(*this);
          for (size_t k = begin; k < end; ++k) search.Runs(k);
        }))
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

  const WordNumber* TextOf(const Phrase& phrase) const { return data_.Corpus.Tokens.data() + phrase.First; }

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
    isFirst_.assign(data_.Corpus.Words.Size() + 1, false);
    isLast_.assign(data_.Corpus.Words.Size() + 1, false);
    for (uint32_t e = 0; e < data_.Entries.size(); ++e) {
      const PhraseEntry& entry = data_.Entries[e];
      if (!entry.Listed || entry.Words < kLeastWords) continue;
      listed_.push_back({entry.First, entry.Count, e, entry.Words});
      fewest_ = std::min<int>(fewest_, entry.Words);
    }
    constexpr int kDigitBits = 11;
    constexpr size_t kDigits = size_t{1} << kDigitBits;
    std::vector<Phrase> sorted(listed_.size());
    for (int shift = 0; shift < 32 && data_.Corpus.Tokens.size() >> shift != 0; shift += kDigitBits) {
      std::array<size_t, kDigits + 1> next{};
      for (const Phrase& phrase : listed_) ++next[(phrase.First >> shift & (kDigits - 1)) + 1];
      for (size_t d = 0; d < kDigits; ++d) next[d + 1] += next[d];
      for (const Phrase& phrase : listed_) sorted[next[phrase.First >> shift & (kDigits - 1)]++] = phrase;
      listed_.swap(sorted);
    }
    for (const Phrase& phrase : listed_) {
      isFirst_[TextOf(phrase)[0]] = true;
      isLast_[TextOf(phrase)[phrase.Words - 1]] = true;
    }
  }

  void Reserve() {
    suffixFamily_.resize(data_.Corpus.Words.Size() + 1);
    prefixFamily_.resize(data_.Corpus.Words.Size() + 1);
    for (WordNumber w = 1; w <= data_.Corpus.Words.Size(); ++w) {
      suffixFamily_[w] = OfWord(affixes_->SuffixFamily(w));
      prefixFamily_[w] = OfWord(affixes_->PrefixFamily(w));
    }
    families_ = std::make_unique<BloomFilter>(listed_.size());
    largeFamilies_ = std::make_unique<BloomFilter>(listed_.size() / 2);
    halves_ = std::make_unique<BloomFilter>(listed_.size());
    largeHalves_ = std::make_unique<BloomFilter>(listed_.size() / 2);
    phrases_.Reserve(listed_.size());
  }

  /// Shares the listed phrases out to all threads, `work` being called with [begin, end) of listed_.
  template <typename Work>
  bool ForParts(Yielder& yielder, const Work& work) const {
    constexpr size_t kPart = 4096;
    const size_t n = listed_.size();
    return RunTasks((n + kPart - 1) / kPart, n < kPart, yielder,
                    [&](size_t part, size_t) { work(part * kPart, std::min(n, (part + 1) * kPart)); });
  }

  /// Puts phrases [begin, end) of listed_ into the sets and the table; a few at a time, so that the memory
  /// they go to is on its way before it is needed.
  void Add(size_t begin, size_t end) {
    struct Hashes {
      uint64_t Family;
      uint64_t Half;
      uint64_t Whole;
    };
    std::array<Hashes, 32> hashes;
    while (begin < end) {
      const size_t together = std::min(hashes.size(), end - begin);
      for (size_t k = 0; k < together; ++k) {
        const Phrase& phrase = listed_[begin + k];
        const WordNumber* words = TextOf(phrase);
        const int n = phrase.Words;
        const uint64_t inner = HashOf(words + 1, n - 2);
        hashes[k].Family = FamilyHash(words[0], inner, words[n - 1], phrase.Count, n);
        hashes[k].Half = HalfHash(words[0], inner, words[n - 1], phrase.Count, n);
        hashes[k].Whole = WithCount(
            OfWord(words[0]) * kPowers[static_cast<size_t>(n) - 1] + inner * kBase + OfWord(words[n - 1]),
            phrase.Count, n);
        families_->Prefetch(hashes[k].Family);
        halves_->Prefetch(hashes[k].Half);
        phrases_.Prefetch(hashes[k].Whole);
      }
      for (size_t k = 0; k < together; ++k) {
        if (families_->Add(hashes[k].Family)) largeFamilies_->Add(hashes[k].Family);
        if (halves_->Add(hashes[k].Half)) largeHalves_->Add(hashes[k].Half);
        phrases_.Insert(hashes[k].Whole, listed_[begin + k].Entry);
      }
      begin += together;
    }
  }

  /// Words of phrase `k` that the phrase of the same count which starts one word before it covers.
  int CoveredByNeighbour(size_t k) const {
    const Phrase& phrase = listed_[k];
    while (k > 0 && listed_[k - 1].First == phrase.First) --k;
    for (; k > 0 && listed_[k - 1].First + 1 == phrase.First; --k)
      if (listed_[k - 1].Count == phrase.Count) return listed_[k - 1].Words - 1;
    return 0;
  }

  /// Whether a run of words holds a listed phrase, from the first doubt to the last. Each doubt is a look at
  /// memory that is far away, so that many are collected and asked for together before any is looked at.
  class Search {
   public:
    explicit Search(Containment& all) : all_(all) {}
    ~Search() {
      AskFamilies();
      AskHalves();
      AskPhrases();
    }

    /// Asks for all runs of phrase `place` that its neighbour does not hold.
    void Runs(size_t place) {
      const Phrase& phrase = all_.listed_[place];
      const WordNumber* words = all_.TextOf(phrase);
      const int n = phrase.Words;
      std::array<uint64_t, kMostWords + 1> upTo;
      std::array<bool, kMostWords> hasSuffix;
      std::array<bool, kMostWords> hasPrefix;
      upTo[0] = 0;
      for (size_t i = 0; i < static_cast<size_t>(n); ++i) {
        upTo[i + 1] = upTo[i] * kBase + OfWord(words[i]);
        hasSuffix[i] = all_.affixes_->Suffix(words[i]) != kNoWord;
        hasPrefix[i] = all_.affixes_->Prefix(words[i]) != kNoWord;
      }
      for (int end = std::max(all_.fewest_, all_.CoveredByNeighbour(place) + 1); end <= n; ++end)
        for (int begin = 0; begin + all_.fewest_ <= end; ++begin) {
          const auto b = static_cast<size_t>(begin);
          const auto e = static_cast<size_t>(end);
          const bool isPhrase = begin == 0 && end == n;
          const bool skipRun = isPhrase || all_.data_.OnlyMaximal;
          if (!hasSuffix[b] && !hasPrefix[e - 1] && skipRun) continue;
          const uint64_t inner = upTo[e - 1] - upTo[b + 1] * kPowers[e - b - 2];
          const int run = end - begin;
          const Question question{.Run = words + begin,
                                  .Inner = inner,
                                  .Hash = all_.FamilyHash(words[b], inner, words[e - 1], phrase.Count, run),
                                  .First = words[b],
                                  .Last = words[e - 1],
                                  .Count = phrase.Count,
                                  .Words = static_cast<uint8_t>(run),
                                  .SkipRun = skipRun,
                                  .IsPhrase = isPhrase};
          FamiliesFor(question).Prefetch(question.Hash);
          runs_.push_back(question);
        }
      if (runs_.size() >= kTogether) AskFamilies();
    }

   private:
    static constexpr size_t kTogether = 64;

    /// Does the run hold a phrase of this count whose first and last words are First and Last, or ones in
    /// their place?
    struct Question {
      const WordNumber* Run;
      uint64_t Inner;  ///< Hash of the words between first and last.
      uint64_t Hash;   ///< Of what is asked next.
      WordNumber First;
      WordNumber Last;
      uint32_t Count;
      uint8_t Words;
      bool SkipRun;   ///< The run as it stands is no answer.
      bool IsPhrase;  ///< It is a listed phrase itself, in the sets like all others.
    };

    // A phrase is of its own family and half: only those with another member are worth the next question.
    const BloomFilter& FamiliesFor(const Question& q) const {
      return q.IsPhrase ? *all_.largeFamilies_ : *all_.families_;
    }
    const BloomFilter& HalvesFor(const Question& q) const {
      return q.IsPhrase && q.First == q.Run[0] ? *all_.largeHalves_ : *all_.halves_;
    }

    void AskFamilies() {
      for (Question& q : runs_) {
        if (!FamiliesFor(q).MayHold(q.Hash)) continue;
        for (; q.First != kNoWord; q.First = all_.affixes_->Suffix(q.First)) {
          q.Hash = all_.HalfHash(q.First, q.Inner, q.Last, q.Count, q.Words);
          HalvesFor(q).Prefetch(q.Hash);
          halves_.push_back(q);
        }
        if (halves_.size() >= kTogether) AskHalves();
      }
      runs_.clear();
    }

    void AskHalves() {
      for (Question& q : halves_) {
        if (!HalvesFor(q).MayHold(q.Hash)) continue;
        const uint64_t beginning = OfWord(q.First) * kPowers[q.Words - 1u] + q.Inner * kBase;
        for (; q.Last != kNoWord; q.Last = all_.affixes_->Prefix(q.Last)) {
          if (q.SkipRun && q.First == q.Run[0] && q.Last == q.Run[q.Words - 1]) continue;
          q.Hash = WithCount(beginning + OfWord(q.Last), q.Count, q.Words);
          all_.phrases_.Prefetch(q.Hash);
          phrases_.push_back(q);
        }
        if (phrases_.size() >= kTogether) AskPhrases();
      }
      halves_.clear();
    }

    void AskPhrases() {
      for (const Question& q : phrases_)
        all_.phrases_.Visit(q.Hash, [&](uint32_t e) {
          const PhraseEntry& entry = all_.data_.Entries[e];
          const WordNumber* words = all_.data_.Corpus.Tokens.data() + entry.First;
          const bool same = entry.Count == q.Count && entry.Words == q.Words && words[0] == q.First &&
                            words[q.Words - 1] == q.Last &&
                            std::equal(q.Run + 1, q.Run + q.Words - 1, words + 1);
          if (same) all_.redundant_[e].store(1, std::memory_order_relaxed);
          return same;
        });
      phrases_.clear();
    }

    Containment& all_;
    std::vector<Question> runs_;
    std::vector<Question> halves_;
    std::vector<Question> phrases_;
  };

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
  std::unique_ptr<BloomFilter> families_;
  std::unique_ptr<BloomFilter> largeFamilies_;  ///< Those of two phrases and more.
  std::unique_ptr<BloomFilter> halves_;
  std::unique_ptr<BloomFilter> largeHalves_;
};

}  // namespace

bool ExcludeRedundantSubphrases(PhraseTable& table, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  return data.Entries.empty() || Containment(data).Find(yielder);
}

}  // namespace korv
