#include "desktop/main_window/output_file_panel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPushButton>

#include "base/translation.h"
#include "desktop/main_window/path_box.h"
#include "desktop/toolkit/file_filter.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/flow_layout.h"
#include "desktop/widgets/icons.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/detect/source_checks.h"

namespace korv {

OutputFilePanel::OutputFilePanel(const Desktop& desktop, QWidget* parent)
    : QWidget(parent), desktop_(desktop) {
  setObjectName(QStringLiteral("fraOutputFile"));
  cmdFile = MakeButton("cmdFile_1", Tr("O&utput file"), this);
  cmdFile->setIcon(NamedIcon("document-save-as"));
  txbFile = MakeTextBox("txbFile_1", Tr("Path of the output file"), this);
  cmdClearFile = Described(MakeButton("cmdClearFile_1", Tr("Clea&r"), this), Tr("Clear the output file"));
  chkDisableOutputToFile = MakeCheckBox("chkDisableOutputToFile", Tr("Disable output to file"), this);
  auto* path = Bare(new QHBoxLayout);
  path->addWidget(cmdFile);
  path->addWidget(txbFile, 1);
  path->addWidget(cmdClearFile);
  auto* layout = new FlowLayout(this);
  layout->AddGroup(path);
  layout->addWidget(chkDisableOutputToFile);

  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(cmdFile, "cmdFile_Click", [this] { cmdFile_Click(); });
  wiring.OnClick(cmdClearFile, "cmdClearFile_Click", [this] { cmdClearFile_Click(); });
  wiring.OnLeaving(txbFile, "txbFile_LostFocus", [this] { txbFile_LostFocus(); });
  wiring.OnText(txbFile, "txbFile_Change", [this] { EnableClearButtons(); });
  wiring.OnClick(chkDisableOutputToFile, "chkDisableOutputToFile_Click",
                 [this] { chkDisableOutputToFile_Click(); });
}

OutputFilePanel::~OutputFilePanel() {
  StopListening(*this);
}

void OutputFilePanel::cmdFile_Click() {
  ChooseOutputFile();
}

bool OutputFilePanel::ChooseOutputFile() {
  const auto path = desktop_.Dialogs.ChooseFileToSave({.Title = Tr("Specify an output file"),
                                                       .Filter = AnyTextFile(),
                                                       .InitialPath = FromQt(txbFile->text())});
  if (!path || Refuses(*path)) return false;
  SetPath(*txbFile, ToQt(*path));
  EnableClearButtons();
  SetPathToolTips();
  return true;
}

void OutputFilePanel::cmdClearFile_Click() {
  txbFile->clear();
  txbFile->setFocus();
  EnableClearButtons();
}

void OutputFilePanel::txbFile_LostFocus() {
  TrimBox(*txbFile);
  EnableClearButtons();
}

void OutputFilePanel::chkDisableOutputToFile_Click() {
  if (!Path().empty()) EnabledByUser();
}

std::string OutputFilePanel::Path() const {
  return chkDisableOutputToFile->isChecked() ? std::string() : TrimmedPath(FromQt(txbFile->text()));
}

void OutputFilePanel::EnableDisableButtons(bool enabled) {
  enabled_ = enabled;
  EnableClearButtons();
}

void OutputFilePanel::EnableClearButtons() {
  if (enabled_) cmdClearFile->setEnabled(!txbFile->text().isEmpty());
}

void OutputFilePanel::SetPathToolTips() {
  ShowPathAsToolTip(*txbFile, Tr("To specify an output file click on the button labelled 'Output file'."));
}

std::vector<QWidget*> OutputFilePanel::TabOrder() const {
  return {cmdFile, txbFile, cmdClearFile, chkDisableOutputToFile};
}

}  // namespace korv
