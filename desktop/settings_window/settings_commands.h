#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <vector>

class QBoxLayout;
class QPushButton;

namespace korv {

class ElidingLabel;
class SettingsHost;
class SettingsUndo;

/// The foot of the Settings window: what was done last, and the commands that concern every setting.
class SettingsCommands final : public QWidget {
 public:
  SettingsCommands(SettingsHost& host, QWidget* parent);
  ~SettingsCommands() override;

  ElidingLabel* lblState = nullptr;  ///< What was done last: to settings, or a list of words.
  SettingsUndo* cmdUndo = nullptr;   ///< Takes back the defaults, or the checkboxes all checked or cleared.
  std::array<QPushButton*, 2> cmdSetOrClearCheckboxes{};  ///< 0 checks all, 1 clears all.
  QPushButton* cmdRestoreDefaults = nullptr;
  QPushButton* cmdInitialize = nullptr;
  QPushButton* cmdSaveState = nullptr;
  QPushButton* cmdClose = nullptr;
  QPushButton* cmdQuit = nullptr;

  std::function<void()> ChangedAtOnce = [] {};  ///< Many settings have been changed by one command.

  /// 0 checks every checkbox of the window, 1 clears it.
  void cmdSetOrClearCheckboxes_Click(int index);
  void cmdRestoreDefaults_Click();
  void cmdUndo_Click();
  void cmdInitialize_Click();
  void cmdSaveState_Click();
  void cmdClose_Click();
  void cmdQuit_Click();

  bool ReallyQuit();
  /// Puts a text into the state label.
  void Tell(const QString& text);
  /// Takes `text` out of the state label, if it stands there.
  void Untell(const QString& text);
  void EnableDisableButtons(bool enabled);
  std::vector<QWidget*> TabOrder() const;

 private:
  void BuildButtons(QBoxLayout& layout);
  void Connect();
  /// Does `change` to many settings at once, tells so and offers to take it back.
  void ChangeAtOnce(const std::function<void()>& change, const char* told, QPushButton* by);

  SettingsHost& host_;
};

}  // namespace korv
