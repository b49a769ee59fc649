#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace korv {

/// Several files as a folder source.
struct FilesTogether {
  std::filesystem::path Folder;
  /// The names as file patterns that match nothing else in the folder; empty where a name cannot be written
  /// as a pattern, or where there are too many.
  std::string Patterns;
};

/// Empty when the files do not all lie in one folder.
std::optional<FilesTogether> TakeTogether(std::span<const std::filesystem::path> files);

}  // namespace korv
