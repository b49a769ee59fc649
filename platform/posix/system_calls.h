#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/files.h"
#include "platform/posix/swept_folders.h"

namespace korv {

// What the standard library's view of the disk does not offer.

Expected<std::unique_ptr<InputFile>, FileError> SystemOpenForReading(const std::filesystem::path& path);
/// `path` is absolute.
Expected<std::unique_ptr<OutputFile>, FileError> SystemOpenForWriting(const std::filesystem::path& path,
                                                                      SweptFolders& swept);
Expected<std::filesystem::path, FileError> SystemPrivateTemporaryFolder(SweptFolders& swept);

/// See FileSystem::OpenOutputOf().
Expected<std::unique_ptr<InputFile>, FileError> SystemOpenOutputOf(
    const std::string& program, const std::vector<std::filesystem::path>& arguments, Yielder& yielder);

FileError FileErrorOf(const std::error_code& code);

}  // namespace korv
