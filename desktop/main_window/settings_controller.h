#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "app/settings/saved_state.h"
#include "app/settings/settings.h"
#include "desktop/desktop.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/settings_window/settings_keeper.h"

class QWidget;

namespace korv {

class ControlSettings;
class frmParams;
class frmPopUp;

/// What becomes of the settings of both windows: set afresh, saved in files and restored from them.
class SettingsController {
 public:
  /// What the rest of the window does then.
  struct Hooks {
    std::function<void()> Applied = [] {};       ///< Settings have been put into the controls.
    std::function<void()> WordsChanged = [] {};  ///< Words to ignore, or what they do, may be others.
  };
  /// The parts have to outlive this.
  SettingsController(const Desktop& desktop, const MainPanels& panels, ControlSettings& settings,
                     frmParams& params, frmPopUp& popUp, Hooks hooks);

  /// Puts settings into the controls, without asking anything. A list in sight follows them.
  void Apply(const Settings& settings);
  /// A fresh state, as "Reinitialize" wants it. May ask whether to clear the word-list files.
  void Initialize();

  /// An empty path is the state file. Empty on success, else the message to show.
  std::string SaveStateTo(const std::filesystem::path& path);
  /// Saves into the state file and says so where that fails. True on success.
  bool SaveState();
  /// Saves the state file and tells so in a pop-up over `window`.
  void SaveStateFile(QWidget* window);
  /// Reads a settings file into the controls; may ask to load its word list.
  RestoreOutcome RestoreSavedState(const std::filesystem::path& path);
  /// Reads the state file where there is one, and says what is wrong with it.
  void RestoreStateFile();

  /// The settings of the start need not be kept.
  void RememberStart();
  /// Offers to keep settings that are about to be forgotten. Only once: later calls do nothing.
  void OfferToKeepSettings();

 private:
  void ClearFields();
  void LeaveRestoredFields();
  void LoadRestoredWordFile(const Settings& settings);

  const Desktop& desktop_;
  const MainPanels& panels_;
  ControlSettings& settings_;
  frmParams& params_;
  frmPopUp& popUp_;
  Hooks hooks_;
  SettingsKeeper keeper_;
};

}  // namespace korv
