#include "app/windows/frm_params.h"

#include <QGroupBox>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QStyle>

#include "app/settings.h"
#include "app/windows/frm_main.h"
#include "app/windows/frm_popup.h"
#include "platform/qt/text.h"

namespace korv {
namespace {

constexpr const char* kSettingsFilter = "Korv settings files (*.korv) | *.korv";
constexpr const char* kSettingsExtension = "korv";

constexpr int kDefaultShortSize = 1;  // "3"
constexpr int kDefaultLongSize = 3;   // "50"
constexpr int kStartUpLongSize = 2;   // "40"

}  // namespace

frmParams::frmParams(frmMain& main) : QWidget(nullptr, Qt::Window), main_(main) {
  setObjectName(QStringLiteral("frmParams"));
  setWindowTitle(QStringLiteral("Korv settings"));
  BuildControls(this);
  for (int size = kLeastShortWordSize; size <= kMostShortWordSize; ++size) {
    cboShortWordSize->addItem(QString::number(size));
  }
  for (int size = kLeastLongWordSize; size <= kMostLongWordSize; size += kLongWordSizeStep) {
    cboLongWordSize->addItem(QString::number(size));
  }
  SelectStartUpSizes();
  FillLanguages();
  Connect();
  const QSettings& store = main_.Outside().store;
  if (store.contains(QStringLiteral("geometry/settings"))) {
    restoreGeometry(store.value(QStringLiteral("geometry/settings")).toByteArray());
  } else {
    setGeometry(
        QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, sizeHint(), screen()->availableGeometry()));
  }
}

frmParams::~frmParams() {
  for (QObject* child : findChildren<QObject*>()) {
    child->removeEventFilter(this);
    child->disconnect(this);
  }
}

void frmParams::Connect() {
  const auto onClick = [this](QAbstractButton* button, const char* place, auto handler) {
    connect(button, &QAbstractButton::clicked, this, main_.Guarded(place, handler));
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
    onClick(box, "chkAllowWordsWith_Click", [this, box] { chkAllowWords_Click(box); });
  }
  connect(chkIgnoreShortWords, &QCheckBox::toggled, this, [this] { EnableWordSizes(); });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { cmdClose_Click(); });
  const auto onKey = [this](QKeySequence::StandardKey key, const char* place, auto handler) {
    idleShortcuts_.append(new QShortcut(key, this));
    connect(idleShortcuts_.back(), &QShortcut::activated, this, main_.Guarded(place, handler));
  };
  onKey(QKeySequence::HelpContents, "cmdHelp_Click", [this] { main_.cmdHelp_Click(); });
  onKey(QKeySequence::Save, "cmdSaveState_Click", [this] { cmdSaveState_Click(); });
  ConnectWords();
}

void frmParams::SetDefaultValues() {
  Settings settings = main_.GatherSettings();
  korv::SetDefaultValues(settings);
  main_.ApplySettings(settings);
}

void frmParams::SelectStartUpSizes() {
  cboShortWordSize->setCurrentIndex(kDefaultShortSize);
  cboLongWordSize->setCurrentIndex(kStartUpLongSize);
}

void frmParams::SelectDefaultSizes() {
  cboShortWordSize->setCurrentIndex(kDefaultShortSize);
  cboLongWordSize->setCurrentIndex(kDefaultLongSize);
}

void frmParams::EnableDisableButtons(bool enabled) {
  for (QWidget* control : std::initializer_list<QWidget*>{
           fraIgnoreTheseWords, fraAllowWords, fraIgnoreWords, fraStateFile, fraOptions,
           cmdSetOrClearCheckboxes[0], cmdSetOrClearCheckboxes[1], cmdRestoreDefaults}) {
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
  SetDefaultValues();
  CheckAllowedExtraChars();
}

void frmParams::cmdSetOrClearCheckboxes_Click(int index) {
  for (QCheckBox* box : AllCheckboxes()) box->setChecked(index == 0);
  CheckAllowedExtraChars();
}

void frmParams::cmdInitialize_Click() {
  main_.Initialize();
  main_.SetWordsToIgnoreNotice();
  const std::string fault = main_.SaveStateTo({});
  if (!fault.empty()) {
    main_.Outside().messages.Show({.text = fault, .title = "Save state", .icon = Icon::Exclamation});
  }
  main_.PopUps().PopUpInForm(QStringLiteral("Program reinitialized"), this);
}

void frmParams::cmdSaveState_Click() {
  main_.SaveStateFile(this);
}

void frmParams::cmdSaveLoadState_Click(int index) {
  const bool load = index == 0;
  const Desktop& outside = main_.Outside();
  const FileChoice choice{
      .title = load ? "Specify file to load settings from." : "Specify file to save settings to",
      .filter = kSettingsFilter,
      .initialPath = FromQt(txbStateFile->text()),
      .extension = kSettingsExtension,
      .asksBeforeReplacing = !load};
  const std::optional<std::string> chosen =
      load ? outside.dialogs.ChooseFileToOpen(choice) : outside.dialogs.ChooseFileToSave(choice);
  if (!chosen || chosen->empty()) return;
  const std::filesystem::path path = PathFromText(*chosen);
  const std::string shown = PathToText(path);

  if (load) {
    LoadSettings(path);
  } else if (const std::string fault = main_.SaveStateTo(path); fault.empty()) {
    lblState->setText(ToQt("Settings saved to " + shown));
  } else {
    lblState->setText(ToQt("Error saving to " + shown));
    outside.messages.Show({.text = fault, .title = "Save settngs", .icon = Icon::Exclamation});
  }
  txbStateFile->setText(ToQt(shown));
}

void frmParams::LoadSettings(const std::filesystem::path& path) {
  const RestoreOutcome outcome = main_.RestoreSavedState(path);
  if (outcome.Result == kRestored) {
    lblState->setText(ToQt("Settings loaded from " + PathToText(path)));
    CheckAllowedExtraChars();
    return;
  }
  lblState->setText(ToQt("Error loading from " + PathToText(path)));
  main_.Outside().messages.Show(
      {.text = LoadFailureText(outcome), .title = "Load settings", .icon = Icon::Exclamation});
  main_.Initialize();
  main_.SetWordsToIgnoreNotice();
}

void frmParams::cmdClose_Click() {
  hide();
}

bool frmParams::ReallyQuit() {
  return main_.Outside().messages.Show({.text = "Really quit?",
                                        .title = "Quit",
                                        .icon = Icon::Question,
                                        .buttons = Buttons::YesNo,
                                        .defaultAnswer = Answer::No,
                                        .question = Question::ReallyQuit}) == Answer::Yes;
}

void frmParams::cmdQuit_Click() {
  if (main_.Running()) return main_.cmdQuit_Click();
  if (ReallyQuit()) main_.cmdQuit_Click();
}

void frmParams::chkCaseSignificant_Click() {
  ConfirmsRereading(chkCaseSignificant);
}

void frmParams::chkAllowWords_Click(QCheckBox* box) {
  if (ConfirmsRereading(box)) CheckAllowedExtraChars();
}

bool frmParams::ConfirmsRereading(QCheckBox* box) {
  if (!main_.HasResult()) return true;
  std::string what = "clipboard";
  if (main_.SourceKind() == TextSource::SingleFile) what = "file";
  if (main_.SourceKind() == TextSource::Folder) what = "files";
  if (main_.Outside().messages.Show(
          {.text = "Changing this entails reading the " + what + " anew.  Is this OK?",
           .title = {},
           .icon = Icon::Question,
           .buttons = Buttons::YesNo,
           .defaultAnswer = Answer::Yes,
           .question = Question::RereadSource}) == Answer::Yes) {
    main_.DiscardResult();
    return true;
  }
  box->setChecked(!box->isChecked());
  return false;
}

}  // namespace korv
