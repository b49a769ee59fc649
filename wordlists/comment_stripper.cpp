#include "wordlists/comment_stripper.h"

namespace korv {

std::string CommentStripper::Strip(std::string_view line) {
  std::string kept;
  size_t at = 0;
  while (at < line.size() || withinComment_) {
    if (withinComment_) {
      const size_t end = line.find("*/", at);
      kept += ' ';
      if (end == std::string_view::npos) return kept;
      withinComment_ = false;
      at = end + 2;
      continue;
    }
    const std::string_view rest = line.substr(at);
    if (rest.starts_with("//")) {
      kept += ' ';
      return kept;
    }
    if (rest.starts_with("/*")) {
      withinComment_ = true;
      at += 2;
      continue;
    }
    kept += line[at++];
  }
  return kept;
}

}  // namespace korv
