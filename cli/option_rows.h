#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/settings/setting_row.h"
#include "cli/options.h"

namespace korv {

/// One option of korv-count: what --help and the manual page say of it, and what it does.
struct OptionRow {
  std::string Name = {};       ///< "--min-words", or "--output,-o" where it has a letter.
  std::string ValueName = {};  ///< What its value is called; empty for a flag.
  OptionGroup Group = OptionGroup::Settings;
  std::string Help = {};
  std::string Range = {};  ///< "2 to 25" where Help does not tell it.
  /// Puts its value, empty for a flag, into the options. Throws CLI::ValidationError where it makes no sense.
  std::function<void(const std::string& value, CountOptions& options)> Take = {};
  bool Repeats = false;  ///< Take() is called for each value that it is given.
  /// The names of options before it that cannot be given together with it.
  std::vector<std::string> Excludes = {};
};

/// The options that set settings, as Schema() has them, with those that are korv-count's own; in the order of
/// --help.
std::vector<OptionRow> OptionRows();

}  // namespace korv
