#pragma once

#include <string_view>
#include <vector>

#include "engine/corpus/corpus.h"

namespace korv {

/// A phrase as a user types it, in the words of a run.
struct CutPhrase {
  size_t Length = 0;  ///< Words that are left of it.
  /// Those, as the counted run numbers them. kNoWord stands for a word that the run does not have, for one
  /// that ends phrases, and where a phrase ends between two words: such a phrase is nowhere.
  std::vector<WordNumber> Words;
};

/// Cuts `text` (UTF-8) by the rules of the run: what they drop or fold in a file they drop and fold here.
CutPhrase CutTypedPhrase(std::string_view text, const Corpus& corpus);

}  // namespace korv
