#pragma once

#include <cstdint>

#include "base/yielder.h"
#include "base/zeroed_array.h"
#include "engine/corpus/vocabulary.h"

namespace korv {

/// Which words of a vocabulary end or begin with certain other words of it: "the" ends with "he", "cats"
/// begins with "cat".
///
/// Suffix(w) is the longest shorter one, so that Suffix(w), Suffix(Suffix(w)) and so on are all of them. The
/// last of this chain is the family of w:
///
///   SuffixFamily(w) == w where Suffix(w) == kNoWord, else SuffixFamily(Suffix(w)).
///
/// The same holds of prefixes. Expected time is linear in the characters of the words; memory is 16 bytes a
/// word, side by side, for those of a word are wanted together.
class WordAffixes {
 public:
  /// `isSuffix[w]` and `isPrefix[w]`: whether word number w is to be found as the one and as the other. On
  /// all threads. After a stop the object is of no use.
  WordAffixes(const Vocabulary& words, const ZeroedArray<uint8_t>& isSuffix,
              const ZeroedArray<uint8_t>& isPrefix, Yielder& yielder);

  struct Affixes {
    WordNumber Suffix;
    WordNumber Prefix;
    WordNumber SuffixFamily;
    WordNumber PrefixFamily;
  };
  const Affixes& Of(WordNumber word) const { return affixes_[ValueOf(word)]; }

  /// The longest word to be found that is a proper suffix of `word`, or kNoWord.
  WordNumber Suffix(WordNumber word) const { return Of(word).Suffix; }
  WordNumber Prefix(WordNumber word) const { return Of(word).Prefix; }

 private:
  WordNumber EndOfChain(WordNumber word, WordNumber Affixes::*shorter) const;

  ZeroedArray<Affixes> affixes_;
};

}  // namespace korv
