#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "engine/text/segmenter.h"
#include "engine/text/sentence_breaks.h"
#include "engine/text/word_rules.h"
#include "sources/scan/line_scanner.h"

namespace korv {

/// Stands between a LineScanner and a sink where a text is read as a reader sees it: ends phrases at the ends
/// of sentences and blocks, at brackets and quotes, and cuts words of scripts without blanks, as far as the
/// rules ask for that. The words that it hands over are parts of LineScanner::CutLine() too. With other rules
/// it only hands on.
///
/// Where a sentence may end at a period, but digits come before the next letter, the rest of the line
/// decides; one that ends before such a letter ends the sentence.
///
///   WordCutter cutter(rules, sink);
///   LineScanner<WordCutter> scanner(rules, markers, cutter);
///   cutter.BeginSource(false);
///   scanner.BeginSource();
class WordCutter {
 public:
  /// Whether the rules ask for anything that a LineScanner does not do by itself.
  static bool IsNeeded(const WordRules& rules);

  /// Keeps what it needs of the rules; `inner` must outlive it.
  WordCutter(const WordRules& rules, WordSink& inner);

  /// Starts a text. `linesAreBlocks`: each of its lines is a paragraph; else blank lines part these.
  void BeginSource(bool linesAreBlocks);
  /// Whether what follows depends on what came before. Asked between two lines.
  bool HoldsBack() const { return !sentences_.IsFresh(); }

  // ---- Called by the scanner

  void TakeWord(std::string_view word);
  void ResetPhrases() { inner_->ResetPhrases(); }
  /// The text in which words are found next. All positions are bytes of it.
  void BeginText(std::string_view text, bool startsLine);
  /// A part of it that is no text.
  void Skip(size_t begin, size_t end);
  /// It has been scanned up to `end`, which is before its end where the rest comes again.
  void EndText(size_t end, bool endsLine);

 private:
  void ReadUpTo(size_t end);
  bool EndsPhrase(char32_t character);
  void EndLine();
  void TakePiece(size_t begin, size_t end);
  bool EndsBefore(size_t begin, size_t end);
  bool DoubtEndsSentence(size_t from) const;
  void CutByUnicode(size_t begin, size_t end);
  void CutBlankless(size_t begin, size_t end);
  void CutRun(size_t begin, size_t end);
  void CutCharacters(size_t begin, size_t end);
  void TakeOthers(size_t begin, size_t end);
  bool LineIsCut();

  WordSink* inner_;
  bool atSentences_;
  bool atBlocks_;
  bool atPeriods_;
  bool atCommas_;
  bool unicodeWords_;
  Segmentation segment_;
  bool readsSigns_;  ///< What stands between words matters.

  bool linesAreBlocks_ = false;
  bool isBlank_ = true;  ///< The line so far.
  SentenceBreaks sentences_;
  std::string_view text_;
  size_t read_ = 0;  ///< Up to here sentences_ knows the text.
  enum class Cut { Unknown, No, Yes } lineIsCut_ = Cut::Unknown;
  Segmenter segmenter_;
  std::vector<Segmenter::Piece> pieces_;
};

}  // namespace korv
