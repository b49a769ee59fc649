#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/files.h"

namespace korv {

/// Which files and folders have been met, however their paths are spelled and whatever links lead to their
/// folders. Two names of a folder are two files, as in a walk, even where one of them is a link to the other.
///
/// Holds the name of each file and the path of each folder.
class MetPaths {
 public:
  explicit MetPaths(const FileSystem& files) : files_(files) {}

  /// Has met a folder. Asks the disk.
  void MeetFolder(const std::filesystem::path& folder);
  /// Has met a file. False where that is not the first time. Asks the disk for its folder alone, and not
  /// even that where the file before lay in it.
  bool MeetFile(const std::filesystem::path& file);
  /// How many different folders there were, those of files among them.
  size_t Folders() const { return folders_; }

 private:
  using Spellings = std::vector<std::filesystem::path>;  ///< Of names that differ only in case.

  size_t NumberOf(const std::filesystem::path& folder);

  const FileSystem& files_;
  size_t folders_ = 0;
  std::unordered_map<std::string, std::vector<std::pair<std::filesystem::path, size_t>>> numbers_;
  std::unordered_map<std::string, Spellings> met_;
  std::filesystem::path last_;  ///< The folder that was asked for last, as it was spelled.
  size_t lastNumber_ = 0;       ///< From 1; 0 where there was none.
};

}  // namespace korv
