#include "engine/counting/word_affixes.h"

#include <algorithm>
#include <bit>
#include <string_view>

#include "base/workers.h"
#include "base/zeroed_array.h"

namespace korv {

namespace {

uint64_t Extend(uint64_t hash, char c) {
  return (hash ^ static_cast<unsigned char>(c)) * 0x9E3779B97F4A7C15 ^ (hash >> 29);
}

bool BeginsCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

/// Byte k of a word as read in one direction, so that a suffix is a beginning like a prefix.
template <bool Backward>
char ByteAt(std::string_view word, size_t k) {
  return Backward ? word[word.size() - 1 - k] : word[k];
}

/// Whether the first `n` bytes in reading direction are whole characters (n below the word's size).
template <bool Backward>
bool EndsCharacter(std::string_view word, size_t n) {
  return BeginsCharacter(Backward ? word[word.size() - n] : word[n]);
}

/// Words of a vocabulary by their bytes in one direction: an open-addressing table, at most half full.
template <bool Backward>
class WordTable {
 public:
  /// Holds the words that are `wanted`, by number. After a stop the table is of no use.
  WordTable(const Vocabulary& words, const std::vector<bool>& wanted, const Yielder& yielder)
      : words_(words), slots_(std::bit_ceil(size_t{words.Size()} * 2 + 2)) {
    for (const WordNumber w : words.All()) {
      if (yielder.Stopped()) break;
      if (wanted[ValueOf(w)]) Insert(w);
    }
  }

  /// The longest word of the table that `word` begins with (ends with, where Backward) and that is shorter.
  WordNumber LongestBeginning(WordNumber word) const {
    const std::string_view text = words_.Text(word);
    WordNumber longest = kNoWord;
    uint64_t hash = 0;
    for (size_t n = 1; n < text.size(); ++n) {
      hash = Extend(hash, ByteAt<Backward>(text, n - 1));
      if (!EndsCharacter<Backward>(text, n)) continue;
      const std::string_view beginning = Backward ? text.substr(text.size() - n) : text.substr(0, n);
      for (size_t at = Slot(hash); slots_[at] != kNoWord; at = Next(at))
        if (words_.Text(slots_[at]) == beginning) longest = slots_[at];
    }
    return longest;
  }

 private:
  size_t Slot(uint64_t hash) const { return (hash ^ hash >> 32) & (slots_.Size() - 1); }
  size_t Next(size_t at) const { return (at + 1) & (slots_.Size() - 1); }

  void Insert(WordNumber word) {
    const std::string_view text = words_.Text(word);
    uint64_t hash = 0;
    for (size_t k = 0; k < text.size(); ++k) hash = Extend(hash, ByteAt<Backward>(text, k));
    size_t at = Slot(hash);
    while (slots_[at] != kNoWord) at = Next(at);
    slots_[at] = word;
  }

  const Vocabulary& words_;
  ZeroedArray<WordNumber> slots_;
};

/// For each word the longest shorter one among those that are `wanted`.
template <bool Backward>
std::vector<WordNumber> LongestBeginnings(const Vocabulary& words, const std::vector<bool>& wanted,
                                          const Yielder& yielder) {
  const WordTable<Backward> table(words, wanted, yielder);
  std::vector<WordNumber> longest(words.Size() + 1, kNoWord);
  for (const WordNumber w : words.All()) {
    if (yielder.Stopped()) break;
    longest[ValueOf(w)] = table.LongestBeginning(w);
  }
  return longest;
}

/// For each word the end of its chain of shorter ones.
std::vector<WordNumber> Families(const Vocabulary& words, const std::vector<WordNumber>& shorter,
                                 const Yielder& yielder) {
  std::vector<WordNumber> family(shorter.size(), kNoWord);
  for (const WordNumber w : words.All()) {
    if (yielder.Stopped()) break;
    WordNumber last = w;
    while (shorter[ValueOf(last)] != kNoWord) last = shorter[ValueOf(last)];
    family[ValueOf(w)] = last;
  }
  return family;
}

}  // namespace

WordAffixes::WordAffixes(const Vocabulary& words, const std::vector<bool>& isSuffix,
                         const std::vector<bool>& isPrefix, Yielder& yielder) {
  constexpr uint32_t kTooFewForThreads = 2000;
  RunTasks(2, words.Size() < kTooFewForThreads, yielder, [&](size_t task, size_t) {
    if (task == 0) {
      suffix_ = LongestBeginnings<true>(words, isSuffix, yielder);
      suffixFamily_ = Families(words, suffix_, yielder);
    } else {
      prefix_ = LongestBeginnings<false>(words, isPrefix, yielder);
      prefixFamily_ = Families(words, prefix_, yielder);
    }
  });
}

}  // namespace korv
