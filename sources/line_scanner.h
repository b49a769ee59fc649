#pragma once

#include <memory>
#include <string_view>

#include "engine/word_rules.h"
#include "sources/comment_markers.h"

namespace korv {

/// What the scanner finds, in the order of the text.
class WordSink {
 public:
  virtual ~WordSink() = default;
  virtual void TakeWord(std::string_view word) = 0;
  virtual void ResetPhrases() = 0;
};

/// Cuts lines into words: cleans a line of double hyphens and named entities, skips regions (kept track
/// of across lines), and hands over the words with the places where phrases end.
///
/// A template over its sink so that the hot loop has no virtual call: see line_scanner_impl.h for the
/// two instantiations (WordStream for counting, WordSink for word lists and tests).
template <typename Sink>
class LineScanner {
 public:
  LineScanner(const WordRules& rules, const CommentMarkers& markers, Sink& sink);
  ~LineScanner();

  /// Starts a text: outside every region.
  void BeginSource();
  /// One decoded line without its end. Calls ResetPhrases before it when TerminateAtEndOfLine is set.
  void ScanLine(std::string_view line);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace korv
