#pragma once

#include <string>

#include "app/settings/settings.h"

namespace korv {

/// Settings as text, in the order of the schema: each its name, "=" and its value in a line. Checkboxes are
/// true or false, choices the words of the command line, or their number from 0 where it has none. In texts
/// line ends and tabs are written \\n, \\r and \\t, and a backslash twice.
std::string SettingLines(const Settings& settings);

}  // namespace korv
