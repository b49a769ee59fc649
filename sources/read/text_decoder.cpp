#include "sources/read/text_decoder.h"

#include <array>

#include "base/utf8.h"
#include "engine/text/clean_text.h"
#include "engine/text/unicode.h"

namespace korv {
namespace {

/// Bytes of ANSI text that do not stand for the character of their code.
constexpr unsigned char kOpeningQuote = 0x91;
constexpr unsigned char kApostrophe = 0x92;
constexpr unsigned char kClosingDoubleQuote = 0x94;
constexpr unsigned char kSoftHyphen = 0xAD;

void AppendAnsi(unsigned char byte, std::string& text) {
  switch (byte) {
    case kOpeningQuote:
    case kApostrophe:
      text += '\'';
      break;
    case kClosingDoubleQuote:
      text += '"';
      break;
    case kSoftHyphen:
      break;
    default:
      AppendCharacter(byte, text);
  }
}

/// The characters of the bytes 0x80 to 0x9F in Windows-1252. Five of them are none, and keep their codes.
constexpr std::array<char32_t, 32> kWindowsSigns = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AppendWindows(unsigned char byte, std::string& text) {
  const bool isKnown = byte == kOpeningQuote || byte == kApostrophe || byte == kClosingDoubleQuote;
  const char32_t character = WindowsCharacter(byte);
  isKnown || character == byte ? AppendAnsi(byte, text) : AppendCharacter(character, text);
}

template <void (&Append)(unsigned char, std::string&)>
std::string_view DecodeBytes(std::string_view bytes, std::string& buffer) {
  size_t at = PastAscii(bytes, 0);
  buffer.assign(bytes.substr(0, at));
  while (at < bytes.size()) {
    Append(static_cast<unsigned char>(bytes[at++]), buffer);
    const size_t next = PastAscii(bytes, at);
    buffer.append(bytes, at, next - at);
    at = next;
  }
  return buffer;
}

}  // namespace

char32_t WindowsCharacter(unsigned char byte) {
  constexpr unsigned char kFirst = 0x80;
  const bool isSign = byte >= kFirst && byte < kFirst + kWindowsSigns.size();
  return isSign ? kWindowsSigns[byte - kFirst] : byte;
}

std::string_view DecodeText(std::string_view bytes, TextEncoding encoding, std::string& buffer,
                            uint64_t* illFormed) {
  if (IsAscii(bytes)) return bytes;
  switch (encoding) {
    case TextEncoding::Ansi:
      return DecodeBytes<AppendAnsi>(bytes, buffer);
    case TextEncoding::Windows1252:
      return DecodeBytes<AppendWindows>(bytes, buffer);
    case TextEncoding::Utf8:
      break;
  }
  return CleanText(bytes, buffer, illFormed);
}

bool BeginsPart(std::string_view text, TextEncoding encoding) {
  if (encoding != TextEncoding::Utf8 || static_cast<unsigned char>(text[0]) < 0x80) return true;
  const Utf8Sequence sequence = Utf8SequenceAt(text, 0);
  if (sequence.Kind == Utf8Kind::CutOff) return false;
  std::string buffer;
  const std::string_view character = CleanText(text.substr(0, sequence.Length), buffer);
  // What is dropped stands in the way of none, so it begins nothing.
  return !character.empty() && IsCertainlyNfc(character);
}

}  // namespace korv
