#pragma once

#include <filesystem>
#include <string>

#include "base/number_format.h"
#include "platform/files.h"

namespace korv {

/// The size of a file as FormatByteCount() gives it. Empty for an empty path, and for pipes and devices,
/// which have no size.
std::string FormatFileSize(const FileSystem& files, const std::filesystem::path& path,
                           const NumberFormat& format);

}  // namespace korv
