#include "sources/text_decoder.h"

#include "engine/unicode.h"

namespace korv {
namespace {

unsigned char ByteAt(std::string_view text, size_t at) {
  return static_cast<unsigned char>(text[at]);
}

std::string_view DecodeAnsi(std::string_view bytes, std::string& buffer) {
  size_t at = PastAscii(bytes, 0);
  if (at == bytes.size()) return bytes;
  buffer.assign(bytes.substr(0, at));
  while (at < bytes.size()) {
    const unsigned char byte = ByteAt(bytes, at++);
    if (byte == 0x91 || byte == 0x92)
      buffer += '\'';
    else if (byte == 0x94)
      buffer += '"';
    else
      AppendCharacter(byte, buffer);
    const size_t next = PastAscii(bytes, at);
    buffer.append(bytes, at, next - at);
    at = next;
  }
  return buffer;
}

/// What stands in the text for the sequence of UTF-8 that was just decoded as `character`; empty where it
/// stands for itself.
std::string_view Substitute(char32_t character) {
  switch (character) {
    case U'\u2018':
    case U'\u2019':
      return "'";
    case U'\u201D':
      return "\"";
    case kReplacementCharacter:
      return "\uFFFD";
    default:
      return {};
  }
}

/// The byte from `at` on where the first sequence begins that has a substitute.
size_t SkipFaithful(std::string_view text, size_t at) {
  while (at < text.size()) {
    const unsigned char lead = ByteAt(text, at);
    if (lead < 0x80) {
      at = PastAscii(text, at);
    } else if (lead >= 0xC2 && lead <= 0xDF && at + 1 < text.size() &&
               (ByteAt(text, at + 1) & 0xC0) == 0x80) {
      at += 2;
    } else {
      const size_t begin = at;
      if (!Substitute(NextCharacter(text, at)).empty()) return begin;
    }
  }
  return at;
}

std::string_view DecodeUtf8(std::string_view bytes, std::string& buffer) {
  size_t at = SkipFaithful(bytes, 0);
  std::string_view text = bytes;
  if (at < bytes.size()) {
    buffer.assign(bytes.substr(0, at));
    while (at < bytes.size()) {
      buffer += Substitute(NextCharacter(bytes, at));
      const size_t next = SkipFaithful(bytes, at);
      buffer.append(bytes, at, next - at);
      at = next;
    }
    text = buffer;
  }
  if (IsCertainlyNfc(text)) return text;
  buffer = ToNfc(text);
  return buffer;
}

}  // namespace

std::string_view DecodeText(std::string_view bytes, TextEncoding encoding, std::string& buffer) {
  if (IsAscii(bytes)) return bytes;
  return encoding == TextEncoding::Ansi ? DecodeAnsi(bytes, buffer) : DecodeUtf8(bytes, buffer);
}

}  // namespace korv
