#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korv {

/// Characters are Unicode code points; text is UTF-8.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// The character at byte `at` (which must be inside `text`); advances `at` past it. An ill-formed sequence
/// gives kReplacementCharacter and advances by its longest well-formed beginning, at least one byte.
inline char32_t NextCharacter(std::string_view text, size_t& at);
/// `character` is a code point that is no surrogate.
void AppendCharacter(char32_t character, std::string& text);
/// Number of characters; `text` is well-formed UTF-8.
size_t CharacterCount(std::string_view text);
/// Whether every byte is below 0x80. Eight bytes a step.
bool IsAscii(std::string_view text);
/// The first byte from `at` on that is not below 0x80; the end where there is none.
size_t PastAscii(std::string_view text, size_t at);

/// Well-formed UTF-8 in NFC. Text that is certainly in NFC (see below) is only copied, and so are the words
/// of ASCII in any text. Linear in the text, however many marks stand on one letter.
std::string ToNfc(std::string_view text);
/// Whether each character by itself shows that `text` is in NFC; all below U+0300 do. A text in NFC may give
/// false.
bool IsCertainlyNfc(std::string_view text);

/// Unicode simple lower-casing, character by character.
char32_t LowerCharacter(char32_t character);
std::string LowerText(std::string_view text);
/// Lower-cases words that are compared without regard to case, and brings them to NFC again: T with U+0308
/// has no composed form, t with U+0308 has one.
std::string FoldCase(std::string_view text);

/// The same by Unicode's full case folding, in which one character may become several: "Straße" and "STRASSE"
/// give "strasse".
std::string FoldCaseFully(std::string_view text);

/// Whether the general category is that of letters (L*), and that of marks (M*).
bool IsUnicodeLetter(char32_t character);
bool IsUnicodeMark(char32_t character);

/// NextCharacter for everything but well-formed sequences of one or two bytes.
char32_t NextLongCharacter(std::string_view text, size_t& at);

inline char32_t NextCharacter(std::string_view text, size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at]);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  if (lead >= 0xC2 && lead <= 0xDF && at + 1 < text.size()) {
    const auto next = static_cast<unsigned char>(text[at + 1]);
    if ((next & 0xC0) == 0x80) {
      at += 2;
      return ((lead & 0x1FU) << 6) | (next & 0x3FU);
    }
  }
  return NextLongCharacter(text, at);
}

}  // namespace korv
