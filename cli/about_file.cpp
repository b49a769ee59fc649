#include "cli/about_file.h"

#include "engine/text/unicode.h"
#include "engine/text/word_chars.h"

namespace korv {

namespace {

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// A short path may be part of some word: "d" stands in "Is a directory".
bool Names(const std::string& text, const std::string& path) {
  constexpr std::string_view kAround = " \r\n\t'\",;:";
  constexpr char32_t kAscii = 0x80;
  const auto isEdge = [&](size_t at) {
    if (at >= text.size()) return true;
    while (at > 0 && IsContinuation(text[at])) --at;
    const char32_t c = NextCharacter(text, at);
    // Languages have quotation marks of their own.
    return c < kAscii ? kAround.find(static_cast<char>(c)) != kAround.npos : KindOf(c) != CharKind::Letter;
  };
  for (size_t at = text.find(path); at != text.npos; at = text.find(path, at + 1)) {
    const size_t end = at + path.size();
    const bool ends = isEdge(end) || (text[end] == '.' && isEdge(end + 1));
    if ((at == 0 || isEdge(at - 1)) && ends) return true;
  }
  return false;
}

}  // namespace

Answer AboutFile::Show(const Message& message) {
  if (path_.empty() || Names(message.Text, path_) || Names(message.Addition, path_))
    return messages_.Show(message);
  Message named = message;
  if (!named.Addition.empty()) named.Addition += "\n";
  named.Addition += label_ + ": " + path_;
  return messages_.Show(named);
}

}  // namespace korv
