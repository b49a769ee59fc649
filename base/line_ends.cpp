#include "base/line_ends.h"

namespace korv {

std::string WithLineEnds(std::string_view text, std::string_view lineEnd) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    if (c == '\n')
      result += lineEnd;
    else
      result += c;
  }
  return result;
}

}  // namespace korv
