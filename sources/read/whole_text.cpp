#include "sources/read/whole_text.h"

#include <algorithm>
#include <utility>

#include "engine/text/unicode.h"
#include "platform/code_page_text.h"

namespace korv {

namespace {

constexpr std::string_view kSignature = "\xEF\xBB\xBF";
constexpr char32_t kSignatureCharacter = 0xFEFF;

/// Units of two or four bytes.
struct Wide {
  size_t Bytes;
  bool LowFirst;
};

std::optional<Wide> WideOf(const std::string& encoding) {
  if (encoding == "UTF-16LE") return Wide{2, true};
  if (encoding == "UTF-16BE") return Wide{2, false};
  if (encoding == "UTF-32LE") return Wide{4, true};
  if (encoding == "UTF-32BE") return Wide{4, false};
  return std::nullopt;
}

bool IsLeading(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsTrailing(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t UnitAt(std::string_view bytes, size_t at, Wide wide) {
  char32_t unit = 0;
  for (size_t k = 0; k < wide.Bytes; ++k)
    unit = unit << 8 | static_cast<unsigned char>(bytes[at + (wide.LowFirst ? wide.Bytes - 1 - k : k)]);
  return unit;
}

/// A unit that is no character, and what is left at the end, becomes U+FFFD.
std::string FromWide(std::string_view bytes, Wide wide) {
  std::string text;
  size_t at = 0;
  while (at + wide.Bytes <= bytes.size()) {
    char32_t character = UnitAt(bytes, at, wide);
    at += wide.Bytes;
    if (wide.Bytes == 2 && IsLeading(character) && at + 2 <= bytes.size() &&
        IsTrailing(UnitAt(bytes, at, wide))) {
      character = 0x10000 + ((character - 0xD800) << 10) + (UnitAt(bytes, at, wide) - 0xDC00);
      at += 2;
    }
    const bool isCharacter = character <= 0x10FFFF && !IsLeading(character) && !IsTrailing(character);
    if (at > wide.Bytes || character != kSignatureCharacter)
      AppendCharacter(isCharacter ? character : kReplacementCharacter, text);
  }
  if (at < bytes.size()) AppendCharacter(kReplacementCharacter, text);
  return text;
}

}  // namespace

Expected<std::string, DocumentFault> ReadWholeFile(OpenedText& opened, size_t most, Yielder& yielder) {
  constexpr size_t kBlock = size_t{1} << 18;
  if (!opened.File) return DocumentFault::Unreadable;
  std::string bytes = std::move(opened.Head);
  while (!yielder.Stopped()) {
    if (bytes.size() > most) return DocumentFault::TooLarge;
    const size_t before = bytes.size();
    bytes.resize(before + kBlock);
    const auto got = opened.File->Read({bytes.data() + before, kBlock});
    if (!got) return DocumentFault::Unreadable;
    bytes.resize(before + *got);
    if (*got == 0) break;
    yielder.Yield();
  }
  return bytes;
}

std::optional<std::string> TextInUtf8(std::string bytes, const std::string& encoding) {
  if (encoding == "UTF-8") {
    if (bytes.starts_with(kSignature)) bytes.erase(0, kSignature.size());
    return bytes;
  }
  if (const auto wide = WideOf(encoding)) return FromWide(bytes, *wide);
  return TextOfBytes(bytes, encoding);
}

}  // namespace korv
