#include "desktop/main_window/frm_main.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSettings>
#include <QStyle>
#include <QTimer>

#include "app/run/left_out_words.h"
#include "app/run/rules_text.h"
#include "app/run/run_request.h"
#include "app/run/words_in_force.h"
#include "base/translation.h"
#include "desktop/dialogs/frm_help.h"
#include "desktop/dialogs/frm_popup.h"
#include "desktop/main_window/clipboard_page.h"
#include "desktop/main_window/compare_panel.h"
#include "desktop/main_window/folder_page.h"
#include "desktop/main_window/main_layout.h"
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
#include "desktop/main_window/source_surveyor.h"
#include "desktop/main_window/table_actions.h"
#include "desktop/main_window/words_to_ignore_panel.h"
#include "desktop/questions.h"
#include "desktop/results/chip_row.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/head_line.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/settings_window/settings_commands.h"
#include "desktop/settings_window/word_lists_panel.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/placement.h"
#include "desktop/widgets/settings_binding.h"
#include "desktop/widgets/wiring.h"

namespace korv {
namespace {

constexpr int kFirstCommonWordsQuestion = 41;
constexpr int kFirstCommonWordsTitle = 42;
constexpr int kFirstFolderFormat = 10;
constexpr int kTick = 1000;  // milliseconds

Desktop With(const Desktop& desktop, Messages& messages) {
  return {.Messages = messages,
          .Dialogs = desktop.Dialogs,
          .Clipboard = desktop.Clipboard,
          .Launcher = desktop.Launcher,
          .Files = desktop.Files,
          .Loop = desktop.Loop,
          .Yielder = desktop.Yielder,
          .Clock = desktop.Clock,
          .Numbers = desktop.Numbers,
          .ProgramText = desktop.ProgramText,
          .ProgramFolder = desktop.ProgramFolder,
          .StateFile = desktop.StateFile,
          .Store = desktop.Store,
          .Encoding = desktop.Encoding};
}

/// What was counted and how is `chosen` again; how it is listed, and where, stays as it is.
void TakeBack(Workspace::State& state, const Workspace::State& chosen) {
  const Settings now = std::exchange(state, chosen).Chosen;
  state.Chosen.Report = now.Report;
  state.Chosen.OutputFile = now.OutputFile;
  state.Chosen.DisableOutputToFile = now.DisableOutputToFile;
  state.Chosen.SaveStateOnQuit = now.SaveStateOnQuit;
  state.Chosen.WarnOnOverwrite = now.WarnOnOverwrite;
}

}  // namespace

frmMain::frmMain(const Desktop& desktop)
    : runClock_(desktop.Clock), messages_(desktop.Messages, runClock_), desktop_(With(desktop, messages_)) {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(QStringLiteral("Korv"));
  panels_ = LayOutPanels(*this, desktop_, work_,
                         {.ClearBusy = [this] { panels_.Run->lblTwirler->clear(); },
                          .CountSoFar = [this] { return run_ ? run_->CountSoFar() : std::string(); }});
  popUp_ = new frmPopUp(this);
  Timer1 = Named(new QTimer(this), "Timer1");
  Timer1->setInterval(kTick);
}

frmMain::~frmMain() {
  // Hidden controls report a lost focus, and no handler may ask a question any more.
  FallSilent(*this);
  if (params_) FallSilent(*params_);
  // What becomes of the controls from now on is no change of a setting.
  binding_.reset();
  if (params_) params_->hide();
  hide();
  StopListening(*this);
  // What goes on uses the result.
  run_.reset();
  // The panels call the controllers, which are members, and go before them.
  delete takeCentralWidget();
}

bool frmMain::LoadProgramText() {
  auto texts = ProgramTextFile::Load(desktop_.Files, desktop_.ProgramText);
  if (!texts) {
    desktop_.Messages.Show({.Text = texts.Error().Text(), .Title = {}, .Icon = Icon::Critical});
    return false;
  }
  texts_ = std::make_unique<ProgramTextFile>(std::move(*texts));
  return true;
}

bool frmMain::Form_Load() {
  if (!texts_ && !LoadProgramText()) return false;

  RestoreGeometry();
  MakeControllers();
  panels_.Phrases->FillLists();
  panels_.Report->FillLists(*texts_);
  ConnectSettings();
  MakeMenus();
  ConnectPanels();
  WatchDrops();
  EnableDisableButtons(true);
  Initialize();
  // Not those of "Reinitialize" in everything: before any state is restored the long words are others.
  work_.Change(ChangedBy::Program, SettingsAtStart());
  EnableDisableButtons(true);
  HideWhatDoesNotApply();

  settingsController_->RestoreStateFile();
  const std::string filterWords = work_.Current().Report.FilterText;
  CorrectRestoredSettings();
  if (work_.Current().WordsFiles.empty()) OfferCommonWords();
  SetWordsToIgnoreNotice();
  panels_.Report->EnableDisableReportOptions(panels_.Source->Kind(), false);
  panels_.Result->OfferSample(desktop_.Files.FileExists(SamplePath()));
  Timer1->start();
  SetCountPhrasesCaption();
  // Those of the state file come last of all, so that no default wipes them out.
  work_.Change(ChangedBy::Program, [&](Settings& settings) { settings.Report.FilterText = filterWords; });
  Timer1_Timer();
  run_->WhenIdle([this] { SetTheFocus(); });
  settingsController_->RememberStart();
  startUpCompleted_ = true;
  return true;
}

void frmMain::HideWhatDoesNotApply() {
  panels_.WordsToIgnore->lblWordsToIgnoreNotice->clear();
  panels_.Report->chkSuppressWords->setChecked(true);
  panels_.Report->chkSuppressWords->hide();
  panels_.Source->Folder->cmdListFiles->hide();
  panels_.Run->lblTimeElapsed->hide();
  panels_.Report->chkFileList->hide();
}

void frmMain::CorrectRestoredSettings() {
  work_.Change(ChangedBy::Program, [](Settings& settings) {
    settings.Report.FilterText.clear();
    if (settings.SourceKind != TextSource::Folder && settings.Report.DisplayFormat >= kFirstFolderFormat) {
      settings.Report.DisplayFormat = 0;
    }
    if (!settings.IgnoreOption) settings.IgnoreOption = IgnoreRule::ExcludeAll;
  });
}

void frmMain::OfferCommonWords() {
  const bool load = desktop_.Messages.Show({.Text = texts_->Get(kFirstCommonWordsQuestion),
                                            .Title = texts_->Get(kFirstCommonWordsTitle),
                                            .Icon = Icon::Question,
                                            .Buttons = Buttons::YesNo,
                                            .DefaultAnswer = Answer::Yes,
                                            .Question = questions::kFirstCommonWords}) == Answer::Yes;
  if (load) return params_->Lists->LoadCommonWordsOfEnglish();
  work_.Change(ChangedBy::Program,
               [](Settings& settings) { settings.CommonWordsLanguage = CommonWords::None; });
}

void frmMain::OpenGivenPaths(const QStringList& paths) {
  run_->WhenIdle([this, paths] { OpenPaths(paths); });
}

void frmMain::OpenPaths(const QStringList& paths) {
  opening_->OpenPaths(paths);
}

void frmMain::EnableDisableButtons(bool enabled) {
  panels_.Source->EnableDisableButtons(enabled);
  panels_.Compare->EnableDisableButtons(enabled);
  panels_.Phrases->EnableDisableButtons(enabled);
  panels_.WordsToIgnore->EnableDisableButtons(enabled);
  panels_.OutputFile->EnableDisableButtons(enabled);
  panels_.Run->EnableDisableButtons(enabled);
  panels_.Frame->Notes->EnableWaysOut(enabled);
  panels_.Frame->Head->Chips->EnableDisableButtons(enabled);
  panels_.Result->EnableDisableButtons(enabled);
  menus_->EnableDisableButtons(enabled);
  params_->EnableDisableButtons(enabled);
  panels_.Surveyor->Enable(enabled);
  if (enabled) params_->EnableClearButtons();
}

void frmMain::EnableClearButtons() {
  if (!run_->Idle()) return;
  panels_.Source->EnableClearButtons();
  panels_.OutputFile->EnableClearButtons();
  panels_.Result->EnableClearButtons();
  params_->EnableClearButtons();
}

void frmMain::SetTheFocus() {
  activateWindow();
  panels_.Run->cmdCountPhrases->setFocus();
}

void frmMain::SetCountPhrasesCaption() {
  const bool reads = run_->Doing() == RunActivity::ReadingWords;
  panels_.Run->SetCountPhrasesCaption(Running() ? RunPanel::Caption::Stop
                                      : reads   ? RunPanel::Caption::Processing
                                                : RunPanel::Caption::Count);
  menus_->EnableStop(Running());
}

void frmMain::SetTitle() {
  const std::string name = panels_.Source->Name();
  setWindowTitle(name.empty() ? QStringLiteral("Korv") : ToQt(name) + QStringLiteral(" - Korv"));
}

void frmMain::Timer1_Timer() {
  panels_.Result->SuggestWidth();
  EnableClearButtons();
  params_->Lists->ShowWordFilesState();
  panels_.Source->SetPathToolTips();
  panels_.OutputFile->SetPathToolTips();
  panels_.Source->ShowFileChoices();
}

void frmMain::SourceHasChanged(ChangedBy by) {
  const bool user = by == ChangedBy::User;
  panels_.Report->EnableDisableReportOptions(panels_.Source->Kind(), user && startUpCompleted_);
  // What the program changes is followed when it has changed everything.
  if (user) result_->FollowControls();
}

void frmMain::TakeSettingsBack(int run) {
  const OpenRuns& runs = result_->Runs();
  if (!run_->Idle() || !runs.At(run).Chosen) return;
  steps_->Do(Fill(Tr("Settings of %1"), {FromQt(runs.NameOf(run))}),
             [&](Workspace::State& state) { TakeBack(state, *runs.At(run).Chosen); });
}

void frmMain::CountLeftOut() {
  const std::shared_ptr<ShownResult> shown = result_->InFront();
  steps_->Do(Tr("Count words left out"), [&](Workspace::State& state) {
    // Another source may be chosen by now, or other rules.
    if (shown->Chosen) TakeBack(state, *shown->Chosen);
    state.Chosen.Words = RulesThatTake(state.Chosen.Words, shown->Run.Facts.Words);
  });
  IsOfSingleWords(*shown) ? run_->CountSingleWords() : run_->cmdCountPhrases_Click();
}

std::filesystem::path frmMain::SamplePath() const {
  return desktop_.ProgramFolder / "sample.txt";
}

void frmMain::TrySample() {
  if (!run_->Idle()) return;
  panels_.Source->Take(ToQt(PathToText(SamplePath())));
  run_->cmdCountPhrases_Click();
}

void frmMain::ShowWords() {
  panels_.WordsToIgnore->ShowWords(WordsInForceText(work_, desktop_.Numbers),
                                   WordRulesText(WordRulesOf(work_.Current())));
  panels_.Source->ShowReading(ReadingText(work_.Current()));
}

void frmMain::SettingsHaveChanged(const SettingSet& changed, ChangedBy by) {
  panels_.Source->Folder->ShowTogether(work_.Together());
  panels_.Compare->Follow();
  SetTitle();
  EnableClearButtons();
  panels_.Result->Filter->EnableClearButton();
  params_->SettingsHaveChanged(changed);
  ShowWords();
  panels_.Surveyor->Follow();
  result_->ShowResult();
  if (by == ChangedBy::Program) return;
  steps_->Forget();
  if (Has(changed, "Reading"))
    work_.Change(by, [](Settings& settings) { ApplyReading(settings.Reading, settings); });
  if (Has(changed, "DisplayFormat")) panels_.Report->cboDisplayFormat_Click();
  if (Has(changed, "WordOrder")) panels_.Report->cboWordOrder_Click();
}

void frmMain::RunEnded() {
  result_->RunEnded();
  if (!run_->Abandoned()) return;
  QTimer::singleShot(0, this, Guarded(messages_, "cmdQuit_Click", [this] { cmdQuit_Click(); }));
}

// ---- Quitting, the other windows

void frmMain::cmdQuit_Click() {
  if (EndProgram()) close();
}

bool frmMain::EndProgram() {
  if (ended_) return true;
  if (Running()) {
    // The run ends first; then the window closes, and nothing more is asked.
    if (!run_->Abandoned()) EndTheRun();
    return false;
  }
  if (run_ && !run_->Idle()) run_->Abandon();
  if (startUpCompleted_) settingsController_->OfferToKeepSettings();
  if (work_.Current().SaveStateOnQuit) settingsController_->SaveState();
  StoreGeometry();
  params_->hide();
  if (help_) help_->hide();
  panels_.Source->Clipboard->HideViewer();
  ended_ = true;
  return true;
}

void frmMain::EndTheRun() {
  const auto hold = run_->HoldStill();
  if (!params_->Commands->ReallyQuit()) return;
  if (startUpCompleted_) settingsController_->OfferToKeepSettings();
  run_->Abandon();
}

void frmMain::closeEvent(QCloseEvent* event) {
  // A state that cannot be saved keeps nobody from leaving.
  bool ended = true;
  Guarded(messages_, "Form_Unload", [&] { ended = EndProgram(); })();
  event->setAccepted(ended);
}

void frmMain::cmdSetParameters_Click() {
  params_->show();
  params_->raise();
  params_->activateWindow();
}

void frmMain::FoldColumn() {
  panels_.Column->setVisible(!panels_.Column->isVisibleTo(this));
}

void frmMain::GoToSource() {
  panels_.Column->show();
  panels_.Source->StartChoosing();
}

void frmMain::SaveListAs() {
  // Without a result there is only the name to choose.
  result_->HasResult() ? result_->TakeWayOut(NoteAction::WriteToFile) : panels_.OutputFile->cmdFile_Click();
}

void frmMain::cmdHelp_Click() {
  if (!help_) help_ = std::make_unique<frmHelp>(*texts_);
  if (!help_->isVisible()) CentreOver(*help_, *this);
  help_->show();
  help_->raise();
  help_->activateWindow();
}

// ---- Geometry

void frmMain::RestoreGeometry() {
  panels_.Column->setVisible(desktop_.Store.value(QStringLiteral("layout/column"), true).toBool());
  if (desktop_.Store.contains(QStringLiteral("geometry/main"))) {
    restoreGeometry(desktop_.Store.value(QStringLiteral("geometry/main")).toByteArray());
    return;
  }
  // The first time: as high as the screen allows, up to where more height helps nobody.
  // In the middle, for some systems would let a part of it hang out of the screen.
  const QRect room = screen()->availableGeometry();
  const QSize wanted(std::min(1280, room.width() * 9 / 10), std::min(900, room.height() * 94 / 100));
  const QSize size = wanted.expandedTo(minimumSizeHint());
  setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, room));
}

void frmMain::StoreGeometry() {
  desktop_.Store.setValue(QStringLiteral("geometry/main"), saveGeometry());
  desktop_.Store.setValue(QStringLiteral("layout/column"), panels_.Column->isVisibleTo(this));
  panels_.Frame->StoreLayout();
  // One that was never shown has no place yet.
  if (params_->windowHandle() != nullptr)
    desktop_.Store.setValue(QStringLiteral("geometry/settings"), params_->saveGeometry());
}

// ---- What the Settings window asks

void frmMain::ApplySettings(const Settings& settings) {
  settingsController_->Apply(settings);
}

void frmMain::Initialize() {
  settingsController_->Initialize();
}

std::string frmMain::SaveStateTo(const std::filesystem::path& path) {
  return settingsController_->SaveStateTo(path);
}

void frmMain::SaveStateFile(QWidget* window) {
  settingsController_->SaveStateFile(window);
}

RestoreOutcome frmMain::RestoreSavedState(const std::filesystem::path& path) {
  return settingsController_->RestoreSavedState(path);
}

bool frmMain::Running() const {
  return run_ && run_->Running();
}

bool frmMain::Idle() const {
  return !run_ || run_->Idle();
}

bool frmMain::ResultKeepsTo(const WordRules& rules) const {
  return result_->ResultKeepsTo(rules);
}

void frmMain::ReadWords(const WordListRequest& request, std::function<void(ReadWordList)> done) {
  run_->ReadWords(request, std::move(done));
}

void frmMain::WhenIdle(std::function<void()> act) {
  run_->WhenIdle(std::move(act));
}

void frmMain::SetWordsToIgnoreNotice() {
  panels_.WordsToIgnore->SetWordsToIgnoreNotice(work_.Current().IgnoreOption.value_or(IgnoreRule::Allow),
                                                work_.HasWordsToIgnore());
  ShowWords();
  result_->ShowResult();
}

void frmMain::PopUpInForm(const QString& notice, QWidget* window) {
  popUp_->PopUpInForm(notice, window != nullptr ? window : this);
}

}  // namespace korv
