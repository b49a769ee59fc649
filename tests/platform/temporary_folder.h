#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "platform/files.h"

namespace korv {

/// A folder on the real disk that goes with its test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    auto made = MakeSystemFiles()->CreatePrivateTemporaryFolder();
    if (!made) throw std::runtime_error(made.Error().Description);
    path_ = *made;
  }
  ~TemporaryFolder() {
    std::error_code code;
    std::filesystem::remove_all(path_, code);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

inline void WriteTestFile(const std::filesystem::path& path, const std::string& content) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

inline std::string ReadTestFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace korv
