#include "engine/counting/word_affixes.h"

#include <algorithm>
#include <bit>
#include <optional>
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
  WordTable(const Vocabulary& words, const ZeroedArray<uint8_t>& wanted, const Yielder& yielder)
      : words_(words), slots_(std::bit_ceil(size_t{words.Size()} * 2 + 2)) {
    for (const WordNumber w : words.All()) {
      if (yielder.Stopped()) break;
      if (wanted[ValueOf(w)] != 0) Insert(w);
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

}  // namespace

WordAffixes::WordAffixes(const Vocabulary& words, const ZeroedArray<uint8_t>& isSuffix,
                         const ZeroedArray<uint8_t>& isPrefix, Yielder& yielder)
    : affixes_(size_t{words.Size()} + 1) {
  constexpr uint32_t kTooFewForThreads = 2000;
  std::optional<WordTable<true>> suffixes;
  std::optional<WordTable<false>> prefixes;
  const bool inTables = RunTasks(2, words.Size() < kTooFewForThreads, yielder, [&](size_t task, size_t) {
    if (task == 0)
      suffixes.emplace(words, isSuffix, yielder);
    else
      prefixes.emplace(words, isPrefix, yielder);
  });
  if (!inTables || !RunParts(affixes_.Size(), yielder, [&](size_t begin, size_t end) {
        for (size_t w = std::max<size_t>(begin, 1); w < end; ++w) {
          const WordNumber word{static_cast<uint32_t>(w)};
          affixes_[w].Suffix = suffixes->LongestBeginning(word);
          affixes_[w].Prefix = prefixes->LongestBeginning(word);
        }
      }))
    return;
  RunParts(affixes_.Size(), yielder, [this](size_t begin, size_t end) {
    for (size_t w = std::max<size_t>(begin, 1); w < end; ++w) {
      const WordNumber word{static_cast<uint32_t>(w)};
      affixes_[w].SuffixFamily = EndOfChain(word, &Affixes::Suffix);
      affixes_[w].PrefixFamily = EndOfChain(word, &Affixes::Prefix);
    }
  });
}

WordNumber WordAffixes::EndOfChain(WordNumber word, WordNumber Affixes::*shorter) const {
  while (Of(word).*shorter != kNoWord) word = Of(word).*shorter;
  return word;
}

}  // namespace korv
