#pragma once

#include <vector>

#include "base/yielder.h"
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
/// word.
class WordAffixes {
 public:
  /// `isSuffix[w]` and `isPrefix[w]`: whether word number w is to be found as the one and as the other. Uses
  /// two threads. After a stop the object is of no use.
  WordAffixes(const Vocabulary& words, const std::vector<bool>& isSuffix, const std::vector<bool>& isPrefix,
              Yielder& yielder);

  /// The longest word to be found that is a proper suffix of `word`, or kNoWord.
  WordNumber Suffix(WordNumber word) const { return suffix_[ValueOf(word)]; }
  WordNumber Prefix(WordNumber word) const { return prefix_[ValueOf(word)]; }
  WordNumber SuffixFamily(WordNumber word) const { return suffixFamily_[ValueOf(word)]; }
  WordNumber PrefixFamily(WordNumber word) const { return prefixFamily_[ValueOf(word)]; }

 private:
  std::vector<WordNumber> suffix_;
  std::vector<WordNumber> prefix_;
  std::vector<WordNumber> suffixFamily_;
  std::vector<WordNumber> prefixFamily_;
};

}  // namespace korv
