#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korv {

/// A word is never longer than this many characters; a longer run of word characters is cut here.
inline constexpr size_t kMostWordCharacters = 65000;

/// Whether `ch` (one character, UTF-8; empty is none) may stand in a word: ASCII and Latin-1 letters
/// (215 and 247 are none), letters and marks from code 256 on, digits where `digitsAreWordChars`, and
/// whatever stands in `extra`. Looks at the character alone: a mark does so only behind a letter.
bool IsWordChar(std::string_view ch, bool digitsAreWordChars, std::string_view extra);
bool IsWordCharCode(char32_t ch, bool digitsAreWordChars, std::string_view extra);

/// What a character is to words, by itself. Marks go on a letter or on marks behind one and never begin a
/// word. Joiners (U+200C, U+200D) keep what they stand between in one word: a letter, perhaps with marks,
/// and a letter. All else is a matter of `extra`.
enum class CharKind : uint8_t { Other, Letter, Mark, Joiner };
CharKind KindOf(char32_t ch);

/// KindOf the characters below kShortCodes, which are two bytes or one, by code.
inline constexpr char32_t kShortCodes = 0x800;
using ShortKinds = std::array<CharKind, kShortCodes>;
const ShortKinds& KindsOfShortCodes();

/// Goes through a text from a place that is no word's inside and says which characters belong to words.
///
///   WordCharReader reader("-'");
///   for (size_t at = 0; at < text.size();)
///     if (reader.Next(text, at)) ...
class WordCharReader {
 public:
  /// `extra` must outlive the reader; digits count where it holds them. `behindLetter`: the text goes on
  /// behind a letter, or behind the marks of one.
  explicit WordCharReader(std::string_view extra, bool behindLetter = false)
      : extra_(extra), behindLetter_(behindLetter) {}
  /// Whether the character at byte `at` belongs to a word where it stands; advances `at` past it.
  bool Next(std::string_view text, size_t& at);

 private:
  std::string_view extra_;
  bool behindLetter_;
};

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
/// first character that belongs to no word where it stands (a mark or joiner that `start` begins with goes
/// by what stands before it), and returns the byte at which that character begins: going
/// forward text.size() when there is none, going backward std::string_view::npos. Gives up after
/// kMostWordCharacters. Looks back over the marks before each step. `end` is set for the character at the
/// stop. Digits are word characters where `extra` holds them.
size_t NumAlpha2(std::string_view text, size_t start, int step, WordEnd& end, std::string_view extra);

}  // namespace korv
