#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/corpus/corpus.h"
#include "engine/text/word_counts.h"

namespace korv {

/// A word of a typed phrase, and what the rules of a run make of it.
struct TypedWord {
  std::string Text;                   ///< As it was cut.
  std::optional<DropReason> Dropped;  ///< The rule that drops it.
  /// A word to ignore, which excludes the phrases that hold it.
  bool Excludes = false;
  /// Phrases end between the word before, dropped or not, and this one.
  bool BehindEnd = false;
  WordNumber Number = kNoWord;  ///< In the run; kNoWord where the run does not have it.
};

/// The words of a typed phrase (UTF-8), cut as the run cuts its text.
std::vector<TypedWord> TypedWordsOf(std::string_view text, const Corpus& corpus);

}  // namespace korv
