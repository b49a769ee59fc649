#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"
#include "engine/text/word_rules.h"
#include "tests/reference/naive_lists.h"

namespace korv::reference {

/// What a text offers of phrases and what keeps each from being counted: every phrase is spelled out and
/// looked at alone.
class Offers {
 public:
  Offers(const WordRules& rules, const RunOptions& options, WordFilterSpec entries)
      : rules_(rules), options_(options), lists_(std::move(entries)) {}

  /// A word as cut from the text.
  void TakeWord(std::string_view word);
  void ResetPhrases();

  int64_t Offered = 0;
  int64_t TooLong = 0;
  int64_t AllIgnored = 0;
  int64_t NotCountOnly = 0;
  int64_t WordsInRows = 0;
  int LongestRow = 0;

 private:
  void Classify(const std::vector<std::string>& words);

  WordRules rules_;
  RunOptions options_;
  Lists lists_;
  std::vector<std::string> row_;  ///< Words since the last place where phrases end.
};

}  // namespace korv::reference
