#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/string_table.h"
#include "engine/corpus/corpus.h"
#include "engine/counting/run_options.h"
#include "engine/counting/word_filters.h"
#include "engine/text/word_counts.h"
#include "engine/text/word_rules.h"

namespace korv {

/// The text of a run as counting needs it: one number per word, kNoWord where no phrase goes on.
///
/// The scanner hands over every word as it was cut (TakeWord) and every place where phrases end
/// (ResetPhrases). The phrase buffers of all lengths follow from that: a phrase of k words is k numbers in
/// a row without kNoWord between them. Costs 4 bytes per word of text and one look-up per word; the rules
/// that look at a word's letters are applied once per distinct word.
///
///   CorpusBuilder stream(rules, options, lists);
///   stream.BeginSource("a.txt");
///   stream.TakeWord("The"); stream.TakeWord("cat"); stream.ResetPhrases();
class CorpusBuilder {
 public:
  /// Keeps copies of rules and options; `lists` must outlive the stream and its counting.
  CorpusBuilder(const WordRules& rules, const RunOptions& options, const WordFilters& lists);

  /// Starts a file (or the clipboard, with an empty path): empties the phrase buffers. Phrases from here
  /// on belong to that file.
  void BeginSource(const std::filesystem::path& path);

  /// A line, or a piece of one, is about to be cut: its place in the text and its number. `resumable`: see
  /// LineIndex. Does nothing unless places are kept.
  void BeginLine(uint64_t offset, uint32_t line, bool startsLine, bool resumable) {
    if (corpus_.Options.KeepPlaces)
      corpus_.Lines.AtLine({offset, startsLine, Place{static_cast<uint32_t>(corpus_.Tokens.size())}, line},
                           resumable);
  }
  /// How the text that was begun last was read.
  void DescribeSource(const SourceOrigin& origin) { corpus_.Sources.back().Origin = origin; }

  /// One word as cut from the text, UTF-8. Drops it under the short, long, letterless and repetition
  /// rules, folds its case unless case is significant, drops it when it is to be removed as a word to
  /// ignore or under the 7-bit rule, and feeds the rest to the phrase buffers. A dropped word leaves no
  /// gap: phrases close over it.
  void TakeWord(std::string_view word);

  /// One word for the phrase buffers as it stands; dropped under the 7-bit rule.
  void GetWords2(std::string_view word);

  /// No phrase goes on here: empties the phrase buffers.
  void ResetPhrases() {
    if (corpus_.Tokens.back() != kNoWord) corpus_.Tokens.push_back(kNoWord);
  }

  const WordCounts& Counts() const { return counts_; }

  /// The text so far, without trailing phrase ends.
  const korv::Corpus& Corpus() const { return corpus_; }
  /// Hands the text over as it is when all of it was read. The stream is used up. Throws std::length_error
  /// for more words than places can number.
  korv::Corpus TakeCorpus() &&;

 private:
  /// What becomes of a word as cut: its number, or a class from here on. The first excludes every phrase
  /// that holds the word, which is what a phrase end does; the others drop it for a reason.
  static constexpr WordNumber kEndsPhrase{0xFFFFFFF0};
  static constexpr WordNumber Dropped(DropReason reason) {
    return kEndsPhrase + 1 + static_cast<uint32_t>(reason);
  }

  WordNumber ClassifyWord(std::string_view word);
  WordNumber Admit(std::string_view word);
  void Feed(WordNumber wordClass);

  korv::Corpus corpus_;
  StringTable asCut_;                ///< The words as cut ...
  GrowingArray<WordNumber> classes_;  ///< ... and what becomes of each.
  WordCounts counts_;
};

}  // namespace korv
