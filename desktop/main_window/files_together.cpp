#include "desktop/main_window/files_together.h"

#include <vector>

#include "platform/files.h"
#include "sources/folders/file_selection.h"

namespace korv {

std::optional<FilesTogether> TakeTogether(std::span<const std::filesystem::path> files) {
  if (files.empty()) return std::nullopt;
  FilesTogether together{.Folder = files.front().parent_path(), .Patterns = {}};
  std::vector<std::string> names;
  bool namesArePatterns = files.size() <= kMostPatterns;
  for (const std::filesystem::path& file : files) {
    if (file.parent_path() != together.Folder) return std::nullopt;
    names.push_back(PathToText(file.filename()));
    // What separates patterns, has a meaning in them, or is refused there.
    if (names.back().find_first_of(", \t\r\n*?~;<>`\\") != std::string::npos) namesArePatterns = false;
  }
  if (namesArePatterns) together.Patterns = JoinPatterns(names);
  return together;
}

}  // namespace korv
