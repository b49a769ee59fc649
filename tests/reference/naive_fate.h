#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"
#include "tests/reference/naive_run.h"

namespace korv::reference {

/// What became of a phrase of a finished run: the causes that keep it from being listed, in the order in
/// which the rules act, each spelled out by itself.
struct Fate {
  /// "apart", "never in a row", "too few words", "too many words", "too long", "all ignored", "not
  /// count-only", "too rare", "redundant", "listed".
  std::vector<std::string> Causes;
  size_t Occurrences = 0;
  size_t Apart = 0;       ///< How often its words follow each other with phrase ends between them.
  size_t FirstApart = 0;  ///< The first time, an index in Words().
  std::string Within;     ///< The shortest listed phrase that makes it redundant.
  int64_t Rank = 0;
};

/// Of words that all stand in the text. `beginsSource`: for each of run.Words(), and a word behind, whether a
/// text begins there.
Fate FateOf(const CountingRun& run, const std::vector<bool>& beginsSource, const RunOptions& options,
            const WordFilterSpec& entries, const std::vector<std::string>& phrase);

}  // namespace korv::reference
