#pragma once

#include <QMainWindow>
#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "app/run/output_box.h"
#include "app/run/result_notes.h"
#include "app/run/run.h"
#include "app/run/run_clock.h"
#include "app/run/shown_result.h"
#include "app/settings/saved_state.h"
#include "app/settings/settings.h"
#include "app/texts/program_text.h"
#include "desktop/desktop.h"
#include "desktop/main_window/frm_main_controls.h"
#include "desktop/main_window/muted_messages.h"
#include "desktop/main_window/output_text_box.h"
#include "desktop/main_window/recent_sources.h"
#include "desktop/settings_window/settings_keeper.h"
#include "engine/counting/run_options.h"
#include "report/error_text.h"
#include "report/list_words.h"
#include "report/output_file.h"
#include "report/report_options.h"
#include "sources/detect/encoding_choice.h"
#include "wordlists/read_words.h"

class QAction;
class QMenu;

namespace korv {

class frmClipboard;
class frmHelp;
class frmParams;
class frmPopUp;

/// The program's main window: start-up, source and report controls, the text box, the two timers, quitting.
/// What it counts and how it lists is done elsewhere; it hands records over and shows what comes back.
///
/// Handlers carry the names of their controls. Members of the window's parts are in frm_main_<part>.cpp.
class frmMain final : public QMainWindow, public FrmMainControls {
 public:
  explicit frmMain(const Desktop& desktop);
  ~frmMain() override;

  // ---- Life cycle

  /// The first step of start-up, which needs no window. False when the program's texts cannot be loaded; the
  /// user has been told, and the program ends.
  bool LoadProgramText();
  /// Start-up. False when LoadProgramText() has not been called and fails.
  bool Form_Load();
  /// A fresh state, as "Reinitialize" wants it. May ask whether to clear the word-list files.
  void Initialize();
  /// Enables, or disables for the time of a run, what must not be used during one.
  void EnableDisableButtons(bool enabled);
  void SetTheFocus();
  void SetWordsToIgnoreNotice();
  void SetCountPhrasesCaption();
  /// Saves the state file and tells so in a pop-up. `window` is where the pop-up belongs.
  void SaveStateFile(QWidget* window);

  // ---- Settings (frm_main_settings.cpp)

  /// What the controls of both windows say.
  Settings GatherSettings() const;
  /// Puts it into the controls, without asking anything. A list in sight follows them.
  void ApplySettings(const Settings& settings);
  /// An empty path is the state file. Empty on success, else the message to show.
  std::string SaveStateTo(const std::filesystem::path& path);
  /// Reads a settings file into the controls; may ask to load its word list.
  RestoreOutcome RestoreSavedState(const std::filesystem::path& path);

  // ---- What the Settings window asks

  frmParams& Params() { return *params_; }
  const Desktop& Outside() const { return desktop_; }
  frmPopUp& PopUps() { return *popUp_; }
  OutputBox& Output() { return *output_; }
  /// The selected source.
  TextSource SourceKind() const;
  /// Selects a source and runs its handler.
  void SelectSource(TextSource source);
  /// Words have been read and their phrases can be listed.
  bool HasResult() const { return result_ != nullptr; }
  /// They were read under the word rules that are chosen now.
  bool ResultKeepsToWordRules() const;
  bool StartUpCompleted() const { return startUpCompleted_; }
  bool Running() const { return running_; }
  /// Neither counting nor listing, and no word list is being read.
  bool Idle() const { return !running_ && !readingList_; }
  const ProgramText& Texts() const { return *texts_; }

  // ---- Source (frm_main_source.cpp)

  void optOnClipboard_Click();
  void optInFile_Click();
  void optFolder_Click();
  void cmdFile_Click(int index);
  /// Lets the user choose the output file. False when none was, or one that must not be written.
  bool ChooseOutputFile();
  void cmdClearFile_Click(int index);
  void txbFile_LostFocus(int index);
  void cmdFolder_Click();
  void cmdClearFolder_Click();
  void txbFolder_LostFocus();
  void txbFileFilepathSpecifications_LostFocus(int index);
  void cmdListFiles_Click();
  void cmdClipboardViewer_Click();
  /// Makes a file or a folder the source.
  void TakeSource(const QString& path);

  // ---- Opening (frm_main_open.cpp)

  /// Opens what was dropped or given to the program: a text or a folder becomes the source, a settings file
  /// is loaded. Several files can be counted together when one folder holds them; else they are refused. Says
  /// what is wrong.
  void OpenPaths(const QStringList& paths);

  // ---- Report options and listing (frm_main_report.cpp)

  ReportOptions GatherReportOptions() const;
  /// Enables, disables and corrects what depends on format, order, source and relative frequency.
  void EnableDisableReportOptions();
  void cboDisplayFormat_Click();
  void cboWordOrder_Click();
  void chkDisplayRelativeFrequency_Click();
  void chkSortByNumberOfFiles_Click();
  void chkFileList_Click();
  void chkDisableOutputToFile_Click();
  void txbFilterWords_LostFocus();
  void txbFilterWords_KeyPress(int key);
  void cmdFilterResults_Click();
  void cmdClear_Click();
  void cmdClearOutput_Click();
  void optFilterMode_Click();
  /// Lists the counted phrases: into the output file, if there is one and `toFile`, else into the text box.
  void ListTheResult(bool filtered, bool toFile = true);

  // ---- What is told of the result (frm_main_result.cpp)

  /// Brings all that tells of the result to what is true now. Called whenever something has changed.
  void ShowResult();
  /// The report options have changed, but not by the user's own choice: lists anew if that writes no file.
  void FollowControls();
  /// A way out of a note.
  void TakeWayOut(NoteAction action);

  // ---- The run (frm_main_run.cpp)

  void cmdCountPhrases_Click();
  /// Does `work` with the buttons disabled, `notice` in the text box and the count button busy.
  void WhileBusy(const std::string& notice, const std::function<void(ListReading&)>& work);

  // ---- Others

  void cmdSaveState_Click();
  void cmdSetParameters_Click();
  void cmdHelp_Click();
  void cmdQuit_Click();
  void Timer1_Timer();
  void Timer2_Timer();
  /// Several times a second during a run: the bar, the twirler, the status line.
  void tmrProgress_Timer();

  /// `handler` with its errors shown, not thrown: they must not pass through the toolkit.
  template <typename Handler>
  auto Guarded(const char* place, Handler handler) {
    return [this, place, handler = std::move(handler)](auto&&...) {
      try {
        handler();
      } catch (const std::bad_alloc&) {
        ShowInsufficientMemory();
      } catch (const std::exception& error) {
        ShowUnexpectedError(place, error.what());
      }
    };
  }

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  class WindowRunObserver;
  class BoxContents;
  /// The window is in its running state for as long as this lives.
  class RunGuard {
   public:
    explicit RunGuard(frmMain& main, bool counts = false) : main_(main) { main_.BeginRun(counts); }
    ~RunGuard() { main_.EndRun(); }
    RunGuard(const RunGuard&) = delete;
    RunGuard& operator=(const RunGuard&) = delete;

   private:
    frmMain& main_;
  };

  /// Saves what is to be saved and hides the other windows. False while a run is still going on.
  bool EndProgram();
  /// Offers to keep settings that are about to be forgotten. Only once: later calls do nothing.
  void OfferToKeepSettings();
  void OpenTogether(const QStringList& paths);
  void WatchDrops();
  /// Keeps the list of recent sources up to date, and lets a click on an entry choose it.
  void ConnectRecent();
  void RestoreStateFile();
  void FillLists();
  void Connect();
  /// Whatever a count or a listing goes by tells of its changes.
  void ConnectResult();
  void SourceHasChanged();
  void RelistAfterChange();
  /// Lists anew, soon, where something was chosen while that could not be done.
  void FollowWhatChangedMeanwhile();
  void PutIntoControls(const Settings& settings);
  bool WantsFilter() const;
  /// What is chosen now, for comparing it with what is shown.
  ChosenNow GatherChosen() const;
  void SetTitle();
  void ShowLastList();
  /// Nothing is told of any result while another one is being counted.
  void HideResult();
  std::string CountSoFar() const;
  void BuildMenus();
  void FillRecentMenu(QMenu* menu);
  void RestoreGeometry();
  void StoreGeometry();
  void EnableClearButtons();
  void SetPathToolTips();
  void ShowFileSizes();
  void ShowStatus(const QString& text);
  RunRequest GatherRunRequest() const;
  void ShowCounts(uint64_t files, uint64_t words, uint64_t phrases);
  /// Hides the fields of the status line that tell of a result.
  void HideCounts();
  void TakeResult(const RunRequest& request, CountedRun run);
  ShownListing ListIntoBox(const Report& report);
  ShownListing ListIntoFile(const Report& report, const std::string& path);
  void ShowWritingProgress(uint32_t phrases);
  /// Where the report is to be written; empty for the text box. May ask, and may disable file output.
  std::optional<std::string> ConfirmedOutputPath();
  /// Whether writing to `path` would destroy what was counted; says so.
  bool OutputIsSource(const std::string& path);
  /// `counts`: its time is told.
  void BeginRun(bool counts);
  void EndRun();
  void ShowTimeElapsed();
  void ShowInsufficientMemory();
  void ShowUnexpectedError(const char* place, const char* description);

  RunClock runClock_;
  MutedMessages messages_;
  Desktop desktop_;  ///< As given, but its messages are the ones above.
  std::unique_ptr<ProgramText> texts_;
  std::unique_ptr<OutputTextBox> outputTextBox_;
  std::unique_ptr<OutputBox> output_;
  std::unique_ptr<frmParams> params_;
  std::unique_ptr<frmHelp> help_;
  std::unique_ptr<frmClipboard> clipboardViewer_;
  frmPopUp* popUp_ = nullptr;
  std::unique_ptr<OverwriteGuard> overwrite_;
  EncodingChooser encodings_;
  SettingsKeeper keeper_;
  RecentSources recentFiles_;
  RecentSources recentFolders_;
  QList<QAction*> idleActions_;  ///< Commands that rest during a run.
  QAction* stopAction_ = nullptr;

  bool startUpCompleted_ = false;
  bool restoring_ = false;  ///< Settings are being put into the controls.
  bool running_ = false;
  bool readingList_ = false;
  bool macNoticeShown_ = false;  ///< It is shown once while the program runs.
  bool ended_ = false;
  bool quitRequested_ = false;
  std::unique_ptr<ShownResult> result_;
  const CountedRun* counting_ = nullptr;  ///< The run that is going on.
  bool countShown_ = false;               ///< It has shown its first status.
  RunProgress progress_;
  QTimer* tmrProgress_ = nullptr;
  size_t twirlerFrame_ = 0;
  /// Something was chosen while a listing went on; it will be looked at afterwards.
  bool changedMeanwhile_ = false;
};

}  // namespace korv
