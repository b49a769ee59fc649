#pragma once

#include <functional>
#include <optional>
#include <string>

#include "app/workspace.h"

namespace korv {

class SettingsController;

/// Commands that change several settings, or lists of words, at once. The last one can be undone in one step
/// until the user changes something else.
class SettingsSteps {
 public:
  /// Both have to outlive this.
  SettingsSteps(Workspace& work, SettingsController& settings) : work_(work), settings_(settings) {}

  /// Changes what one works on by `edit`. `name` says what that does: "Settings of moby.txt".
  void Do(const std::string& name, const std::function<void(Workspace::State&)>& edit);
  void Undo();
  /// Its name; empty when there is nothing to undo.
  std::string Undoable() const { return before_ ? name_ : std::string(); }
  /// The user has changed something else.
  void Forget() { before_.reset(); }

 private:
  Workspace& work_;
  SettingsController& settings_;
  std::optional<Workspace::State> before_;
  std::string name_;
};

}  // namespace korv
