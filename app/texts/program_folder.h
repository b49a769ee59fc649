#pragma once

#include <filesystem>

#include "platform/files.h"

namespace korv {

inline constexpr const char* kProgramTextName = "korv.dat";
/// The folder of translations, in the program's own.
inline constexpr const char* kTranslationsName = "locale";

/// Where the program's own files are (its texts, the common-words files): beside the executable when its
/// texts are there, else in ../share/korv.
std::filesystem::path ProgramFolder(const FileSystem& files, const std::filesystem::path& executable);

}  // namespace korv
