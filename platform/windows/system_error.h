#pragma once

#include <windows.h>

#include <filesystem>

#include "platform/files.h"

namespace korv {

/// A fault of the system in its own words, without line break and period at their end.
FileError ErrorOf(DWORD error);
/// The calling thread's last one.
FileError LastError();
/// That a folder has the name of a file.
FileError FolderError();
/// The fault that a call with a path ended in. The system calls a path that leads through a file not found;
/// this looks at what is there and tells that it is no folder. `full` is a FullPath().
FileError ErrorAt(const std::filesystem::path& full, DWORD error);

}  // namespace korv
