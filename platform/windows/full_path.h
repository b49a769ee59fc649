#pragma once

#include <filesystem>
#include <string>

#include "platform/windows/handle.h"

namespace korv {

/// Absolute, without "." and "..", with "\" throughout, links not followed, without the prefix that lifts the
/// limit of length; \\.\NUL for the names of devices. Names that end in a period or a blank, or that are a
/// device's, mean what they say only where there is a file of that name, as in a listing: asks the disk
/// about these.
std::filesystem::path FullPath(const std::filesystem::path& path);

/// Whether a FullPath() names a device or a pipe.
bool IsDevice(const std::filesystem::path& full);

/// Opens what a FullPath() names, a folder too, to ask about it; nobody is hindered by that. Links are
/// followed. Not for devices: opening a pipe is already using it.
Handle OpenToAsk(const std::filesystem::path& full);

/// Where something open really lies; `otherwise` where the system does not tell.
std::filesystem::path FinalPath(const Handle& file, const std::filesystem::path& otherwise);

}  // namespace korv
