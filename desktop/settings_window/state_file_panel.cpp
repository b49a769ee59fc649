#include "desktop/settings_window/state_file_panel.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

#include "base/translation.h"
#include "desktop/settings_window/rule_box.h"
#include "desktop/settings_window/settings_host.h"
#include "desktop/toolkit/silenced_questions.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"

namespace korv {

StateFilePanel::StateFilePanel(SettingsHost& host, QWidget* parent)
    : QGroupBox(Tr("Settings file and questions"), parent), host_(host) {
  setObjectName(QStringLiteral("fraStateFile"));
  auto* layout = Tight(new QGridLayout(this), kSettingsMargins);
  cmdSaveLoadState[0] = MakeButton("cmdSaveLoadState_0", Tr("&Load settings from file"), this);
  cmdSaveLoadState[1] = MakeButton("cmdSaveLoadState_1", Tr("Save settings &to file"), this);
  cmdAskEverythingAgain = MakeButton("cmdAskEverythingAgain", Tr("As&k everything again"), this);
  cmdAskEverythingAgain->setToolTip(Tr("Asks again every question for which 'Do not ask again' was ticked."));
  txbStateFile = MakeTextBox("txbStateFile", Tr("Settings file"), this);
  txbStateFile->hide();
  layout->addWidget(cmdSaveLoadState[0], 0, 0);
  layout->addWidget(cmdSaveLoadState[1], 0, 1);
  layout->addWidget(cmdAskEverythingAgain, 1, 0, 1, 2);
  layout->setRowStretch(2, 1);

  const Wiring wiring(*this, host_.Outside().Messages);
  wiring.OnClick(cmdSaveLoadState[0], "cmdSaveLoadState_Click", [this] { SaveLoadState(0); });
  wiring.OnClick(cmdSaveLoadState[1], "cmdSaveLoadState_Click", [this] { SaveLoadState(1); });
  wiring.OnClick(cmdAskEverythingAgain, "cmdAskEverythingAgain_Click",
                 [this] { cmdAskEverythingAgain_Click(); });
}

StateFilePanel::~StateFilePanel() {
  StopListening(*this);
}

void StateFilePanel::cmdAskEverythingAgain_Click() {
  AskEverythingAgain(host_.Outside().Store);
  cmdAskEverythingAgain->setEnabled(false);
  Told(Tr("Every question will be asked again."));
}

void StateFilePanel::EnableAsking() {
  cmdAskEverythingAgain->setEnabled(AnySilenced(host_.Outside().Store));
}

std::vector<QWidget*> StateFilePanel::TabOrder() const {
  return {cmdSaveLoadState[0], cmdSaveLoadState[1], cmdAskEverythingAgain};
}

}  // namespace korv
