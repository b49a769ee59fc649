#pragma once

#include "app/settings/settings.h"
#include "report/writers/table_description.h"

namespace korv {

/// The settings by their names, as tables describe them: checkboxes as true or false, choices as the words of
/// the command line, or their number from 0 where it has none, lists of files as the selected path.
std::vector<std::pair<std::string, TableDescription::Value>> SettingValues(const Settings& settings);

}  // namespace korv
