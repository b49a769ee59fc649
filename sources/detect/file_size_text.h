#pragma once

#include <filesystem>
#include <string>

#include "base/number_format.h"
#include "platform/files.h"

namespace korv {

/// The size of a file as FormatByteCount() gives it; empty for an empty path and for a file that has no size
/// to tell.
std::string FormatFileSize(const FileSystem& files, const std::filesystem::path& path,
                           const NumberFormat& format);

}  // namespace korv
