#pragma once

#include <QMainWindow>
#include <memory>
#include <string>

#include "app/run/run_clock.h"
#include "app/texts/program_text.h"
#include "app/workspace.h"
#include "desktop/desktop.h"
#include "desktop/main_window/clocked_messages.h"
#include "desktop/main_window/main_panels.h"
#include "desktop/settings_window/settings_host.h"
#include "desktop/widgets/guarded.h"
#include "engine/run_options.h"

class QTimer;

namespace korv {

class frmHelp;
class frmParams;
class frmPopUp;
class MainMenus;
class Opening;
class ResultController;
class RunController;
class SettingsBinding;
class SettingsController;
class SettingsSteps;
class TableActions;

/// The program's main window. It assembles its panels and the controllers behind them, starts up and quits;
/// all else is theirs.
class frmMain final : public QMainWindow, public SettingsHost {
 public:
  explicit frmMain(const Desktop& desktop);
  ~frmMain() override;

  // ---- Life cycle

  /// The first step of start-up, which needs no window. False when the program's texts cannot be loaded; the
  /// user has been told, and the program ends.
  bool LoadProgramText();
  /// Start-up. False when LoadProgramText() has not been called and fails.
  bool Form_Load();
  /// Opens what was given to the program, once nothing goes on.
  void OpenGivenPaths(const QStringList& paths);
  void OpenPaths(const QStringList& paths);

  // ---- The parts. Those that Form_Load() makes are there after it.

  const MainPanels& Panels() const { return panels_; }
  frmParams& Params() { return *params_; }
  RunController& Run() { return *run_; }
  ResultController& Result() { return *result_; }
  const ProgramText& Texts() const { return *texts_; }

  // ---- Handlers

  void cmdSetParameters_Click();
  void cmdHelp_Click() override;
  void cmdQuit_Click() override;
  /// Once a second: what follows from the state of the controls.
  void Timer1_Timer();
  QTimer* Timer1 = nullptr;

  // ---- What the Settings window asks

  const Desktop& Outside() const override { return desktop_; }
  Workspace& Work() override { return work_; }
  void ApplySettings(const Settings& settings) override;
  void Initialize() override;
  std::string SaveStateTo(const std::filesystem::path& path) override;
  void SaveStateFile(QWidget* window) override;
  RestoreOutcome RestoreSavedState(const std::filesystem::path& path) override;
  bool Running() const override;
  bool ResultKeepsTo(const WordRules& rules) const override;
  /// Neither counting nor listing, and no word list is being read.
  bool Idle() const;
  void ReadWords(const WordListRequest& request, std::function<void(ReadWordList)> done) override;
  void WhenIdle(std::function<void()> act) override;
  void SetWordsToIgnoreNotice() override;
  void PopUpInForm(const QString& notice, QWidget* window) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // ---- Start-up

  void MakeControllers();
  void MakeMenus();
  void ConnectPanels();
  void ConnectSettings();
  void WatchDrops();
  void HideWhatDoesNotApply();
  void CorrectRestoredSettings();
  /// Asks whether to load the common words of English, where no list of words to ignore is listed.
  void OfferCommonWords();
  void RestoreGeometry();
  void StoreGeometry();

  /// Enables, or disables for the time of a run, what must not be used during one.
  void EnableDisableButtons(bool enabled);
  void EnableClearButtons();
  void SetTheFocus();
  void SetCountPhrasesCaption();
  void SetTitle();
  void SourceHasChanged(ChangedBy by);
  void FoldColumn();
  /// The focus goes to where the source is chosen.
  void GoToSource();
  /// Asks for a file and writes the list of the run in front into it.
  void SaveListAs();
  /// The settings under which a run was counted are chosen again; what says how it is listed stays.
  void TakeSettingsBack(int run);
  /// Counts the text that comes with the program.
  void TrySample();
  std::filesystem::path SamplePath() const;
  /// Counts anew, as the run in front was counted, but without the rules that left words out of it.
  void CountLeftOut();
  /// Says in the left column which words to ignore are in force, and what a word is.
  void ShowWords();
  /// Shows what follows from settings, which the controls themselves show already.
  void SettingsHaveChanged(const SettingSet& changed, ChangedBy by);
  /// Nothing goes on any more.
  void RunEnded();
  /// Saves what is to be saved and hides the other windows. False while a run is still going on.
  bool EndProgram();
  /// Asks whether to quit during a run, and has it end if so.
  void EndTheRun();

  RunClock runClock_;
  ClockedMessages messages_;
  Desktop desktop_;  ///< As given, but its messages are the ones above.
  std::unique_ptr<ProgramText> texts_;
  Workspace work_;
  MainPanels panels_;
  frmPopUp* popUp_ = nullptr;
  std::unique_ptr<frmParams> params_;
  std::unique_ptr<frmHelp> help_;
  std::unique_ptr<SettingsBinding> binding_;
  std::unique_ptr<SettingsController> settingsController_;
  std::unique_ptr<SettingsSteps> steps_;
  std::unique_ptr<TableActions> tableActions_;
  std::unique_ptr<RunController> run_;
  std::unique_ptr<ResultController> result_;
  std::unique_ptr<Opening> opening_;
  std::unique_ptr<MainMenus> menus_;

  bool startUpCompleted_ = false;
  bool ended_ = false;
};

}  // namespace korv
