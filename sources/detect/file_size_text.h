#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "base/number_format.h"
#include "platform/files.h"

namespace korv {

/// "512 bytes", "1,234.57 Kb", "3.00 Mb": two decimals, units of 1024.
std::string FormatByteCount(uint64_t bytes, const NumberFormat& format);
/// The same of a file; empty for an empty path and for a file that has no size to tell.
std::string FormatFileSize(const FileSystem& files, const std::filesystem::path& path,
                           const NumberFormat& format);

}  // namespace korv
