#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "sources/scan/line_scanner.h"

namespace korv {

/// A sink that remembers what it was handed: words, and "|" where no phrase goes on (once, however many
/// reasons there were in a row).
class RecordedWords final : public WordSink {
 public:
  void TakeWord(std::string_view word) override { found_.emplace_back(word); }
  void ResetPhrases() override {
    if (found_.empty() || found_.back() != "|") found_.emplace_back("|");
  }

  const std::vector<std::string>& Found() const { return found_; }
  void Clear() { found_.clear(); }
  /// Everything in one line: "the cat | sat".
  std::string Line() const {
    std::string line;
    for (const std::string& item : found_) {
      if (!line.empty()) line += ' ';
      line += item;
    }
    return line;
  }

 private:
  std::vector<std::string> found_;
};

/// Rules that admit nothing but letters and end phrases nowhere.
inline WordRules LettersOnly() {
  WordRules rules;
  rules.AllowHyphens = false;
  rules.TerminateAtPeriod = false;
  rules.TerminateAtDoubleQuote = false;
  rules.TerminateAtTab = false;
  return rules;
}

/// The same, but with `extra` in words.
inline WordRules WithExtra(std::string_view extra) {
  WordRules rules = LettersOnly();
  rules.AllowedExtraChars = extra;
  return rules;
}

inline CommentMarkers MarkersOf(std::string_view extension) {
  CommentMarkers markers;
  SetMarkupLanguageFromExtension(markers, extension);
  return markers;
}

/// What the scanner finds in `text`, whose lines end at LF.
inline std::string Scanned(std::string_view text, const WordRules& rules, std::string_view extension) {
  RecordedWords words;
  LineScanner<WordSink> scanner(rules, MarkersOf(extension), words);
  scanner.BeginSource();
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    scanner.ScanLine(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return words.Line();
}

}  // namespace korv
