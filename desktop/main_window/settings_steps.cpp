#include "desktop/main_window/settings_steps.h"

#include <utility>

#include "desktop/main_window/settings_controller.h"

namespace korv {

void SettingsSteps::Do(const std::string& name, const std::function<void(Workspace::State&)>& edit) {
  Workspace::State before = work_.Keep();
  Workspace::State state = before;
  edit(state);
  settings_.PutBack(std::move(state));
  before_ = std::move(before);
  name_ = name;
}

void SettingsSteps::Undo() {
  if (before_) settings_.PutBack(*std::exchange(before_, std::nullopt));
}

}  // namespace korv
