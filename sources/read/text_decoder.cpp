#include "sources/read/text_decoder.h"

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

std::string_view DecodeAnsi(std::string_view bytes, std::string& buffer) {
  size_t at = PastAscii(bytes, 0);
  buffer.assign(bytes.substr(0, at));
  while (at < bytes.size()) {
    AppendAnsi(static_cast<unsigned char>(bytes[at++]), buffer);
    const size_t next = PastAscii(bytes, at);
    buffer.append(bytes, at, next - at);
    at = next;
  }
  return buffer;
}

}  // namespace

std::string_view DecodeText(std::string_view bytes, TextEncoding encoding, std::string& buffer,
                            uint64_t* illFormed) {
  if (IsAscii(bytes)) return bytes;
  return encoding == TextEncoding::Ansi ? DecodeAnsi(bytes, buffer) : CleanText(bytes, buffer, illFormed);
}

bool BeginsPart(std::string_view text, TextEncoding encoding) {
  if (encoding == TextEncoding::Ansi || static_cast<unsigned char>(text[0]) < 0x80) return true;
  const Utf8Sequence sequence = Utf8SequenceAt(text, 0);
  if (sequence.Kind == Utf8Kind::CutOff) return false;
  std::string buffer;
  const std::string_view character = CleanText(text.substr(0, sequence.Length), buffer);
  // What is dropped stands in the way of none, so it begins nothing.
  return !character.empty() && IsCertainlyNfc(character);
}

}  // namespace korv
