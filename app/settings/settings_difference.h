#pragma once

#include "app/settings/settings.h"

namespace korv {

/// Whether two settings differ in what a user would miss after a restart. What is being counted at the
/// moment, and where its list goes, is no such setting: source and its path, output file and filter words.
bool SettingsDiffer(const Settings& one, const Settings& other);

}  // namespace korv
