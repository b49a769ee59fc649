#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace korv {

/// The words of one loaded list.
struct WordList {
  std::vector<std::string> Words;  ///< Distinct, lower-cased, in the order of their first appearance.
  bool HasPatterns = false;        ///< Some word holds "~" or "?".
  std::filesystem::path Path;      ///< Where it came from.
};

}  // namespace korv
