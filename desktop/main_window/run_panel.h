#pragma once

#include <QPalette>
#include <QWidget>
#include <chrono>
#include <functional>
#include <vector>

#include "desktop/desktop.h"

class QBoxLayout;
class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace korv {

/// The count button, what moves while something goes on, and the commands below. At the foot of the column,
/// always in sight.
class RunPanel final : public QWidget {
 public:
  RunPanel(const Desktop& desktop, QWidget* parent);
  ~RunPanel() override;

  QPushButton* cmdCountPhrases = nullptr;
  QProgressBar* prgProgress = nullptr;
  QLabel* lblTwirler = nullptr;
  QLabel* lblTimeElapsed = nullptr;
  QPushButton* cmdSaveState = nullptr;
  QPushButton* cmdHelp = nullptr;
  QPushButton* cmdQuit = nullptr;
  QTimer* Timer2 = nullptr;       ///< Once a second during a run.
  QTimer* tmrProgress = nullptr;  ///< Several times a second during a run.

  /// What the buttons ask for, and the ticks of the timers.
  struct Handlers {
    std::function<void()> CountPhrases = [] {};
    std::function<void()> SaveState = [] {};
    std::function<void()> Help = [] {};
    std::function<void()> Quit = [] {};
    std::function<void()> Second = [] {};
    std::function<void()> Progress = [] {};
  } Commands;

  enum class Caption { Count, Stop, Processing };
  void SetCountPhrasesCaption(Caption caption);
  /// Shows the bar, empty, and starts the timers.
  void Begin();
  void End();
  void ShowTimeElapsed(std::chrono::seconds elapsed);
  /// Of kWholeProgress; below 0 where nobody can tell. The bar never goes back.
  void ShowProgress(int value);
  void TurnTwirler();
  void EnableDisableButtons(bool enabled);
  std::vector<QWidget*> TabOrder() const;

  static constexpr int kWholeProgress = 1000;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void BuildProgress(QBoxLayout& layout);
  void BuildCommands(QBoxLayout& layout);
  void Connect(Messages& messages);

  size_t twirlerFrame_ = 0;
  QPalette::ColorRole captionRole_ = QPalette::ButtonText;  ///< Of the count button.
};

}  // namespace korv
