#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "platform/files.h"

namespace korv {

// What the standard library's view of the disk does not offer; one implementation per system, in
// platform/posix/ and platform/windows/.

Expected<std::unique_ptr<InputFile>, FileError> SystemOpenForReading(const std::filesystem::path& path);
/// `path` is absolute.
Expected<std::unique_ptr<OutputFile>, FileError> SystemOpenForWriting(const std::filesystem::path& path);
Expected<std::filesystem::path, FileError> SystemPrivateTemporaryFolder();
/// Whether the entry is a link, of whatever kind the system has. The entry may have the answer at hand.
bool SystemIsLink(const std::filesystem::directory_entry& entry);

FileError FileErrorOf(const std::error_code& code);
/// Eight characters that nobody can foresee, for names of files that must be new.
std::string RandomNamePart();

}  // namespace korv
