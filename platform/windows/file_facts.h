#pragma once

#include <windows.h>

#include <cstdint>
#include <filesystem>

#include "platform/files.h"

namespace korv {

struct FileFacts {
  bool Folder = false;
  bool ReadOnly = false;  ///< Marked as such; of no meaning for folders.
  uint64_t Size = 0;      ///< In bytes; of no meaning for folders.
};

/// What a FullPath() that is no device leads to, links followed.
Expected<FileFacts, FileError> FactsOf(const std::filesystem::path& full);

/// Whether a FullPath() is itself a link.
bool IsLink(const std::filesystem::path& full);

/// What an entry of a folder is.
enum class EntryKind {
  File,
  Folder,
  Link,    ///< Leads elsewhere: a symbolic link, a junction, a mount point.
  Special  ///< A device, or one of the pipes and sockets of another system's programs.
};

/// `reparseTag` means something only with FILE_ATTRIBUTE_REPARSE_POINT. Not everything that has one leads
/// elsewhere: files that are fetched from a store or put together when they are read have one too.
EntryKind KindOfEntry(DWORD attributes, DWORD reparseTag);

}  // namespace korv
