#pragma once

#include <filesystem>

namespace korv {

/// Where the state file lies: in the folder "Korv" of the user's application data where the system has
/// such a folder, else of the user's configuration folder. The folder need not exist.
std::filesystem::path StateFilePath();

}  // namespace korv
