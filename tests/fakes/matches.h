#pragma once

#include <regex>
#include <string>

namespace korv {

/// Whether the whole text matches the expression. The test library's own expressions know no classes of
/// characters on Windows.
inline bool Matches(const std::string& text, const char* expression) {
  return std::regex_match(text, std::regex(expression));
}

}  // namespace korv
