#include "desktop/main_window/frm_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>

#include "base/time_text.h"
#include "desktop/dialogs/frm_clipboard.h"
#include "desktop/dialogs/frm_help.h"
#include "desktop/dialogs/frm_popup.h"
#include "desktop/main_window/recent_list.h"
#include "desktop/questions.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/placement.h"
#include "report/report_rules.h"
#include "wordlists/questions.h"

namespace korv {
namespace {

constexpr int kFirstCommonWordsQuestion = 41;
constexpr int kFirstCommonWordsTitle = 42;
constexpr int kFirstFolderFormat = 10;

}  // namespace

frmMain::frmMain(const Desktop& desktop)
    : runClock_(desktop.Clock),
      messages_(desktop.Messages, runClock_),
      desktop_{.Messages = messages_,
               .Dialogs = desktop.Dialogs,
               .Clipboard = desktop.Clipboard,
               .Launcher = desktop.Launcher,
               .Files = desktop.Files,
               .Yielder = desktop.Yielder,
               .Clock = desktop.Clock,
               .Numbers = desktop.Numbers,
               .ProgramText = desktop.ProgramText,
               .ProgramFolder = desktop.ProgramFolder,
               .StateFile = desktop.StateFile,
               .Store = desktop.Store,
               .Encoding = desktop.Encoding},
      recentFiles_(desktop.Store, "recent/files"),
      recentFolders_(desktop.Store, "recent/folders") {
  setObjectName(QStringLiteral("frmMain"));
  setWindowTitle(QStringLiteral("Korv"));
  BuildControls(this);
  outputTextBox_ = std::make_unique<OutputTextBox>(*txbOutput);
  popUp_ = new frmPopUp(this);
  overwrite_ = std::make_unique<OverwriteGuard>(desktop_.Files, desktop_.Messages);
  tmrProgress_ = Named(new QTimer(this), "tmrProgress");
}

frmMain::~frmMain() {
  // Hiding and deleting controls makes them tell of a lost focus; by then nobody may be listening.
  messages_.Mute();
  if (params_) params_->hide();
  hide();
  for (QObject* child : findChildren<QObject*>()) {
    child->removeEventFilter(this);
    child->disconnect(this);
  }
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
  params_ = std::make_unique<frmParams>(*this);
  output_ = std::make_unique<OutputBox>(*outputTextBox_,
                                        OutputBoxHooks{.ClearBusy = [this] { lblTwirler->clear(); },
                                                       .CountSoFar = [this] { return CountSoFar(); }});
  FillLists();
  Connect();
  BuildMenus();
  WatchDrops();
  ConnectRecent();
  EnableDisableButtons(true);
  Initialize();
  SelectSource(TextSource::SingleFile);
  // Before any state is restored the long words are those of more than 40 characters.
  params_->SelectStartUpSizes();
  EnableDisableButtons(true);

  lblWordsToIgnoreNotice->clear();
  chkSuppressWords->setChecked(true);
  chkSuppressWords->hide();
  cmdListFiles->hide();
  lblTimeElapsed->hide();
  chkFileList->hide();
  RestoreStateFile();
  const QString filterWords = txbFilterWords->text();
  txbFilterWords->clear();
  if (SourceKind() != TextSource::Folder && cboDisplayFormat->currentIndex() >= kFirstFolderFormat) {
    cboDisplayFormat->setCurrentIndex(0);
  }
  if (!optAllowPhrasesAllWordsToIgnore->isChecked() && !optExcludePhrasesWithWordToIgnore->isChecked() &&
      !optRemoveWordsToIgnore->isChecked()) {
    optExcludePhrasesAllWordsToIgnore->setChecked(true);
  }
  if (!params_->HasWordFiles()) {
    const bool load = desktop_.Messages.Show({.Text = texts_->Get(kFirstCommonWordsQuestion),
                                              .Title = texts_->Get(kFirstCommonWordsTitle),
                                              .Icon = Icon::Question,
                                              .Buttons = Buttons::YesNo,
                                              .DefaultAnswer = Answer::Yes,
                                              .Question = questions::kFirstCommonWords}) == Answer::Yes;
    if (load) {
      params_->SetPathToCWDs_Eng();
      params_->AttemptToReadWords(ListKind::WordsToIgnore);
      SetCountPhrasesCaption();
    } else {
      params_->SelectNoLanguage();
    }
  }
  SetWordsToIgnoreNotice();
  EnableDisableReportOptions();
  cmdClear->setEnabled(!txbFilterWords->text().isEmpty());
  Timer1->start();
  SetCountPhrasesCaption();
  // Those of the state file come last of all, so that no default wipes them out.
  txbFilterWords->setText(filterWords);
  cmdClear->setEnabled(!filterWords.isEmpty());
  Timer1_Timer();
  SetTheFocus();
  keeper_.Remember(GatherSettings());
  startUpCompleted_ = true;
  return true;
}

void frmMain::Initialize() {
  std::optional<QScopedValueRollback<bool>> quiet(std::in_place, restoring_, true);
  chkSortByNumberOfFiles->setChecked(false);
  for (QLabel* label : {lblNumberOfWords, lblNumOccurrences, lblTotalNumOccurrences, lblNumWordsExcluded,
                        lblFilesize, lblXMLsize}) {
    label->setText(QStringLiteral(" "));
  }
  params_->txbStateFile->clear();
  for (int i = 0; i < 2; ++i) {
    txbFileFilepathSpecifications[static_cast<size_t>(i)]->clear();
    txbFileFilepathSpecifications_LostFocus(i);
  }
  params_->ClearExtraWords();
  params_->SetDefaultValues();
  cboWordOrder->setCurrentIndex(0);
  cboDisplayFormat->setCurrentIndex(0);
  if (params_->HasWordFiles() &&
      desktop_.Messages.Show({.Text = "Do you wish to clear all words-to-ignore files?",
                              .Title = "Words-to-ignore files",
                              .Icon = Icon::Question,
                              .Buttons = Buttons::YesNo,
                              .DefaultAnswer = Answer::No,
                              .Question = questions::kClearWordFiles}) == Answer::Yes) {
    params_->ClearWordFiles();
  }
  txbFilterWords->clear();
  cmdClear->setEnabled(false);
  params_->SelectDefaultSizes();
  EnableDisableReportOptions();
  quiet.reset();
  FollowControls();
}

void frmMain::EnableDisableButtons(bool enabled) {
  for (QWidget* control : std::initializer_list<QWidget*>{
           cmdClipboardViewer, cmdHelp, cmdSetParameters, cmdClearOutput, txbFileFilepathSpecifications[0],
           txbFileFilepathSpecifications[1], cmdListFiles, cmdCountPhrases, cmdSaveState}) {
    control->setEnabled(enabled);
  }
  // What is being counted cannot be chosen again while it is counted.
  for (QWidget* control : std::initializer_list<QWidget*>{
           optOnClipboard, optInFile, optFolder, cmdFile[0], txbFile[0], cmdFolder, txbFolder,
           chkIncludeSubfolders, cboPhraseLength[0], cboPhraseLength[1], cboMinimumFrequency,
           optAllowPhrasesAllWordsToIgnore, optExcludePhrasesWithWordToIgnore, optRemoveWordsToIgnore,
           optExcludePhrasesAllWordsToIgnore, cmdClearFile[0], cmdClearFolder}) {
    control->setEnabled(enabled);
  }
  lstRecent->setEnabled(enabled);
  for (QAction* action : idleActions_) action->setEnabled(enabled);
  Notes->EnableWaysOut(enabled);
  params_->EnableDisableButtons(enabled);
  if (enabled) EnableClearButtons();
}

void frmMain::SetTheFocus() {
  activateWindow();
  cmdCountPhrases->setFocus();
}

void frmMain::SetCountPhrasesCaption() {
  cmdCountPhrases->setText(running_ ? QStringLiteral("sto&p") : QStringLiteral("&Count phrases"));
  stopAction_->setEnabled(running_);
}

TextSource frmMain::SourceKind() const {
  if (optOnClipboard->isChecked()) return TextSource::Clipboard;
  if (optFolder->isChecked()) return TextSource::Folder;
  return TextSource::SingleFile;
}

// ---- Timers

void frmMain::Timer1_Timer() {
  const bool tooWide = txbOutput->horizontalScrollBar()->maximum() > 0;
  txbOutput->setToolTip(tooWide ? QStringLiteral("You may need to increase the width.") : QString());
  EnableClearButtons();
  params_->ShowWordFilesState();
  SetPathToolTips();
  const bool folder = SourceKind() == TextSource::Folder;
  for (QWidget* control :
       std::initializer_list<QWidget*>{txbFileFilepathSpecifications[0], txbFileFilepathSpecifications[1],
                                       chkIncludeSubfolders, cmdListFiles}) {
    control->setVisible(folder);
  }
}

void frmMain::EnableClearButtons() {
  if (!Idle()) return;
  for (size_t i = 0; i < 2; ++i) cmdClearFile[i]->setEnabled(!txbFile[i]->text().isEmpty());
  cmdClearFolder->setEnabled(!txbFolder->text().isEmpty());
  cmdClearOutput->setEnabled(!txbOutput->document()->isEmpty());
  params_->EnableClearButtons();
}

void frmMain::SetPathToolTips() {
  const auto tip = [](QLineEdit* box, const char* otherwise) {
    box->setToolTip(box->text().isEmpty() ? QString::fromUtf8(otherwise) : box->text());
  };
  tip(txbFile[0], "To specify an input file click on the button labelled 'Single file'.");
  tip(txbFile[1], "To specify an output file click on the button labelled 'Output file'.");
  tip(txbFolder, "To specify a folder click on the button labelled 'Folder'.");
  cmdFile[0]->setToolTip(QStringLiteral("Click on the 'Single file' button to specify an input file."));
  cmdFolder->setToolTip(QStringLiteral("Click on the 'Folder' button to specify a folder with input files."));
}

// ---- Quitting, settings, help

void frmMain::cmdQuit_Click() {
  if (EndProgram()) close();
}

bool frmMain::EndProgram() {
  if (ended_) return true;
  if (running_) {
    // The run ends first; then the window closes, and nothing more is asked.
    if (params_->ReallyQuit()) {
      OfferToKeepSettings();
      quitRequested_ = true;
      messages_.Mute();
      desktop_.Yielder.RequestStop();
    }
    return false;
  }
  OfferToKeepSettings();
  if (params_->chkSaveStateOnQuit->isChecked()) {
    if (const std::string fault = SaveStateTo({}); !fault.empty()) {
      desktop_.Messages.Show({.Text = fault, .Title = "Save state", .Icon = Icon::Exclamation});
    }
  }
  StoreGeometry();
  params_->hide();
  if (help_) help_->hide();
  if (clipboardViewer_) clipboardViewer_->hide();
  ended_ = true;
  return true;
}

void frmMain::OfferToKeepSettings() {
  if (!startUpCompleted_ || params_->chkSaveStateOnQuit->isChecked()) return;
  if (!keeper_.WouldBeMissed(GatherSettings())) return;
  const SettingsKeeper::Wish wish = keeper_.Ask(desktop_.Messages);
  // Where they are kept always, they are saved with the rest when the program ends.
  if (wish == SettingsKeeper::Wish::KeepAlways) params_->chkSaveStateOnQuit->setChecked(true);
  if (wish != SettingsKeeper::Wish::KeepNow) return;
  if (const std::string fault = SaveStateTo({}); !fault.empty()) {
    desktop_.Messages.Show({.Text = fault, .Title = "Save state", .Icon = Icon::Exclamation});
  }
}

void frmMain::closeEvent(QCloseEvent* event) {
  // A state that cannot be saved keeps nobody from leaving.
  bool ended = true;
  Guarded("Form_Unload", [&] { ended = EndProgram(); })();
  event->setAccepted(ended);
}

void frmMain::cmdSetParameters_Click() {
  params_->show();
  params_->raise();
  params_->activateWindow();
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
  if (desktop_.Store.contains(QStringLiteral("geometry/main"))) {
    restoreGeometry(desktop_.Store.value(QStringLiteral("geometry/main")).toByteArray());
    return;
  }
  // The first time: as high as the screen allows, up to where more height helps nobody.
  // In the middle, for some systems would let a part of it hang out of the screen.
  const QRect room = screen()->availableGeometry();
  const QSize size(std::min(1280, room.width() * 9 / 10), std::min(900, room.height() * 9 / 10));
  setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, room));
}

void frmMain::StoreGeometry() {
  desktop_.Store.setValue(QStringLiteral("geometry/main"), saveGeometry());
  // One that was never shown has no place yet.
  if (params_->windowHandle() != nullptr)
    desktop_.Store.setValue(QStringLiteral("geometry/settings"), params_->saveGeometry());
}

// ---- Errors of handlers

void frmMain::ShowInsufficientMemory() {
  desktop_.Messages.Show({.Text = "Insufficient memory", .Title = "Error", .Icon = Icon::Critical});
}

void frmMain::ShowUnexpectedError(const char* place, const char* description) {
  desktop_.Messages.Show({.Text = UnexpectedErrorText(place, kErrorUnexpected, description),
                          .Title = "Unexpected error",
                          .Icon = Icon::Critical});
}

void frmMain::ShowStatus(const QString& text) {
  lblStatusText->setText(text);
}

}  // namespace korv
