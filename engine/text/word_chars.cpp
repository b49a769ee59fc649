#include "engine/text/word_chars.h"

#include <string>

#include "engine/text/unicode.h"

namespace korv {
namespace {

bool IsAsciiLetter(char32_t c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsLatin1Letter(char32_t c) {
  return c >= 0xC0 && c <= 0xFF && c != 0xD7 && c != 0xF7;
}

bool Holds(std::string_view extra, char32_t c) {
  if (extra.empty()) return false;
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

CharKind KindAt(std::string_view text, size_t at) {
  return at < text.size() ? KindOf(NextCharacter(text, at)) : CharKind::Other;
}

/// Whether a letter, perhaps with marks, stands right before byte `at`.
bool IsBehindLetter(std::string_view text, size_t at) {
  do at = StepBack(text, at);
  while (KindAt(text, at) == CharKind::Mark);
  return KindAt(text, at) == CharKind::Letter;
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
  const CharKind kind = KindOf(ch);
  if (kind == CharKind::Letter || kind == CharKind::Mark) return true;
  if (digitsAreWordChars && ch >= '0' && ch <= '9') return true;
  return Holds(extra, ch);
}

CharKind KindOf(char32_t ch) {
  constexpr char32_t kNonJoiner = 0x200C;
  constexpr char32_t kJoiner = 0x200D;
  if (ch < 0x100) return IsAsciiLetter(ch) || IsLatin1Letter(ch) ? CharKind::Letter : CharKind::Other;
  if (IsUnicodeLetter(ch)) return CharKind::Letter;
  if (ch == kNonJoiner || ch == kJoiner) return CharKind::Joiner;
  return IsUnicodeMark(ch) ? CharKind::Mark : CharKind::Other;
}

const ShortKinds& KindsOfShortCodes() {
  static const ShortKinds kinds = [] {
    ShortKinds made{};
    for (char32_t c = 0; c < kShortCodes; ++c) made[c] = KindOf(c);
    return made;
  }();
  return kinds;
}

bool WordCharReader::Next(std::string_view text, size_t& at) {
  const char32_t c = NextCharacter(text, at);
  const bool behindLetter = behindLetter_;
  const CharKind kind = KindOf(c);
  behindLetter_ = kind == CharKind::Letter || (kind == CharKind::Mark && behindLetter);
  switch (kind) {
    case CharKind::Letter:
      return true;
    case CharKind::Mark:
      return behindLetter;
    case CharKind::Joiner:
      return behindLetter && KindAt(text, at) == CharKind::Letter;
    case CharKind::Other:
      break;
  }
  return Holds(extra_, c);
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
    if (!WordCharReader(extra, IsBehindLetter(text, at)).Next(text, next)) break;
    at = step > 0 ? next : StepBack(text, at);
  }
  end = DescribeEnd(text, at);
  return at;
}

}  // namespace korv
