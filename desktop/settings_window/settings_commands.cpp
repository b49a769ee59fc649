#include "desktop/settings_window/settings_commands.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <optional>

#include "app/settings/schema.h"
#include "base/translation.h"
#include "desktop/questions.h"
#include "desktop/settings_window/check_value.h"
#include "desktop/settings_window/settings_host.h"
#include "desktop/settings_window/settings_undo.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/wiring.h"

namespace korv {

SettingsCommands::SettingsCommands(SettingsHost& host, QWidget* parent) : QWidget(parent), host_(host) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(10);
  lblState = Named(new ElidingLabel(this), "lblState");
  cmdUndo = new SettingsUndo(this);
  auto* state = new QHBoxLayout;
  state->addWidget(lblState, 1);
  state->addWidget(cmdUndo);
  layout->addLayout(state);
  BuildButtons(*layout);
  Connect();
}

SettingsCommands::~SettingsCommands() {
  StopListening(*this);
}

void SettingsCommands::BuildButtons(QBoxLayout& layout) {
  cmdSetOrClearCheckboxes[0] = MakeButton("cmdSetOrClearCheckboxes_0", Tr("Check &all checkboxes"), this);
  cmdSetOrClearCheckboxes[1] = MakeButton("cmdSetOrClearCheckboxes_1", Tr("Cl&ear all checkboxes"), this);
  cmdRestoreDefaults = MakeButton("cmdRestoreDefaults", Tr("Restore &defaults"), this);
  cmdInitialize = MakeButton("cmdInitialize", Tr("Re&initialize"), this);
  cmdSaveState = MakeButton("cmdSaveState", Tr("&Save settings"), this);
  cmdClose = MakeButton("cmdClose", Tr("&Hide settings"), this);
  cmdQuit = MakeButton("cmdQuit", Tr("&Quit"), this);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button :
       {cmdSetOrClearCheckboxes[0], cmdSetOrClearCheckboxes[1], cmdRestoreDefaults, cmdInitialize}) {
    buttons->addWidget(button);
  }
  buttons->addStretch(1);
  for (QPushButton* button : {cmdSaveState, cmdClose, cmdQuit}) buttons->addWidget(button);
  layout.addLayout(buttons);
}

void SettingsCommands::Connect() {
  const Wiring wiring(*this, host_.Outside().Messages);
  for (int i = 0; i < 2; ++i) {
    wiring.OnClick(cmdSetOrClearCheckboxes[static_cast<size_t>(i)], "cmdSetOrClearCheckboxes_Click",
                   [this, i] { cmdSetOrClearCheckboxes_Click(i); });
  }
  wiring.OnClick(cmdRestoreDefaults, "cmdRestoreDefaults_Click", [this] { cmdRestoreDefaults_Click(); });
  wiring.OnClick(cmdInitialize, "cmdInitialize_Click", [this] { cmdInitialize_Click(); });
  wiring.OnClick(cmdSaveState, "cmdSaveState_Click", [this] { cmdSaveState_Click(); });
  wiring.OnClick(cmdClose, "cmdClose_Click", [this] { cmdClose_Click(); });
  wiring.OnClick(cmdQuit, "cmdQuit_Click", [this] { cmdQuit_Click(); });
  wiring.OnClick(cmdUndo, "cmdUndo_Click", [this] { cmdUndo_Click(); });
}

void SettingsCommands::cmdRestoreDefaults_Click() {
  ChangeAtOnce(
      [this] {
        Settings settings = host_.Work().Current();
        SetDefaultValues(settings);
        host_.ApplySettings(settings);
      },
      Tr("Defaults restored."), cmdRestoreDefaults);
}

void SettingsCommands::cmdSetOrClearCheckboxes_Click(int index) {
  ChangeAtOnce(
      [this, index] {
        host_.Work().Change(ChangedBy::Program, [&](Settings& settings) {
          for (const QCheckBox* box : window()->findChildren<QCheckBox*>()) {
            ValueOf(*box).Set(settings, index == 0);
          }
        });
      },
      index == 0 ? Tr("All checkboxes checked.") : Tr("All checkboxes cleared."),
      cmdSetOrClearCheckboxes[static_cast<size_t>(index)]);
}

void SettingsCommands::ChangeAtOnce(const std::function<void()>& change, const char* told, QPushButton* by) {
  const Workspace& work = host_.Work();
  const Settings before = work.Current();
  change();
  Tell(told);
  cmdUndo->Offer(before, work.Current(), by);
  ChangedAtOnce();
}

void SettingsCommands::cmdUndo_Click() {
  const std::optional<Settings> before = cmdUndo->Take();
  if (!before) return;
  // Only what was changed at once: a path typed since then stays.
  Settings settings = host_.Work().Current();
  CopyValues(SettingsResetBy(ResetBy::RestoreDefaults), *before, settings);
  host_.ApplySettings(settings);
  Tell(Tr("Everything is as it was before."));
  ChangedAtOnce();
}

void SettingsCommands::cmdInitialize_Click() {
  if (host_.Outside().Messages.Show(
          {.Text = Tr(
               "This sets every option to its default, clears the extra words to ignore, the file patterns "
               "and\nthe filter words, and saves all that.  Do you wish to go on?"),
           .Title = Tr("Reinitialize"),
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
    host_.Outside().Messages.Show({.Text = fault, .Title = Tr("Save state"), .Icon = Icon::Exclamation});
  }
  host_.PopUpInForm(Tr("Program reinitialized"), window());
}

void SettingsCommands::cmdSaveState_Click() {
  host_.SaveStateFile(window());
}

void SettingsCommands::cmdClose_Click() {
  window()->hide();
}

bool SettingsCommands::ReallyQuit() {
  return host_.Outside().Messages.Show({.Text = Tr("Really quit?"),
                                        .Title = Tr("Quit"),
                                        .Icon = Icon::Question,
                                        .Buttons = Buttons::YesNo,
                                        .DefaultAnswer = Answer::No,
                                        .Question = questions::kReallyQuit}) == Answer::Yes;
}

void SettingsCommands::cmdQuit_Click() {
  if (host_.Running() || ReallyQuit()) host_.cmdQuit_Click();
}

void SettingsCommands::Tell(const QString& text) {
  lblState->setText(text);
}

void SettingsCommands::Untell(const QString& text) {
  if (lblState->text() == text) lblState->setText({});
}

void SettingsCommands::EnableDisableButtons(bool enabled) {
  // What these do would pull the rug from under a run.
  for (QPushButton* button :
       std::initializer_list<QPushButton*>{cmdSetOrClearCheckboxes[0], cmdSetOrClearCheckboxes[1],
                                           cmdRestoreDefaults, cmdUndo, cmdInitialize, cmdSaveState}) {
    button->setEnabled(enabled);
  }
}

std::vector<QWidget*> SettingsCommands::TabOrder() const {
  return {cmdUndo,
          cmdSetOrClearCheckboxes[0],
          cmdSetOrClearCheckboxes[1],
          cmdRestoreDefaults,
          cmdInitialize,
          cmdSaveState,
          cmdClose,
          cmdQuit};
}

}  // namespace korv
