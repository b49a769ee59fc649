#include "desktop/settings_window/frm_params.h"

#include <QGroupBox>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QStyle>
#include <algorithm>

#include "app/settings/schema.h"
#include "desktop/questions.h"
#include "desktop/settings_window/rules_sample_box.h"
#include "desktop/settings_window/settings_host.h"
#include "desktop/settings_window/settings_undo.h"
#include "desktop/toolkit/silenced_questions.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/settings_binding.h"
#include "desktop/widgets/wiring.h"

namespace korv {
namespace {

constexpr const char* kSettingsFilter = "Korv settings files (*.korv) | *.korv";
constexpr const char* kSettingsExtension = "korv";

/// The setting that a checkbox shows.
const SettingRow& RowOf(const QCheckBox& box) {
  const std::string name = FromQt(box.objectName());
  return *std::ranges::find_if(
      Schema(), [&](const SettingRow& row) { return row.Control != nullptr && name == row.Control; });
}

}  // namespace

frmParams::frmParams(SettingsHost& host) : QWidget(nullptr, Qt::Window), host_(host), work_(host.Work()) {
  setObjectName(QStringLiteral("frmParams"));
  setWindowTitle(QStringLiteral("Korv settings"));
  BuildControls(this);
  FillWithNumbers(*cboShortWordSize, korv::RowOf("ShortWordSize"));
  FillWithNumbers(*cboLongWordSize, korv::RowOf("LongWordSize"));
  FillLanguages();
  optListKind_Click();
  Connect();
  const QSettings& store = host_.Outside().Store;
  if (store.contains(QStringLiteral("geometry/settings"))) {
    restoreGeometry(store.value(QStringLiteral("geometry/settings")).toByteArray());
  } else {
    // The title that the system puts above a window is to lie on the screen too.
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room = screen()->availableGeometry().adjusted(0, title, 0, -title / 4);
    // Wide enough for the hint in the list of files, which is long.
    const QSize size = sizeHint() + QSize(12 * fontMetrics().averageCharWidth(), 0);
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter,
                                    size.boundedTo(room.size()).expandedTo(minimumSizeHint()), room));
  }
}

frmParams::~frmParams() {
  StopListening(*this);
}

void frmParams::Connect() {
  const auto onClick = [this](QAbstractButton* button, const char* place, auto handler) {
    connect(button, &QAbstractButton::clicked, this, Guarded(host_.Outside().Messages, place, handler));
  };
  for (int i = 0; i < 2; ++i) {
    const auto index = static_cast<size_t>(i);
    onClick(cmdSetOrClearCheckboxes[index], "cmdSetOrClearCheckboxes_Click",
            [this, i] { cmdSetOrClearCheckboxes_Click(i); });
    onClick(cmdSaveLoadState[index], "cmdSaveLoadState_Click", [this, i] { cmdSaveLoadState_Click(i); });
  }
  onClick(cmdRestoreDefaults, "cmdRestoreDefaults_Click", [this] { cmdRestoreDefaults_Click(); });
  onClick(cmdInitialize, "cmdInitialize_Click", [this] { cmdInitialize_Click(); });
  onClick(cmdSaveState, "cmdSaveState_Click", [this] { cmdSaveState_Click(); });
  onClick(cmdClose, "cmdClose_Click", [this] { cmdClose_Click(); });
  onClick(cmdQuit, "cmdQuit_Click", [this] { cmdQuit_Click(); });
  onClick(chkCaseSignificant, "chkCaseSignificant_Click", [this] { chkCaseSignificant_Click(); });
  for (QCheckBox* box : AllowWordsBoxes()) {
    onClick(box, "chkAllowWordsWith_Click", [this, box] { chkAllowWords_Click(*box); });
  }
  onClick(cmdUndo, "cmdUndo_Click", [this] { cmdUndo_Click(); });
  onClick(cmdAskEverythingAgain, "cmdAskEverythingAgain_Click", [this] { cmdAskEverythingAgain_Click(); });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { cmdClose_Click(); });
  const auto onKey = [this](QKeySequence::StandardKey key, const char* place, auto handler) {
    idleShortcuts_.append(new QShortcut(key, this));
    connect(idleShortcuts_.back(), &QShortcut::activated, this,
            Guarded(host_.Outside().Messages, place, handler));
  };
  onKey(QKeySequence::HelpContents, "cmdHelp_Click", [this] { host_.cmdHelp_Click(); });
  onKey(QKeySequence::Save, "cmdSaveState_Click", [this] { cmdSaveState_Click(); });
  ConnectWords();
}

void frmParams::SetDefaultValues() {
  Settings settings = work_.Current();
  korv::SetDefaultValues(settings);
  host_.ApplySettings(settings);
}

void frmParams::EnableDisableButtons(bool enabled) {
  for (QWidget* control : std::initializer_list<QWidget*>{
           fraIgnoreTheseWords, fraAllowWords, fraIgnoreWords, fraStateFile, fraOptions,
           cmdSetOrClearCheckboxes[0], cmdSetOrClearCheckboxes[1], cmdRestoreDefaults, cmdUndo}) {
    control->setEnabled(enabled);
  }
  // What these do would pull the rug from under a run as well.
  cmdInitialize->setEnabled(enabled);
  cmdSaveState->setEnabled(enabled);
  for (QShortcut* shortcut : idleShortcuts_) shortcut->setEnabled(enabled);
}

void frmParams::EnableWordSizes() {
  cboShortWordSize->setEnabled(chkIgnoreShortWords->isChecked());
}

void frmParams::cmdRestoreDefaults_Click() {
  ChangeAtOnce([this] { SetDefaultValues(); }, "Defaults restored.", cmdRestoreDefaults);
}

void frmParams::cmdSetOrClearCheckboxes_Click(int index) {
  ChangeAtOnce(
      [this, index] {
        work_.Change(ChangedBy::Program, [&](Settings& settings) {
          for (const QCheckBox* box : AllCheckboxes()) {
            std::get<CheckValue>(RowOf(*box).Value).Set(settings, index == 0);
          }
        });
      },
      index == 0 ? "All checkboxes checked." : "All checkboxes cleared.",
      cmdSetOrClearCheckboxes[static_cast<size_t>(index)]);
}

void frmParams::ChangeAtOnce(const std::function<void()>& change, const char* told, QPushButton* by) {
  const Settings before = work_.Current();
  change();
  lblState->setText(QString::fromUtf8(told));
  cmdUndo->Offer(before, work_.Current(), by);
  CheckAllowedExtraChars();
}

void frmParams::cmdUndo_Click() {
  const std::optional<Settings> before = cmdUndo->Take();
  if (!before) return;
  // Only what was changed at once: a path typed since then stays.
  Settings settings = work_.Current();
  CopyValues(SettingsResetBy(ResetBy::RestoreDefaults), *before, settings);
  host_.ApplySettings(settings);
  lblState->setText(QStringLiteral("Everything is as it was before."));
  CheckAllowedExtraChars();
}

void frmParams::SettingsHaveChanged(const SettingSet& changed) {
  // What those buttons change is what an undo would bring back.
  if ((changed & SettingsResetBy(ResetBy::RestoreDefaults)).any()) {
    cmdUndo->Forget();
    fraSample->Show(work_.Current().Words);
  }
  if (Has(changed, "IgnoreShortWords")) EnableWordSizes();
  if (Has(changed, "WordsFiles")) ShowWordFiles();
  if (Has(changed, "ExtraWordsToIgnore")) ShowWordsState();
}

void frmParams::showEvent(QShowEvent* event) {
  fraSample->Show(work_.Current().Words);
  EnableClearButtons();
  QWidget::showEvent(event);
}

void frmParams::cmdInitialize_Click() {
  if (host_.Outside().Messages.Show(
          {.Text =
               "This sets every option to its default, clears the extra words to ignore, the file patterns "
               "and\r\nthe filter words, and saves all that.  Do you wish to go on?",
           .Title = "Reinitialize",
           .Icon = Icon::Question,
           .Buttons = Buttons::YesNo,
           .DefaultAnswer = Answer::Yes,
           .Question = questions::kReinitialize}) != Answer::Yes) {
    return;
  }
  host_.Initialize();
  cmdUndo->Forget();
  host_.SetWordsToIgnoreNotice();
  const std::string fault = host_.SaveStateTo({});
  if (!fault.empty()) {
    host_.Outside().Messages.Show({.Text = fault, .Title = "Save state", .Icon = Icon::Exclamation});
  }
  host_.PopUpInForm(QStringLiteral("Program reinitialized"), this);
}

void frmParams::cmdAskEverythingAgain_Click() {
  AskEverythingAgain(host_.Outside().Store);
  cmdAskEverythingAgain->setEnabled(false);
  lblState->setText(QStringLiteral("Every question will be asked again."));
}

void frmParams::cmdSaveState_Click() {
  host_.SaveStateFile(this);
}

void frmParams::cmdSaveLoadState_Click(int index, QWidget* otherWindow) {
  const bool load = index == 0;
  const Desktop& outside = host_.Outside();
  const FileChoice choice{
      .Title = load ? "Specify file to load settings from." : "Specify file to save settings to",
      .Filter = kSettingsFilter,
      .InitialPath = FromQt(txbStateFile->text()),
      .Extension = kSettingsExtension,
      .AsksBeforeReplacing = !load};
  const std::optional<std::string> chosen =
      load ? outside.Dialogs.ChooseFileToOpen(choice) : outside.Dialogs.ChooseFileToSave(choice);
  if (!chosen || chosen->empty()) return;
  const std::filesystem::path path = PathFromText(*chosen);
  const QString shown = ToQt(PathToText(path));
  // A failure has had its message box.
  const auto tell = [this, otherWindow, shown](const QString& what) {
    if (otherWindow != nullptr) host_.PopUpInForm(what + shown, otherWindow);
  };
  if (load) return LoadSettings(path, [tell] { tell(QStringLiteral("Settings loaded from\n")); });
  const bool saved = SaveSettings(path);
  txbStateFile->setText(shown);
  if (saved) tell(QStringLiteral("Settings saved to\n"));
}

void frmParams::OpenSettingsFile(const std::filesystem::path& path) {
  LoadSettings(path, [this, path] {
    host_.PopUpInForm(QStringLiteral("Settings loaded from\n") + ToQt(PathToText(path)), nullptr);
  });
}

bool frmParams::SaveSettings(const std::filesystem::path& path) {
  const std::string fault = host_.SaveStateTo(path);
  const bool saved = fault.empty();
  lblState->setText(ToQt((saved ? "Settings saved to " : "Error saving to ") + PathToText(path)));
  if (!saved) {
    host_.Outside().Messages.Show({.Text = fault, .Title = "Save settngs", .Icon = Icon::Exclamation});
  }
  return saved;
}

void frmParams::LoadSettings(const std::filesystem::path& path, std::function<void()> loaded) {
  const std::string shown = PathToText(path);
  const RestoreOutcome outcome = host_.RestoreSavedState(path);
  cmdUndo->Forget();
  if (outcome.Result == kRestored) {
    // Their word list is being read, and tells of itself.
    host_.WhenIdle([this, shown, loaded = std::move(loaded)] {
      lblState->setText(ToQt("Settings loaded from " + shown));
      CheckAllowedExtraChars();
      txbStateFile->setText(ToQt(shown));
      loaded();
    });
    return;
  }
  lblState->setText(ToQt("Error loading from " + shown));
  host_.Outside().Messages.Show(
      {.Text = LoadFailureText(outcome), .Title = "Load settings", .Icon = Icon::Exclamation});
  host_.Initialize();
  host_.SetWordsToIgnoreNotice();
  txbStateFile->setText(ToQt(shown));
}

void frmParams::cmdClose_Click() {
  hide();
}

bool frmParams::ReallyQuit() {
  return host_.Outside().Messages.Show({.Text = "Really quit?",
                                        .Title = "Quit",
                                        .Icon = Icon::Question,
                                        .Buttons = Buttons::YesNo,
                                        .DefaultAnswer = Answer::No,
                                        .Question = questions::kReallyQuit}) == Answer::Yes;
}

void frmParams::cmdQuit_Click() {
  if (host_.Running()) return host_.cmdQuit_Click();
  if (ReallyQuit()) host_.cmdQuit_Click();
}

void frmParams::chkCaseSignificant_Click() {
  ConfirmsRereading(*chkCaseSignificant);
}

void frmParams::chkAllowWords_Click(const QCheckBox& box) {
  if (ConfirmsRereading(box)) CheckAllowedExtraChars();
}

bool frmParams::ConfirmsRereading(const QCheckBox& box) {
  const auto& value = std::get<CheckValue>(RowOf(box).Value);
  Settings before = work_.Current();
  value.Set(before, !box.isChecked());
  // One that was counted under other rules is marked already, and would be counted anew anyway.
  if (!host_.ResultKeepsTo(before.Words)) return true;
  std::string what = "clipboard";
  if (before.SourceKind == TextSource::SingleFile) what = "file";
  if (before.SourceKind == TextSource::Folder) what = "files";
  if (host_.Outside().Messages.Show(
          {.Text = "Changing this entails reading the " + what + " anew.  Is this OK?",
           .Title = "Word rules",
           .Icon = Icon::Question,
           .Buttons = Buttons::YesNo,
           .DefaultAnswer = Answer::Yes,
           .Question = questions::kRereadSource}) == Answer::Yes)
    return true;
  const bool checked = value.Get(before);
  work_.Change(ChangedBy::Program, [&](Settings& settings) { value.Set(settings, checked); });
  return false;
}

}  // namespace korv
