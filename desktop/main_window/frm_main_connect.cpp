// The wiring of the main window: which part calls which.

#include <QCheckBox>
#include <QComboBox>
#include <QMenuBar>
#include <QRadioButton>
#include <QTimer>

#include "base/translation.h"
#include "desktop/main_window/compare_panel.h"
#include "desktop/main_window/file_drops.h"
#include "desktop/main_window/folder_page.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/main_window/main_menus.h"
#include "desktop/main_window/opening.h"
#include "desktop/main_window/output_file_panel.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/report_panel.h"
#include "desktop/main_window/result_controller.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/settings_controller.h"
#include "desktop/main_window/settings_steps.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/table_actions.h"
#include "desktop/main_window/words_to_ignore_panel.h"
#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/contexts/why_panel.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/results/run_tabs.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/settings_window/word_lists_panel.h"
#include "desktop/widgets/settings_binding.h"
#include "desktop/widgets/wiring.h"

namespace korv {

void frmMain::MakeControllers() {
  params_ = std::make_unique<frmParams>(*this);
  run_ = std::make_unique<RunController>(
      desktop_, runClock_, panels_, work_, *texts_,
      RunController::Hooks{.EnableDisableButtons = [this](bool enabled) { EnableDisableButtons(enabled); },
                           .SetCountPhrasesCaption = [this] { SetCountPhrasesCaption(); },
                           .HideResult = [this] { result_->HideResult(); },
                           .ShowResultAgain = [this] { result_->ShowResultAgain(); },
                           .Counted = [this](FinishedRun finished) { result_->Take(std::move(finished)); },
                           .Ended = [this] { RunEnded(); }});
  result_ = std::make_unique<ResultController>(desktop_, panels_, work_, *run_,
                                               [this](std::optional<ListKind> kind) {
                                                 if (kind) params_->Lists->ShowList(*kind);
                                                 cmdSetParameters_Click();
                                               });
  settingsController_ = std::make_unique<SettingsController>(
      desktop_, panels_, work_, *params_, *popUp_,
      SettingsController::Hooks{.Applied = [this] { result_->FollowControls(); },
                                .WordsChanged = [this] { SetWordsToIgnoreNotice(); }});
  steps_ = std::make_unique<SettingsSteps>(work_, *settingsController_);
  tableActions_ = std::make_unique<TableActions>(panels_, work_, *steps_, *result_);
  result_->RunChanged = [this] {
    panels_.Result->OfferSample(false);
    tableActions_->FollowRun();
  };
  result_->Shown = [this] { tableActions_->ShowChips(); };
  result_->CountLeftOut = [this] { CountLeftOut(); };
  opening_ = std::make_unique<Opening>(
      desktop_, *panels_.Source, [this] { return run_->Idle(); },
      [this](const std::filesystem::path& path) { params_->OpenSettingsFile(path); },
      [this](const std::filesystem::path& path) { result_->Kept().Open(path); },
      [this](std::vector<SourcePath> paths) {
        work_.CountTogether(ChangedBy::User, std::move(paths));
        panels_.Source->Select(TextSource::Folder, ChangedBy::User);
      });
}

void frmMain::MakeMenus() {
  menus_ = std::make_unique<MainMenus>(
      *menuBar(), desktop_, panels_,
      MainMenus::Commands{
          .CountPhrases = [this] { run_->cmdCountPhrases_Click(); },
          .CountSingleWords = [this] { run_->CountSingleWords(); },
          .Stop =
              [this] {
                if (Running()) run_->cmdCountPhrases_Click();
              },
          .SaveState = [this] { SaveStateFile(this); },
          .LoadSettings = [this] { params_->cmdSaveLoadState_Click(0, this); },
          .SaveSettings = [this] { params_->cmdSaveLoadState_Click(1, this); },
          .Quit = [this] { cmdQuit_Click(); },
          .GoToSource = [this] { GoToSource(); },
          .CompareWith =
              [this] {
                panels_.Column->show();
                panels_.Compare->Open();
              },
          .ComparableRuns = [this] { return result_->ComparableWith(panels_.Frame->Tabs->currentIndex()); },
          .CompareRun =
              [this](int run) {
                Guarded(messages_, "mnuCompareRun_Click",
                        [&] { result_->CompareRuns(panels_.Frame->Tabs->currentIndex(), run); })();
              },
          .SaveListAs = [this] { SaveListAs(); },
          .Export = [this] { result_->Tables().Export(); },
          .KeepRun = [this] { result_->Kept().KeepRun(); },
          .OpenKeptRun = [this] { result_->Kept().OpenKeptRun(); },
          .HasRun = [this] { return result_->HasResult(); },
          .FoldColumn = [this] { FoldColumn(); },
          .TakeSettingsBack = [this] { TakeSettingsBack(panels_.Frame->Tabs->currentIndex()); },
          .CloseRun = [this] { result_->CloseRun(panels_.Frame->Tabs->currentIndex()); },
          .Undo = [this] { steps_->Undo(); },
          .Undoable = [this] { return steps_->Undoable(); },
          .Settings = [this] { cmdSetParameters_Click(); },
          .Help = [this] { cmdHelp_Click(); }});
}

void frmMain::ConnectPanels() {
  panels_.Frame->Tabs->SettingsWanted = [this](int run) {
    Guarded(messages_, "tabRuns_TakeSettingsBack", [&] { TakeSettingsBack(run); })();
  };
  SourcePanel& source = *panels_.Source;
  source.KindChanged = [this](ChangedBy by) { SourceHasChanged(by); };
  source.RecentChosen = [this](const QString& path) { OpenPaths({path}); };
  source.Folder->ListFilesOf = [this](const std::filesystem::path& folder, const FileSelection& files) {
    run_->ListFolderFiles(folder, files, panels_.Source->Folder->chkIncludeSubfolders->isChecked());
  };
  source.Folder->ListTogether = [this](const FileSelection& files) {
    run_->ListFilesTogether(work_.Together(), files,
                            panels_.Source->Folder->chkIncludeSubfolders->isChecked());
  };
  source.Folder->ReadsOtherDocuments = [this] { return work_.Current().Documents.Others; };
  source.Folder->TogetherEnded = [this] { work_.CountTogether(ChangedBy::User, {}); };
  panels_.WordsToIgnore->RuleChosen = [this] { SetWordsToIgnoreNotice(); };
  panels_.WordsToIgnore->SetParametersWanted = [this] { cmdSetParameters_Click(); };
  panels_.Report->Changed = [this] { result_->RelistAfterChange(); };
  panels_.OutputFile->EnabledByUser = [this] { result_->OfferToWrite(); };
  panels_.OutputFile->Refuses = [&source](const std::string& path) { return source.RefusesOutput(path); };
  panels_.Run->Commands = {.CountPhrases = [this] { run_->cmdCountPhrases_Click(); },
                           .SaveState = [this] { SaveStateFile(this); },
                           .Help = [this] { cmdHelp_Click(); },
                           .Quit = [this] { cmdQuit_Click(); },
                           .Second = [this] { run_->Timer2_Timer(); },
                           .Progress = [this] { run_->tmrProgress_Timer(); }};
  ResultPanel& result = *panels_.Result;
  result.SampleWanted = [this] { TrySample(); };
  result.Cleared = [this] { result_->ForgetListing(); };
  panels_.Frame->Notes->OnAction([this](NoteAction action) {
    Guarded(messages_, "TakeWayOut", [&] { result_->TakeWayOut(action); })();
  });
  panels_.Frame->Contexts->Why->WayOut = [this](NoteAction action) {
    Guarded(messages_, "TakeWayOut", [&] { result_->TakeWayOut(action); })();
  };
  panels_.Frame->Table->ExportWanted = [this] { result_->Tables().Export(); };
  panels_.Frame->Table->CountWithShortWords = [this] {
    steps_->Do(Tr("Count short words"),
               [](Workspace::State& state) { state.Chosen.Words.IgnoreShortWords = false; });
    run_->cmdCountPhrases_Click();
  };
  result.Filter->FilterResults = [this] { result_->FilterResults(); };
  result.Filter->ModeChosen = [this] { result_->RelistAfterChange(); };
  connect(Timer1, &QTimer::timeout, this, Guarded(messages_, "Timer1_Timer", [this] { Timer1_Timer(); }));
}

void frmMain::ConnectSettings() {
  binding_ =
      std::make_unique<SettingsBinding>(work_, messages_, std::vector<const QWidget*>{this, params_.get()});
  // The controls are bound first: they are up to date when this hears of a change.
  work_.OnChange([this](const SettingSet& changed, ChangedBy by) { SettingsHaveChanged(changed, by); });
}

void frmMain::WatchDrops() {
  auto* drops = new FileDrops(
      this, [this] { return startUpCompleted_ && run_->Idle(); },
      [this](const QStringList& paths) { Guarded(messages_, "OpenPaths", [&] { OpenPaths(paths); })(); });
  drops->Watch(*this);
  drops->Watch(*params_);
  // What is dropped there is what to compare with; this filter comes before that of the window.
  auto* compared = new FileDrops(
      this, [this] { return startUpCompleted_ && run_->Idle(); },
      [this](const QStringList& paths) {
        Guarded(messages_, "txbCompared_Drop", [&] { panels_.Compare->TakeDropped(paths); })();
      });
  compared->Watch(*panels_.Compare);
}

}  // namespace korv
