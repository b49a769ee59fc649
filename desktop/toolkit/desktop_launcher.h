#pragma once

#include <memory>

#include "platform/launcher.h"

namespace korv {

/// Opens through the desktop's associations.
std::unique_ptr<Launcher> MakeDesktopLauncher();

}  // namespace korv
