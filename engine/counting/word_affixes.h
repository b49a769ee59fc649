#pragma once

#include <vector>

#include "base/yielder.h"
#include "engine/corpus/vocabulary.h"

namespace korv {

/// Which words of a vocabulary end or begin with certain other words of it ("the" ends with "he", "cats"
/// begins with "cat").
///
/// Each word points to the longest shorter one, so that following the pointers visits all of them. Words
/// that meet at the end of their pointers are of one family. Expected cost: the characters of the words.
class WordAffixes {
 public:
  /// `isSuffix` and `isPrefix` tell, per word number, which words may be found as the one and the other. On
  /// all threads. After a stop the object is of no use.
  WordAffixes(const Vocabulary& words, const std::vector<bool>& isSuffix, const std::vector<bool>& isPrefix,
              Yielder& yielder);

  /// The longest proper suffix of `word` that is such a word, kNoWord when there is none.
  WordNumber Suffix(WordNumber word) const { return suffix_[ValueOf(word)]; }
  WordNumber Prefix(WordNumber word) const { return prefix_[ValueOf(word)]; }
  /// Where the suffixes of `word` end: the word without a suffix of its own.
  WordNumber SuffixFamily(WordNumber word) const { return suffixFamily_[ValueOf(word)]; }
  WordNumber PrefixFamily(WordNumber word) const { return prefixFamily_[ValueOf(word)]; }

 private:
  std::vector<WordNumber> suffix_;
  std::vector<WordNumber> prefix_;
  std::vector<WordNumber> suffixFamily_;
  std::vector<WordNumber> prefixFamily_;
};

}  // namespace korv
