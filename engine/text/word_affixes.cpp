#include "engine/text/word_affixes.h"

#include <algorithm>
#include <bit>
#include <string_view>

#include "base/workers.h"

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

template <bool Backward>
class Beginnings {
 public:
  Beginnings(const Vocabulary& words, const std::vector<bool>& wanted)
      : words_(words), slots_(std::bit_ceil(size_t{words.Size()} * 2 + 2), kNoWord) {
    for (WordNumber w = 1; w <= words.Size(); ++w) {
      if (!wanted[w]) continue;
      const std::string_view text = words.Text(w);
      uint64_t hash = 0;
      for (size_t k = 0; k < text.size(); ++k) hash = Extend(hash, ByteAt<Backward>(text, k));
      size_t at = Slot(hash);
      while (slots_[at] != kNoWord) at = (at + 1) & (slots_.size() - 1);
      slots_[at] = w;
    }
  }

  WordNumber LongestOf(WordNumber word) const {
    const std::string_view text = words_.Text(word);
    WordNumber longest = kNoWord;
    uint64_t hash = 0;
    for (size_t n = 1; n < text.size(); ++n) {
      hash = Extend(hash, ByteAt<Backward>(text, n - 1));
      if (!EndsCharacter<Backward>(text, n)) continue;
      const std::string_view beginning = Backward ? text.substr(text.size() - n) : text.substr(0, n);
      for (size_t at = Slot(hash); slots_[at] != kNoWord; at = (at + 1) & (slots_.size() - 1))
        if (words_.Text(slots_[at]) == beginning) longest = slots_[at];
    }
    return longest;
  }

 private:
  size_t Slot(uint64_t hash) const { return (hash ^ hash >> 32) & (slots_.size() - 1); }

  const Vocabulary& words_;
  std::vector<WordNumber> slots_;
};

std::vector<WordNumber> Families(const std::vector<WordNumber>& shorter) {
  std::vector<WordNumber> family(shorter.size());
  for (WordNumber w = 1; w < shorter.size(); ++w) {
    WordNumber last = w;
    while (shorter[last] != kNoWord) last = shorter[last];
    family[w] = last;
  }
  return family;
}

}  // namespace

WordAffixes::WordAffixes(const Vocabulary& words, const std::vector<bool>& isSuffix,
                         const std::vector<bool>& isPrefix, Yielder& yielder)
    : suffix_(words.Size() + 1, kNoWord), prefix_(words.Size() + 1, kNoWord) {
  const auto fill = [&](const auto& beginnings, std::vector<WordNumber>& longest) {
    for (WordNumber w = 1; w <= words.Size() && !yielder.Stopped(); ++w) longest[w] = beginnings.LongestOf(w);
  };
  RunTasks(2, words.Size() < 2000, yielder, [&](size_t task, size_t) {
    if (task == 0) {
      fill(Beginnings<true>(words, isSuffix), suffix_);
      suffixFamily_ = Families(suffix_);
    } else {
      fill(Beginnings<false>(words, isPrefix), prefix_);
      prefixFamily_ = Families(prefix_);
    }
  });
}

}  // namespace korv
