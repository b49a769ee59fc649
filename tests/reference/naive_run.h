#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"
#include "engine/text/word_chars.h"
#include "engine/text/word_rules.h"
#include "tests/reference/naive_lists.h"
#include "tests/reference/naive_order.h"
#include "tests/reference/naive_table.h"

namespace korv::reference {

/// Why a word does not count: "short", "long", "letterless", "repetition", "ignored" or "not 7-bit".
using DropCounts = std::map<std::string, int64_t>;

/// The first of the rules by form that drops the word, by its name above; empty when none does.
std::string RulesDrop(std::string_view word, const WordRules& rules);

/// Where the words of `phrase` stand one after the other in `words`, by looking everywhere.
std::vector<size_t> PlacesOf(const std::vector<std::string>& words, const std::vector<std::string>& phrase);

/// One counting run: words in, table out. A stop is a text that ends earlier.
class CountingRun {
 public:
  CountingRun(const WordRules& rules, const RunOptions& options, WordFilterSpec entries);

  void BeginSource(std::string_view path);
  /// A word as cut from the text.
  void TakeWord(std::string_view word);
  /// A word for the phrase buffers; `end` tells what stands after it.
  void GetWords2(std::string_view word, const WordEnd& end = {});
  void ResetPhrases();
  /// The phrase (words joined by "+") without its words to ignore, joined by blanks.
  std::string StripPhrase(std::string_view phrase) const;

  /// After the last word: sorts, marks what is listed, excludes, sorts the other way, builds the chain.
  void Finish(ChainBy by = ChainBy::Count);

  const Table& Phrases() const { return table_; }
  /// The words that went into phrases, in order. Where no phrase goes on, and before the first word, stands
  /// one empty text.
  const std::vector<std::string>& Words() const { return words_; }
  /// By index in Words(): how many words were taken before it.
  const std::vector<int64_t>& TakenBefore() const { return takenBefore_; }
  int64_t WordsTaken() const { return taken_; }
  /// Of each source, in reading order.
  const std::vector<int64_t>& WordsOfSources() const { return wordsOfSources_; }
  const DropCounts& WordsDropped() const { return dropped_; }

 private:
  void NoteWord(std::string_view word);
  void NoteEnd();
  /// The words-to-ignore test of a full-length phrase.
  bool IgnoreRuleAccepts(std::string_view phrase) const;

  WordRules rules_;
  RunOptions options_;
  Lists lists_;
  Table table_;
  std::vector<std::string> buffers_;  ///< Buffer k holds the last k words, joined by "+".
  std::vector<std::string> words_{""};
  std::vector<int64_t> takenBefore_{0};
  int64_t taken_ = 0;
  std::vector<int64_t> wordsOfSources_;
  DropCounts dropped_;  ///< Reasons for which no word was dropped are not in it.
};

}  // namespace korv::reference
