#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "app/settings/saved_state.h"
#include "app/workspace.h"
#include "desktop/desktop.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/settings_window/settings_keeper.h"

class QWidget;

namespace korv {

class frmParams;
class frmPopUp;

/// What becomes of the settings of both windows: set afresh, saved in files and restored from them.
class SettingsController {
 public:
  /// What the rest of the window does then.
  struct Hooks {
    std::function<void()> Applied = [] {};       ///< The program has changed the settings.
    std::function<void()> WordsChanged = [] {};  ///< Words to ignore, or what they do, may be others.
  };
  /// The parts have to outlive this.
  SettingsController(const Desktop& desktop, const MainPanels& panels, Workspace& work, frmParams& params,
                     frmPopUp& popUp, Hooks hooks);

  /// These settings hold from now on; nothing is asked. A list in sight follows them.
  void Apply(const Settings& settings);
  /// All that one works on is what it was when `state` was kept.
  void PutBack(Workspace::State state);
  /// A fresh state, as "Reinitialize" wants it. May ask whether to clear the word-list files.
  void Initialize();

  /// An empty path is the state file. Empty on success, else the message to show.
  std::string SaveStateTo(const std::filesystem::path& path);
  /// Saves into the state file and says so where that fails. True on success.
  bool SaveState();
  /// Saves the state file and tells so in a pop-up over `window`.
  void SaveStateFile(QWidget* window);
  /// Loads a settings file; may ask to load its word list.
  RestoreOutcome RestoreSavedState(const std::filesystem::path& path);
  /// Reads the state file where there is one, and says what is wrong with it.
  void RestoreStateFile();

  /// The settings of the start need not be kept.
  void RememberStart();
  /// Offers to keep settings that are about to be forgotten. Only once: later calls do nothing.
  void OfferToKeepSettings();

 private:
  void Change(const Settings& settings);
  void ClearFields();
  void LeaveRestoredFields();
  void LoadRestoredWordFile(const Settings& settings);

  const Desktop& desktop_;
  const MainPanels& panels_;
  Workspace& work_;
  frmParams& params_;
  frmPopUp& popUp_;
  Hooks hooks_;
  SettingsKeeper keeper_;
};

}  // namespace korv
