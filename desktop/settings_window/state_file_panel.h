#pragma once

#include <QGroupBox>
#include <array>
#include <functional>
#include <vector>

class QLineEdit;
class QPushButton;

namespace korv {

class SettingsHost;

/// The commands for settings files and for silenced questions.
class StateFilePanel final : public QGroupBox {
 public:
  StateFilePanel(SettingsHost& host, QWidget* parent);
  ~StateFilePanel() override;

  std::array<QPushButton*, 2> cmdSaveLoadState{};  ///< 0 loads, 1 saves.
  QPushButton* cmdAskEverythingAgain = nullptr;
  QLineEdit* txbStateFile = nullptr;  ///< Never shown; the path of the settings file used last.

  /// 0: a settings file is to be loaded, 1: saved.
  std::function<void(int index)> SaveLoadState = [](int) {};
  std::function<void(const QString& text)> Told = [](const QString&) {};  ///< For the state label.

  void cmdAskEverythingAgain_Click();
  /// Only where a question was silenced.
  void EnableAsking();
  std::vector<QWidget*> TabOrder() const;

 private:
  SettingsHost& host_;
};

}  // namespace korv
