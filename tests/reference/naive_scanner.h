#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/text/word_rules.h"

namespace korv::reference {

/// The scanner as its rules read, one character at a time over code points. Quadratic and worse.
class Scanner {
 public:
  /// `language` is "C", "XML", "HTML", "PHP" or anything else for none.
  Scanner(const WordRules& rules, std::string_view language);

  /// One line, UTF-8, without its end.
  void ScanLine(std::string_view line);

  /// What was found so far, in order: the words, and kBreak where no phrase goes on (once, however many
  /// reasons there are in a row).
  const std::vector<std::string>& Found() const { return found_; }
  static constexpr std::string_view kBreak = "|";

  /// Where each of them begins and ends in its line with all replacements made, in code points; 0 for a
  /// break.
  const std::vector<std::pair<size_t, size_t>>& Spans() const { return spans_; }

  // The steps, for tests of their own.
  static std::u32string ReplaceDoubleHyphens(std::u32string line);
  static std::u32string ReplaceNamedEntities(std::u32string line);
  static size_t EntityLength(std::u32string_view text);
  static bool IsNegativeContractionStem(std::u32string_view word);

 private:
  bool BeginsRun(std::u32string_view line, size_t at) const;
  bool IsPunctuationInWords(char32_t c) const;
  bool IsDelimiter(std::u32string_view line, size_t at, size_t& length) const;
  bool IsMarker(std::u32string_view line, size_t at, size_t& pair) const;
  bool IsAnyMarker(std::u32string_view line, size_t at) const;
  size_t SkipRegion(std::u32string_view line, size_t at);
  size_t RunEnd(std::u32string_view line, size_t at) const;
  bool TakesApostrophe(std::u32string_view line, size_t begin, size_t end) const;
  void Break();

  WordRules rules_;
  std::u32string extra_;
  std::vector<std::pair<std::u32string, std::u32string>> pairs_;
  bool isMarkup_;
  int inRegion_ = -1;
  std::vector<bool> belongs_;  ///< To words: each character of the line that is being scanned.
  std::vector<std::string> found_;
  std::vector<std::pair<size_t, size_t>> spans_;
};

}  // namespace korv::reference
