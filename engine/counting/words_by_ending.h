#pragma once

#include <vector>

#include "base/yielder.h"
#include "base/zeroed_array.h"
#include "engine/counting/word_affixes.h"

namespace korv {

/// The words of a vocabulary that end with a given one: the forest in which WordAffixes::Suffix() is the
/// parent. 8 bytes a word.
class WordsByEnding {
 public:
  /// `affixes` must outlive the object.
  explicit WordsByEnding(const WordAffixes& affixes) : affixes_(affixes) {}

  /// Linear in the words. False when stopped; the object is of no use then.
  bool Build(const Vocabulary& words, const Yielder& yielder);

  /// Calls `use` with each word, but for `ending` itself, that ends with `ending` and has it in its chain of
  /// suffixes.
  template <typename Use>
  void Visit(WordNumber ending, const Use& use) const {
    WordNumber word = firstChild_[ValueOf(ending)];
    while (word != kNoWord && word != ending) {
      use(word);
      if (const WordNumber child = firstChild_[ValueOf(word)]; child != kNoWord) {
        word = child;
        continue;
      }
      while (word != ending && nextSibling_[ValueOf(word)] == kNoWord) word = affixes_.Suffix(word);
      if (word != ending) word = nextSibling_[ValueOf(word)];
    }
  }

 private:
  const WordAffixes& affixes_;
  ZeroedArray<WordNumber> firstChild_;
  ZeroedArray<WordNumber> nextSibling_;
};

}  // namespace korv
