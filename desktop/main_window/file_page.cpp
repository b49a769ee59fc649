#include "desktop/main_window/file_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/main_window/path_box.h"
#include "desktop/toolkit/file_filter.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/icons.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/detect/source_checks.h"

namespace korv {

FilePage::FilePage(const Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QVBoxLayout(this));
  auto* row = new QHBoxLayout;
  cmdFile = MakeButton("cmdFile_0", Tr("S&ingle file"), this);
  cmdFile->setIcon(NamedIcon("document-open"));
  cmdFile->setToolTip(Tr("Click on the 'Single file' button to specify an input file."));
  txbFile = MakeTextBox("txbFile_0", Tr("Path of the input file"), this);
  cmdClearFile = Described(MakeButton("cmdClearFile_0", Tr("Cle&ar"), this), Tr("Clear the input file"));
  row->addWidget(cmdFile);
  row->addWidget(txbFile, 1);
  row->addWidget(cmdClearFile);
  layout->addLayout(row);
  layout->addWidget(
      MakeHint(Tr("Plain text, HTML, XML, PHP or Word .docx. A file or a folder can also be dropped "
                  "anywhere on this window."),
               this));
  lblFilesize = MakeLabel("lblFilesize", this);
  lblXMLsize = MakeLabel("lblXMLsize", this);
  auto* sizes = new QHBoxLayout;
  sizes->addWidget(lblFilesize);
  sizes->addSpacing(16);
  sizes->addWidget(lblXMLsize);
  sizes->addStretch(1);
  layout->addLayout(sizes);

  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(cmdFile, "cmdFile_Click", [this] { cmdFile_Click(); });
  wiring.OnClick(cmdClearFile, "cmdClearFile_Click", [this] { cmdClearFile_Click(); });
  wiring.OnLeaving(txbFile, "txbFile_LostFocus", [this] { txbFile_LostFocus(); });
  wiring.OnText(txbFile, "txbFile_Change", [this] { EnableClearButtons(); });
}

FilePage::~FilePage() {
  StopListening(*this);
}

void FilePage::cmdFile_Click() {
  const auto path = desktop_.Dialogs.ChooseFileToOpen({.Title = Tr("Specify an input file"),
                                                       .Filter = AnyTextFile(),
                                                       .InitialPath = FromQt(txbFile->text())});
  if (path) Chosen(ToQt(*path));
}

void FilePage::cmdClearFile_Click() {
  txbFile->clear();
  txbFile->setFocus();
  ShowFileSizes();
  EnableClearButtons();
}

void FilePage::txbFile_LostFocus() {
  TrimBox(*txbFile);
  ShowFileSizes();
  EnableClearButtons();
}

void FilePage::ShowFileSizes() {
  ShowSizes({}, {});
  const std::string path = TrimmedPath(FromQt(txbFile->text()));
  if (!selected_ || path.empty()) return;
  const auto size = desktop_.Files.FileSize(PathFromText(path));
  if (size && desktop_.Files.FileExists(PathFromText(path))) {
    ShowSizes(FileSizeLabel(*size, desktop_.Numbers), {});
  }
}

void FilePage::ShowSizes(const std::string& fileSize, const std::string& textSize) {
  // A blank keeps the height of the line.
  lblFilesize->setText(fileSize.empty() ? QStringLiteral(" ") : ToQt(fileSize));
  lblXMLsize->setText(textSize.empty() ? QStringLiteral(" ") : ToQt(textSize));
}

void FilePage::EnableDisableButtons(bool enabled) {
  enabled_ = enabled;
  for (QWidget* control : std::initializer_list<QWidget*>{cmdFile, txbFile, cmdClearFile}) {
    control->setEnabled(enabled);
  }
  EnableClearButtons();
}

void FilePage::EnableClearButtons() {
  if (enabled_) cmdClearFile->setEnabled(!txbFile->text().isEmpty());
}

void FilePage::SetPathToolTips() {
  ShowPathAsToolTip(*txbFile, Tr("To specify an input file click on the button labelled 'Single file'."));
}

}  // namespace korv
