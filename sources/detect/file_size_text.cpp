#include "sources/detect/file_size_text.h"

namespace korv {

std::string FormatByteCount(uint64_t bytes, const NumberFormat& format) {
  constexpr uint64_t kKilo = 1024;
  constexpr uint64_t kMega = kKilo * kKilo;
  if (bytes < kKilo) return std::to_string(bytes) + " bytes";
  const bool kilo = bytes < kMega;
  const double units = static_cast<double>(bytes) / static_cast<double>(kilo ? kKilo : kMega);
  return format.GroupedDecimals(units, 2) + (kilo ? " Kb" : " Mb");
}

std::string FormatFileSize(const FileSystem& files, const std::filesystem::path& path,
                           const NumberFormat& format) {
  if (path.empty()) return {};
  const Expected<uint64_t, FileError> size = files.FileSize(path);
  return size ? FormatByteCount(*size, format) : std::string();
}

}  // namespace korv
