#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korv {

/// The most characters of a word. A longer run of word characters is cut here.
inline constexpr size_t kMostWordCharacters = 65000;

/// Whether `ch`, one character in UTF-8, can stand in a word. ASCII and Latin-1 letters can (215 and 247 are
/// no letters), letters and marks from code 256 on, digits where `digitsAreWordChars`, and the characters of
/// `extra`. An empty `ch` cannot. The character alone is examined; a mark belongs to a word only behind a
/// letter.
bool IsWordChar(std::string_view ch, bool digitsAreWordChars, std::string_view extra);
bool IsWordCharCode(char32_t ch, bool digitsAreWordChars, std::string_view extra);

/// The kind of a character by itself. A mark belongs to the letter before it, and never begins a word. A
/// joiner (U+200C, U+200D) belongs to a word between two letters, of which the first may have marks. Other
/// characters belong to words only where the rules allow them as extra characters.
enum class CharKind : uint8_t { Other, Letter, Mark, Joiner };
CharKind KindOf(char32_t ch);

/// KindOf() all characters below kShortCodes, by code. They have one byte or two.
inline constexpr char32_t kShortCodes = 0x800;
using ShortKinds = std::array<CharKind, kShortCodes>;
const ShortKinds& KindsOfShortCodes();

/// Reads a text character by character, from a place outside words on, and tells which characters belong to
/// words.
///
///   WordCharReader reader("-'");
///   for (size_t at = 0; at < text.size();)
///     if (reader.Next(text, at)) ...
class WordCharReader {
 public:
  /// `extra` must outlive the reader. Digits are word characters where `extra` holds them. `behindLetter`:
  /// the text begins behind a letter, or behind the marks of one.
  explicit WordCharReader(std::string_view extra, bool behindLetter = false)
      : extra_(extra), behindLetter_(behindLetter) {}
  /// Whether the character at byte `at` belongs to a word. Advances `at` past it.
  bool Next(std::string_view text, size_t& at);

 private:
  std::string_view extra_;
  bool behindLetter_;
};

/// The character or characters right behind a word.
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
