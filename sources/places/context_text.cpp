#include "sources/places/context_text.h"

#include <algorithm>

#include "base/utf8.h"
#include "engine/text/unicode.h"

namespace korv {

bool IsWhiteSpace(char32_t c) {
  return (c >= 9 && c <= 13) || c == U' ' || c == 0x85 || c == 0xA0 || c == 0x1680 ||
         (c >= 0x2000 && c <= 0x200A) || c == 0x2028 || c == 0x2029 || c == 0x202F || c == 0x205F ||
         c == 0x3000;
}

std::string RawText(std::string_view bytes, TextEncoding encoding) {
  if (encoding == TextEncoding::Utf8) return MendedUtf8(bytes);
  std::string text;
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    AppendCharacter(encoding == TextEncoding::Windows1252 ? WindowsCharacter(code) : code, text);
  }
  return text;
}

std::string WithSingleBlanks(std::string_view text) {
  std::string words;
  bool blank = false;
  for (size_t at = 0; at < text.size();) {
    const size_t begin = at;
    if (IsWhiteSpace(NextCharacter(text, at))) {
      blank = true;
      continue;
    }
    if (blank && !words.empty()) words += ' ';
    blank = false;
    words += text.substr(begin, at - begin);
  }
  return words;
}

std::string LastWords(std::string_view text, size_t most) {
  const size_t all = CharacterCount(text);
  if (all <= most) return std::string(text);
  size_t begin = 0;
  for (size_t skipped = 0; skipped < all - most; ++skipped) NextCharacter(text, begin);
  if (text[begin - 1] != ' ') begin = std::min(text.find(' ', begin), text.size());
  while (begin < text.size() && text[begin] == ' ') ++begin;
  return std::string(text.substr(begin));
}

std::string FirstWords(std::string_view text, size_t most) {
  size_t end = 0;
  for (size_t taken = 0; taken < most && end < text.size(); ++taken) NextCharacter(text, end);
  if (end < text.size() && text[end] != ' ') {
    const size_t blank = end == 0 ? std::string_view::npos : text.rfind(' ', end - 1);
    end = blank == std::string_view::npos ? 0 : blank;
  }
  while (end > 0 && text[end - 1] == ' ') --end;
  return std::string(text.substr(0, end));
}

}  // namespace korv
