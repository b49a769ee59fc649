#pragma once

#include <filesystem>

#include "platform/posix/file_descriptor.h"

namespace korv {

// The names of this process's temporary files and folders, for a signal that ends the program without running
// destructors. All but RemoveTemporaries() may be called from any thread, not from a signal handler.

/// From here on the file or empty folder `path` goes when a signal ends the program. Note a folder before
/// what it holds. `lock`, which tells other programs that this one lives, is held as long.
void NoteTemporary(const std::filesystem::path& path, FileDescriptor lock = FileDescriptor());
/// It has been removed, or is to stay. Unknown names are no harm.
void ForgetTemporary(const std::filesystem::path& path);
bool IsTemporary(const std::filesystem::path& path);

/// Removes everything noted, last first. For signal handlers that end the program: nothing can be noted
/// afterwards.
void RemoveTemporaries() noexcept;

}  // namespace korv
