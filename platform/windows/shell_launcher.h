#pragma once

#include <array>
#include <filesystem>
#include <memory>

#include "platform/launcher.h"

namespace korv {

/// Starts programs by the system's shell. Its calls belong to a thread that has initialised COM.
std::unique_ptr<Launcher> MakeShellLauncher();

/// What the number means with which the shell answers a request to open something; those above 32 are
/// successes.
LaunchResult LaunchResultOf(int answer);

/// Where the system's clipboard viewer may be, on the drive that has the system, in the order in which they
/// are tried.
std::array<std::filesystem::path, 2> ClipboardViewerPlaces(wchar_t drive);

}  // namespace korv
