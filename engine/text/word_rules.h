#pragma once

#include <string>

namespace korv {

/// How words are found in scripts that are written without blanks.
enum class Segmentation {
  Off,         ///< All letters in a row are one word.
  Auto,        ///< By a dictionary, but on lines that are cut already.
  Words,       ///< By a dictionary, on every line.
  Characters,  ///< Each ideograph and each sign of the kana is a word.
};

/// The rules that say what a word is and where phrases end. The defaults are those of "Restore defaults".
struct WordRules {
  // Characters that words may hold beside letters.
  bool AllowHyphens = true;
  bool AllowApostrophes = false;
  bool AllowUnderscores = false;
  bool AllowColons = false;
  bool AllowBackslashes = false;
  bool AllowForwardslashes = false;
  bool AllowPeriods = false;
  bool AllowAtSigns = false;
  bool AllowNumerals = false;
  bool AllowParentheses = false;
  bool AllowAmpersands = false;
  bool AllowCommas = false;

  bool CaseSignificant = false;   ///< Off: words are lower-cased.
  bool Only7bitASCII = false;     ///< Words with a character of code 128 or above are dropped.
  bool IgnoreShortWords = true;   ///< Words of fewer than ShortWordSize characters are dropped.
  int ShortWordSize = 3;          ///< 2..20
  int LongWordSize = 50;          ///< 20..80 in tens; words of more characters are dropped.
  bool IgnoreNoLetter = true;     ///< Words without a letter are dropped.
  bool IgnoreRepetitions = true;  ///< Words with one letter four times in a row, case aside, are dropped.

  bool FoldCaseFully = false;  ///< Case is folded by Unicode's full rules: "Straße" is "strasse".
  bool UnicodeWords = false;  ///< Words are cut by Unicode's rules (UAX #29) instead of the characters above.
  Segmentation Segment = Segmentation::Off;

  // Characters and places that end phrases.
  bool TerminateAtEndOfLine = false;
  bool TerminateAtPeriod = true;
  bool TerminateAtComma = false;
  bool TerminateAtDoubleQuote = true;
  bool TerminateAtTab = true;
  bool TerminateAtSentence = false;  ///< Ends of sentences (UAX #29), brackets and quotes of all scripts.
  bool TerminateAtBlock = false;     ///< Ends of paragraphs, headings, list items, cells of tables.

  /// The extra characters, ASCII, in no particular order. The two functions below set them.
  std::string AllowedExtraChars;

  bool operator==(const WordRules&) const = default;
};

/// Sets AllowedExtraChars to those of "-'_:\/.@" and the digits that the first nine options allow.
void SetAllowedExtraChars(WordRules& rules);
/// Appends "()", "&" and "," where they are allowed. Call it after SetAllowedExtraChars, before each run.
void SetAllowedExtraChars2(WordRules& rules);

}  // namespace korv
