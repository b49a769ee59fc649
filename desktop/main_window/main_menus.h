#pragma once

#include <QKeySequence>
#include <QList>
#include <QObject>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/results/run_tabs.h"

class QAction;
class QComboBox;
class QMenu;
class QMenuBar;

namespace korv {

/// The main window's menus, which repeat its commands with keys.
class MainMenus final : public QObject {
 public:
  /// Commands that no panel has.
  struct Commands {
    std::function<void()> CountPhrases;
    std::function<void()> CountSingleWords;
    std::function<void()> Stop;
    std::function<void()> SaveState;
    std::function<void()> LoadSettings;
    std::function<void()> SaveSettings;
    std::function<void()> Quit;
    std::function<void()> GoToSource;
    std::function<void()> CompareWith;
    /// The runs that the one in front can be compared with.
    std::function<std::vector<NamedRun>()> ComparableRuns;
    std::function<void(int run)> CompareRun;
    std::function<void()> SaveListAs;
    std::function<void()> Export;
    std::function<void()> KeepRun;
    std::function<void()> OpenKeptRun;
    std::function<bool()> HasRun;  ///< There is a run to be exported and kept.
    std::function<void()> FoldColumn;
    std::function<void()> TakeSettingsBack;  ///< Those of the run in front.
    std::function<void()> CloseRun;
    std::function<void()> Undo;
    /// What "Undo" would undo; empty for nothing.
    std::function<std::string()> Undoable;
    std::function<void()> Settings;
    std::function<void()> Help;
  };
  /// Fills `bar`. The lists of the panels have their items. The parts have to outlive this.
  MainMenus(QMenuBar& bar, const Desktop& desktop, const MainPanels& panels, Commands commands);

  /// What rests during a run.
  void EnableDisableButtons(bool enabled);
  void EnableStop(bool enabled);

 private:
  enum class During { Idle, Always };

  QAction* Add(QMenu* menu, const char* caption, const QKeySequence& key, std::function<void()> handler,
               During during = During::Idle);
  void BuildFile(QMenuBar& bar);
  void BuildEdit(QMenuBar& bar);
  void BuildView(QMenuBar& bar);
  /// The views of a run, and what else is shown.
  void AddViews(QMenu* menu);
  void BuildHelp(QMenuBar& bar);
  /// A menu with the items of a list, whose selected one is ticked.
  void MirrorList(QMenu* menu, QComboBox* list);
  void FillRecent(QMenu* menu);
  void ShowAbout();

  const Desktop& desktop_;
  const MainPanels& panels_;
  Commands commands_;
  QList<QAction*> idleActions_;  ///< Commands that rest during a run.
  QAction* stop_ = nullptr;
  QAction* export_ = nullptr;
  QAction* keep_ = nullptr;
};

}  // namespace korv
