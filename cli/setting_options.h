#pragma once

#include <vector>

#include "cli/option_rows.h"

namespace korv {

/// The options that Schema() has, in the order of its rows.
std::vector<OptionRow> SettingOptions();

}  // namespace korv
