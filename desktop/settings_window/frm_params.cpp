#include "desktop/settings_window/frm_params.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>
#include <vector>

#include "app/settings/schema.h"
#include "base/translation.h"
#include "desktop/settings_window/allow_words_panel.h"
#include "desktop/settings_window/behaviour_panel.h"
#include "desktop/settings_window/ignore_words_panel.h"
#include "desktop/settings_window/phrase_boundaries_panel.h"
#include "desktop/settings_window/rules_sample_box.h"
#include "desktop/settings_window/settings_commands.h"
#include "desktop/settings_window/settings_host.h"
#include "desktop/settings_window/settings_undo.h"
#include "desktop/settings_window/state_file_panel.h"
#include "desktop/settings_window/word_lists_panel.h"
#include "desktop/toolkit/file_filter.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/scroll_column.h"
#include "desktop/widgets/wiring.h"

namespace korv {
namespace {

constexpr const char* kSettingsExtension = "korv";

}  // namespace

frmParams::frmParams(SettingsHost& host) : QWidget(nullptr, Qt::Window), host_(host), work_(host.Work()) {
  setObjectName(QStringLiteral("frmParams"));
  setWindowTitle(Tr("Korv settings"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(10);
  // On a low screen the groups scroll; the buttons below them do not.
  auto* scroll = Named(new ScrollColumn(this), "scrSettings");
  scroll->setWidget(MakeGroups(scroll));
  layout->addWidget(scroll, 1);
  Commands = new SettingsCommands(host_, this);
  layout->addWidget(Commands);
  SetTabOrder();
  IgnoreWords->FillLists();
  Lists->Start();
  Connect();
  RestoreGeometry();
}

frmParams::~frmParams() {
  StopListening(*this);
}

QWidget* frmParams::MakeGroups(QWidget* parent) {
  auto* groups = new QWidget(parent);
  auto* layout = new QGridLayout(groups);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(10);
  Lists = new WordListsPanel(host_, groups);
  AllowWords = new AllowWordsPanel(host_, groups);
  IgnoreWords = new IgnoreWordsPanel(groups);
  PhraseBoundaries = new PhraseBoundariesPanel(groups);
  fraSample = new RulesSampleBox(groups);
  Behaviour = new BehaviourPanel(groups);
  StateFile = new StateFilePanel(host_, groups);
  layout->addWidget(Lists, 0, 0, 1, 2);
  layout->addWidget(AllowWords, 1, 0, 2, 1);
  layout->addWidget(IgnoreWords, 1, 1);
  layout->addWidget(PhraseBoundaries, 2, 1);
  layout->addWidget(fraSample, 3, 0, 1, 2);
  auto* behaviour = new QHBoxLayout;
  behaviour->addWidget(Behaviour, 1);
  behaviour->addWidget(StateFile);
  layout->addLayout(behaviour, 4, 0, 1, 2);
  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(0, 1);
  return groups;
}

void frmParams::SetTabOrder() {
  std::vector<QWidget*> order;
  for (const auto& part : {Lists->TabOrder(), AllowWords->TabOrder(), IgnoreWords->TabOrder(),
                           PhraseBoundaries->TabOrder(), std::vector<QWidget*>{fraSample->txbSample},
                           Behaviour->TabOrder(), StateFile->TabOrder(), Commands->TabOrder()}) {
    order.insert(order.end(), part.begin(), part.end());
  }
  for (size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

void frmParams::Connect() {
  const auto tell = [this](const QString& text) { Commands->Tell(text); };
  const auto checkTyped = [this] { Lists->CheckAllowedExtraChars(); };
  Lists->Told = tell;
  Lists->Untold = [this](const QString& text) { Commands->Untell(text); };
  AllowWords->CharactersChanged = checkTyped;
  StateFile->SaveLoadState = [this](int index) { cmdSaveLoadState_Click(index); };
  StateFile->Told = tell;
  Commands->ChangedAtOnce = checkTyped;
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this,
          [this] { Commands->cmdClose_Click(); });
  const auto onKey = [this](QKeySequence::StandardKey key, const char* place, auto handler) {
    idleShortcuts_.append(new QShortcut(key, this));
    connect(idleShortcuts_.back(), &QShortcut::activated, this,
            Guarded(host_.Outside().Messages, place, handler));
  };
  onKey(QKeySequence::HelpContents, "cmdHelp_Click", [this] { host_.cmdHelp_Click(); });
  onKey(QKeySequence::Save, "cmdSaveState_Click", [this] { Commands->cmdSaveState_Click(); });
}

void frmParams::RestoreGeometry() {
  const QSettings& store = host_.Outside().Store;
  if (store.contains(QStringLiteral("geometry/settings"))) {
    restoreGeometry(store.value(QStringLiteral("geometry/settings")).toByteArray());
    return;
  }
  // The title that the system puts above a window is to lie on the screen too.
  const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
  const QRect room = screen()->availableGeometry().adjusted(0, title, 0, -title / 4);
  // Wide enough for the hint in the list of files, which is long.
  const QSize size = sizeHint() + QSize(12 * fontMetrics().averageCharWidth(), 0);
  setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter,
                                  size.boundedTo(room.size()).expandedTo(minimumSizeHint()), room));
}

void frmParams::EnableDisableButtons(bool enabled) {
  for (QWidget* group :
       std::initializer_list<QWidget*>{Lists, AllowWords, IgnoreWords, StateFile, Behaviour}) {
    group->setEnabled(enabled);
  }
  Commands->EnableDisableButtons(enabled);
  for (QShortcut* shortcut : idleShortcuts_) shortcut->setEnabled(enabled);
}

void frmParams::EnableClearButtons() {
  Lists->EnableClearButtons();
  StateFile->EnableAsking();
}

void frmParams::SettingsHaveChanged(const SettingSet& changed) {
  // What those buttons change is what an undo would bring back.
  if ((changed & SettingsResetBy(ResetBy::RestoreDefaults)).any()) {
    Commands->cmdUndo->Forget();
    fraSample->Show(work_.Current().Words);
  }
  if (Has(changed, "IgnoreShortWords")) IgnoreWords->EnableWordSizes();
  if (Has(changed, "WordsFiles")) Lists->ShowWordFiles();
  if (Has(changed, "ExtraWordsToIgnore")) Lists->ShowWordsState();
}

void frmParams::showEvent(QShowEvent* event) {
  fraSample->Show(work_.Current().Words);
  EnableClearButtons();
  QWidget::showEvent(event);
}

void frmParams::cmdSaveLoadState_Click(int index, QWidget* otherWindow) {
  const bool load = index == 0;
  const Desktop& outside = host_.Outside();
  const FileChoice choice{
      .Title = load ? Tr("Specify file to load settings from.") : Tr("Specify file to save settings to"),
      .Filter = FileFilter(Tr("Korv settings files"), "*.korv"),
      .InitialPath = FromQt(StateFile->txbStateFile->text()),
      .Extension = kSettingsExtension,
      .AsksBeforeReplacing = !load};
  const std::optional<std::string> chosen =
      load ? outside.Dialogs.ChooseFileToOpen(choice) : outside.Dialogs.ChooseFileToSave(choice);
  if (!chosen || chosen->empty()) return;
  const std::filesystem::path path = PathFromText(*chosen);
  const QString shown = ToQt(PathToText(path));
  // A failure has had its message box.
  const auto tell = [this, otherWindow, shown](const char* what) {
    if (otherWindow != nullptr) host_.PopUpInForm(QString(what).arg(shown), otherWindow);
  };
  if (load) return LoadSettings(path, [tell] { tell(Tr("Settings loaded from\n%1")); });
  const bool saved = SaveSettings(path);
  StateFile->txbStateFile->setText(shown);
  if (saved) tell(Tr("Settings saved to\n%1"));
}

void frmParams::OpenSettingsFile(const std::filesystem::path& path) {
  LoadSettings(path, [this, path] {
    host_.PopUpInForm(QString(Tr("Settings loaded from\n%1")).arg(ToQt(PathToText(path))), nullptr);
  });
}

bool frmParams::SaveSettings(const std::filesystem::path& path) {
  const std::string fault = host_.SaveStateTo(path);
  const bool saved = fault.empty();
  Commands->Tell(
      ToQt(Fill(saved ? Tr("Settings saved to %1") : Tr("Error saving to %1"), {PathToText(path)})));
  if (!saved) {
    host_.Outside().Messages.Show({.Text = fault, .Title = Tr("Save settngs"), .Icon = Icon::Exclamation});
  }
  return saved;
}

void frmParams::LoadSettings(const std::filesystem::path& path, std::function<void()> loaded) {
  const std::string shown = PathToText(path);
  const RestoreOutcome outcome = host_.RestoreSavedState(path);
  Commands->cmdUndo->Forget();
  if (outcome.Result == kRestored) {
    // Their word list is being read, which has a notice of its own.
    host_.WhenIdle([this, shown, loaded = std::move(loaded)] {
      Commands->Tell(ToQt(Fill(Tr("Settings loaded from %1"), {shown})));
      Lists->CheckAllowedExtraChars();
      StateFile->txbStateFile->setText(ToQt(shown));
      loaded();
    });
    return;
  }
  Commands->Tell(ToQt(Fill(Tr("Error loading from %1"), {shown})));
  host_.Outside().Messages.Show(
      {.Text = LoadFailureText(outcome), .Title = Tr("Load settings"), .Icon = Icon::Exclamation});
  host_.Initialize();
  host_.SetWordsToIgnoreNotice();
  StateFile->txbStateFile->setText(ToQt(shown));
}

}  // namespace korv
