#pragma once

#include <string>

#include "platform/launcher.h"
#include "platform/messages.h"

namespace korv {

/// Opens a file, or an address that begins with "https:" or "http:", with its associated program. Says so
/// where that fails, and returns false.
bool OpenWithAssociatedProgram(Launcher& launcher, Messages& messages, const std::string& target);

}  // namespace korv
