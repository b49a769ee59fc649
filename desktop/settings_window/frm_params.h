#pragma once

#include <QList>
#include <QWidget>
#include <filesystem>
#include <functional>

#include "app/workspace.h"

class QShortcut;

namespace korv {

class AllowWordsPanel;
class BehaviourPanel;
class IgnoreWordsPanel;
class PhraseBoundariesPanel;
class RulesSampleBox;
class SettingsCommands;
class SettingsHost;
class StateFilePanel;
class WordListsPanel;

/// The Settings window: what counts as a word, which words are ignored or counted, where phrases end. It
/// assembles its panels and loads and saves settings files. Closing only hides it.
class frmParams final : public QWidget {
 public:
  explicit frmParams(SettingsHost& host);
  ~frmParams() override;

  WordListsPanel* Lists = nullptr;
  AllowWordsPanel* AllowWords = nullptr;
  IgnoreWordsPanel* IgnoreWords = nullptr;
  PhraseBoundariesPanel* PhraseBoundaries = nullptr;
  RulesSampleBox* fraSample = nullptr;  ///< What the rules above make of a text.
  BehaviourPanel* Behaviour = nullptr;
  StateFilePanel* StateFile = nullptr;
  SettingsCommands* Commands = nullptr;

  /// 0 loads a settings file, 1 saves one. What became of it stands in the state label, and for a command of
  /// another window in a pop-up over that one.
  void cmdSaveLoadState_Click(int index, QWidget* otherWindow = nullptr);
  /// Loads a settings file, as "Load settings from file" of the main window does with the chosen one.
  void OpenSettingsFile(const std::filesystem::path& path);

  void EnableDisableButtons(bool enabled);
  void EnableClearButtons();
  /// Shows what follows from settings, which the controls themselves show already.
  void SettingsHaveChanged(const SettingSet& changed);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeGroups(QWidget* parent);
  void SetTabOrder();
  void Connect();
  void RestoreGeometry();
  /// `loaded` is called where that succeeds, once the word list has been read too.
  void LoadSettings(const std::filesystem::path& path, std::function<void()> loaded);
  bool SaveSettings(const std::filesystem::path& path);

  SettingsHost& host_;
  Workspace& work_;
  QList<QShortcut*> idleShortcuts_;  ///< Keys that rest during a run.
};

}  // namespace korv
