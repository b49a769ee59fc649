#pragma once

#include <QString>
#include <filesystem>

namespace korv {

/// Where the state file lies: in the folder "Korv" of the user's application data where the system has
/// such a folder, else of the user's configuration folder; at the root of the system's drive where it has
/// neither. Its name is that of the program file. The folder need not exist.
std::filesystem::path StateFilePath();

/// The same for a program and an application folder that are given; `folder` may be empty for none.
std::filesystem::path StateFilePathFor(const QString& program, const QString& folder);

}  // namespace korv
