#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace korv {

/// The files and subfolders that a path with "*" or "?" in its last part names, by name and without regard to
/// case, as a shell puts them in its place. The path itself where it has none of these signs, or where
/// nothing matches. Texts as PathFromText() takes them. Lists one folder.
std::vector<std::string> ExpandPattern(std::string_view path, FileSystem& files);

}  // namespace korv
