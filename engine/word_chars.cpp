#include "engine/word_chars.h"

#include <string>

#include "engine/unicode.h"

namespace korv {
namespace {

bool IsAsciiLetter(char32_t c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsLatin1Letter(char32_t c) {
  return c >= 0xC0 && c <= 0xFF && c != 0xD7 && c != 0xF7;
}

bool Holds(std::string_view extra, char32_t c) {
  if (c < 0x80) return extra.find(static_cast<char>(c)) != std::string_view::npos;
  std::string bytes;
  AppendCharacter(c, bytes);
  return extra.find(bytes) != std::string_view::npos;
}

/// The byte at which the character before byte `at` begins; npos at the beginning of the text.
size_t StepBack(std::string_view text, size_t at) {
  while (at-- > 0)
    if ((static_cast<unsigned char>(text[at]) & 0xC0) != 0x80) return at;
  return std::string_view::npos;
}

WordEnd DescribeEnd(std::string_view text, size_t at) {
  if (at >= text.size()) return {};
  const char c = text[at];
  return {.EndedBySemicolon = c == ';',
          .EndedByPeriod = c == '.',
          .EndedByDoubleQuote = c == '"',
          .EndedByTab = c == '\t',
          .EndedByComma = c == ',',
          .AtClosingTag = text.substr(at, 2) == "</"};
}

}  // namespace

bool IsWordCharCode(char32_t ch, bool digitsAreWordChars, std::string_view extra) {
  if (IsAsciiLetter(ch) || IsLatin1Letter(ch)) return true;
  if (ch >= 0x100 && IsLetterOrMark(ch)) return true;
  if (digitsAreWordChars && ch >= '0' && ch <= '9') return true;
  return !extra.empty() && Holds(extra, ch);
}

const std::bitset<kShortCodes>& ShortWordCharacters() {
  static const std::bitset<kShortCodes> letters = [] {
    std::bitset<kShortCodes> made;
    for (char32_t c = 0; c < kShortCodes; ++c) made[c] = IsWordCharCode(c, false, {});
    return made;
  }();
  return letters;
}

bool IsWordChar(std::string_view ch, bool digitsAreWordChars, std::string_view extra) {
  if (ch.empty()) return false;
  size_t at = 0;
  return IsWordCharCode(NextCharacter(ch, at), digitsAreWordChars, extra);
}

size_t NumAlpha2(std::string_view text, size_t start, int step, WordEnd& end, std::string_view extra) {
  size_t at = start;
  for (size_t passed = 0; at < text.size() && passed < kMostWordCharacters; ++passed) {
    size_t next = at;
    if (!IsWordCharCode(NextCharacter(text, next), false, extra)) break;
    at = step > 0 ? next : StepBack(text, at);
  }
  end = DescribeEnd(text, at);
  return at;
}

}  // namespace korv
