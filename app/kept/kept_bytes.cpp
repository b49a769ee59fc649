#include "app/kept/kept_bytes.h"

#include "platform/files.h"

namespace korv {

namespace {
constexpr bool kPathsAreBytes = std::is_same_v<std::filesystem::path::value_type, char>;
}

// Templates, because only one of the two ways compiles on a system.
template <typename Path>
std::string BytesOf(const Path& path) {
  if constexpr (kPathsAreBytes)
    return path.native();
  else
    return PathToText(path);
}

std::string BytesOfPath(const std::filesystem::path& path) {
  return BytesOf(path);
}

std::filesystem::path PathOfBytes(std::string_view bytes) {
  if constexpr (kPathsAreBytes)
    return std::filesystem::path(std::string(bytes));
  else
    return PathFromText(bytes);
}

}  // namespace korv
