#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/run_lists.h"
#include "engine/run_options.h"
#include "engine/word_rules.h"

namespace korv {

/// The distinct words of a run, numbered from 1 in the order of their first appearance.
class Vocabulary;

/// The text of a run as counting needs it: one number per word, 0 where no phrase goes on.
///
/// The scanner hands over every word as it was cut (TakeWord) and every place where phrases end
/// (ResetPhrases); what a phrase of k words is follows: k numbers in a row with no 0 between them, at
/// most kMostPhraseCharacters characters long. Costs 4 bytes per word of text and one look-up per word;
/// the rules that look at a word's letters are applied once per distinct word.
///
///   WordStream stream(rules, options, lists);
///   stream.BeginSource("a.txt");
///   stream.TakeWord("The"); stream.TakeWord("cat"); stream.ResetPhrases();
class WordStream {
 public:
  /// Keeps copies of rules and options; `lists` must outlive the stream.
  WordStream(const WordRules& rules, const RunOptions& options, const RunLists& lists);
  ~WordStream();
  WordStream(WordStream&&) noexcept;
  WordStream& operator=(WordStream&&) noexcept;

  /// Starts a file (or the clipboard: any path): empties the phrase buffers. Phrases counted from here
  /// on belong to that file.
  void BeginSource(const std::filesystem::path& path);

  /// One word as cut from the text, UTF-8. Drops it under the short, long, letterless and repetition
  /// rules, folds its case unless case is significant, drops it when it is to be removed as a word to
  /// ignore, and hands the rest to GetWords2. A dropped word leaves no gap.
  void TakeWord(std::string_view word);

  /// One word for the phrase buffers, dropped under the 7-bit rule.
  void GetWords2(std::string_view word);

  /// No phrase goes on here: empties the phrase buffers.
  void ResetPhrases();

  uint64_t WordsTaken() const;    ///< Words that went into phrases.
  uint64_t WordsDropped() const;  ///< Words that the rules or the remove mode dropped.

  // What counting reads.
  const RunOptions& Options() const;
  const RunLists& Lists() const;
  const Vocabulary& Words() const;
  std::span<const uint32_t> Numbers() const;

  struct Source {
    std::filesystem::path path;
    size_t begin;  ///< Index of its first number.
  };
  std::span<const Source> Sources() const;

 private:
  friend class PhraseTable;
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace korv
