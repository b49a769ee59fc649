#include "sources/detect/file_size_text.h"

#include "base/size_text.h"

namespace korv {

std::string FormatFileSize(const FileSystem& files, const std::filesystem::path& path,
                           const NumberFormat& format) {
  if (path.empty()) return {};
  const Expected<uint64_t, FileError> size = files.FileSize(path);
  return size ? FormatByteCount(*size, format) : std::string();
}

}  // namespace korv
