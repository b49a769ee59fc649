#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace korv {

/// What one loaded list file holds.
struct WordList {
  /// Distinct, in the order of their first appearance: words to ignore lower-cased, count-only entries as
  /// they stand in the file.
  std::vector<std::string> Words;
  bool HasPatterns = false;  ///< Some entry is a pattern: it holds "~" or "?", a count-only one perhaps "<".
  std::filesystem::path Path;  ///< Where it came from.
};

}  // namespace korv
