#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/expected.h"
#include "platform/files.h"

namespace korv {

/// The longest list of paths that is read, in bytes.
inline constexpr size_t kMostPathListBytes = size_t{256} << 20;

/// The paths of a list: one a line, whose end may be CR LF, behind a UTF-8 signature or none; or ended by NUL
/// and taken byte by byte. Empty ones are left out. What went wrong, as a text, where it cannot be read or is
/// too long.
Expected<std::vector<std::string>, std::string> ReadPathList(InputFile& file, char separator);

/// What is wrong with a list that cannot be opened or read, in the same words.
std::string UnreadableListText(const FileError& error);

}  // namespace korv
