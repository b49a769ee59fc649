#include "sources/folders/expand_pattern.h"

#include <algorithm>
#include <utility>

#include "engine/text/unicode.h"
#include "sources/folders/file_selection.h"

namespace korv {

namespace fs = std::filesystem;

std::vector<std::string> ExpandPattern(std::string_view path, FileSystem& files) {
  const fs::path whole = PathFromText(path);
  const std::string pattern = LowerText(PathToText(whole.filename()));
  if (pattern.find_first_of("*?") == std::string::npos) return {std::string(path)};
  const fs::path folder = whole.parent_path();
  auto listing = files.ListFolder(folder.empty() ? fs::path(".") : folder);
  if (!listing) return {std::string(path)};
  std::vector<fs::path> names = std::move(listing->Files);
  names.insert(names.end(), listing->Subfolders.begin(), listing->Subfolders.end());
  std::vector<std::pair<std::string, std::string>> found;
  for (const fs::path& name : names) {
    std::string lowered = LowerText(PathToText(name));
    if (!MatchesWildcards(lowered, pattern)) continue;
    found.emplace_back(std::move(lowered), PathToText(folder.empty() ? name : folder / name));
  }
  if (found.empty()) return {std::string(path)};
  std::sort(found.begin(), found.end());
  std::vector<std::string> paths;
  paths.reserve(found.size());
  for (auto& [lowered, text] : found) paths.push_back(std::move(text));
  return paths;
}

}  // namespace korv
