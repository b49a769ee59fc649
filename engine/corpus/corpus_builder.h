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
#include "engine/corpus/corpus_piece.h"
#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"
#include "engine/text/word_counts.h"
#include "engine/text/word_rules.h"

namespace korv {

/// Makes the corpus of a run from the words of its texts.
///
/// The scanner calls TakeWord() for every word as it was cut, and ResetPhrases() where phrases end. Both
/// append at most one token. Phrase buffers are not needed: a phrase of n words is n tokens in a row without
/// kNoWord. A word costs one look-up; the rules that look at the letters of a word are applied once per
/// distinct word.
///
///   CorpusBuilder stream(rules, options, lists);
///   stream.BeginSource("a.txt");
///   stream.TakeWord("The"); stream.TakeWord("cat"); stream.ResetPhrases();
class CorpusBuilder {
 public:
  /// Keeps copies of the rules and options. `lists` must outlive the builder and the counting of its corpus.
  CorpusBuilder(const WordRules& rules, const RunOptions& options, const WordFilters& lists);

  /// Begins a file, or another text with an empty path. Ends phrases. What follows belongs to that text.
  void BeginSource(const std::filesystem::path& path);

  /// What follows belongs to the second side of a comparison. No source may be open: call it before the first
  /// BeginSource() of that side.
  void BeginSecondSide() { corpus_.SecondSide = corpus_.Sources.size(); }

  /// Tells that a line, or a piece of one, is cut next: its offset in bytes and its number from 1.
  /// `resumable`: see LineIndex::AtLine(). Has no effect unless places are kept.
  void BeginLine(uint64_t offset, uint32_t line, bool startsLine, bool resumable) {
    if (corpus_.Options.KeepPlaces)
      corpus_.Lines.AtLine({offset, startsLine, Place{static_cast<uint32_t>(corpus_.Tokens.size())}, line},
                           resumable);
  }
  /// Tells how the text that was begun last has been read.
  void DescribeSource(const SourceOrigin& origin) { corpus_.Sources.back().Origin = origin; }

  /// Takes a word as it was cut from the text, UTF-8. The word is dropped under the rules by form (short,
  /// long, letterless, repetition), folded unless case is significant, dropped as a word to ignore where
  /// these are removed, or under the 7-bit rule. What is left gets a token. A dropped word leaves no gap:
  /// phrases close over it.
  void TakeWord(std::string_view word);

  /// Takes a word as it stands in phrases. Only the 7-bit rule drops it.
  void GetWords2(std::string_view word);

  /// Ends all phrases: none goes on here.
  void ResetPhrases() {
    if (corpus_.Tokens.back() != kNoWord) corpus_.Tokens.push_back(kNoWord);
  }

  /// Begins a piece of a text that another builder takes. What this builder has is dropped, but for its
  /// words.
  void BeginPiece();
  /// Ends that piece. What `piece` had is dropped; its memory serves the next one.
  void TakePiece(CorpusPiece& piece);
  /// Takes the next piece of the text, as if its words had been taken one by one: the corpus becomes the
  /// same, but for a line that the index keeps at the begin of the piece. `numbers` are those of the builder
  /// that cut it, empty at first.
  void Append(const CorpusPiece& piece, const PieceBegin& begin, PartNumbers& numbers);

  const WordCounts& Counts() const { return counts_; }

  /// The corpus so far, without its trailing phrase ends.
  const korv::Corpus& Corpus() const { return corpus_; }
  /// The corpus when all of the text has been read, or as much as there was until a stop. Uses the builder
  /// up. Throws std::length_error for more tokens than a Place can number.
  korv::Corpus TakeCorpus() &&;

 private:
  /// The class of a word as cut is its number, or one of these. A word of class kEndsPhrase excludes every
  /// phrase that holds it, so that it ends phrases. Words of the classes behind are dropped, each for its
  /// reason.
  static constexpr WordNumber kEndsPhrase{0xFFFFFFF0};
  static constexpr WordNumber Dropped(DropReason reason) {
    return kEndsPhrase + 1 + static_cast<uint32_t>(reason);
  }

  WordNumber ClassifyWord(std::string_view word);
  WordNumber Admit(std::string_view word);
  void Feed(WordNumber wordClass);

  korv::Corpus corpus_;
  StringTable asCut_;                 ///< The distinct words as they were cut.
  GrowingArray<WordNumber> classes_;  ///< By number in asCut_.
  WordCounts counts_;
  uint32_t wordsGiven_ = 0;  ///< Those of corpus_ that pieces have told already.
};

}  // namespace korv
