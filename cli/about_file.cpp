#include "cli/about_file.h"

namespace korv {

namespace {

/// A short path may be part of some word: "d" stands in "Is a directory".
bool Names(const std::string& text, const std::string& path) {
  constexpr std::string_view kAround = " \r\n\t'\",;:";
  const auto isEdge = [&](size_t at) { return at >= text.size() || kAround.find(text[at]) != kAround.npos; };
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
