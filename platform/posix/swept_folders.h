#pragma once

#include <filesystem>
#include <mutex>
#include <set>

namespace korv {

/// The folders in which was looked for what killed programs left. Once is enough: a folder to which many
/// files are written would be read as often. From any thread.
class SweptFolders {
 public:
  /// False where the folder is among them already.
  bool Add(const std::filesystem::path& folder) {
    const std::lock_guard lock(mutex_);
    return folders_.insert(folder).second;
  }

 private:
  std::mutex mutex_;
  std::set<std::filesystem::path> folders_;
};

}  // namespace korv
