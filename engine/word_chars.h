#pragma once

#include <bitset>
#include <cstddef>
#include <string_view>

namespace korv {

/// A word is never longer than this many characters; a longer run of word characters is cut here.
inline constexpr size_t kMostWordCharacters = 65000;

/// Whether `ch` (one character, UTF-8; empty is none) may stand in a word: ASCII and Latin-1 letters
/// (215 and 247 are none), letters and marks from code 256 on, digits where `digitsAreWordChars`, and
/// whatever stands in `extra`.
bool IsWordChar(std::string_view ch, bool digitsAreWordChars, std::string_view extra);
bool IsWordCharCode(char32_t ch, bool digitsAreWordChars, std::string_view extra);

/// IsWordCharCode(ch, false, {}) for the characters below kShortCodes, which are two bytes or one, by code.
inline constexpr char32_t kShortCodes = 0x800;
const std::bitset<kShortCodes>& ShortWordCharacters();

/// What stands right after a word.
struct WordEnd {
  bool EndedBySemicolon = false;
  bool EndedByPeriod = false;
  bool EndedByDoubleQuote = false;
  bool EndedByTab = false;
  bool EndedByComma = false;
  bool AtClosingTag = false;  ///< "</" follows.
};

/// Steps through `text` (UTF-8) from the character at byte `start` in direction `step` (+1 or -1) to the
/// first character that is no word character, and returns the byte at which that character begins: going
/// forward text.size() when there is none, going backward std::string_view::npos. Gives up after
/// kMostWordCharacters. `end` is set for the character at the stop. Digits are word characters where
/// `extra` holds them.
size_t NumAlpha2(std::string_view text, size_t start, int step, WordEnd& end, std::string_view extra);

}  // namespace korv
