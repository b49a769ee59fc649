#pragma once

#include <string>

#include "app/workspace.h"
#include "base/number_format.h"

namespace korv {

/// Which words to ignore are in force, and how many: "Words to ignore: 571 common words of English, 3 typed".
std::string WordsInForceText(const Workspace& work, const NumberFormat& numbers);

}  // namespace korv
