#pragma once

#include <string>

#include "app/settings/settings.h"
#include "cli/count_program.h"
#include "cli/options.h"
#include "platform/messages.h"

namespace korv {

/// The settings files that the options name. Where something is refused, the user has been told.
class SettingsFiles {
 public:
  SettingsFiles(const CountOptions& options, const CountEnvironment& environment, Messages& messages)
      : options_(options), env_(environment), messages_(messages) {}

  /// Puts the file of --settings into `settings`. True as well where there is none.
  bool Load(Settings& settings) const;
  /// Writes `settings`, in which the options have been applied, to the file of --save-settings. True as well
  /// where there is none. Files that the run reads or writes, and others that are no settings, are kept.
  bool Save(const Settings& settings) const;

 private:
  bool MayBeReplaced(const Settings& settings) const;
  bool Refuse(std::string text) const;
  Settings WithPathsInFull(Settings settings) const;
  std::string InFull(const std::string& path) const;

  const CountOptions& options_;
  const CountEnvironment& env_;
  Messages& messages_;
};

}  // namespace korv
