#include "desktop/main_window/folder_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>

#include "app/run/result_notes.h"
#include "base/translation.h"
#include "desktop/main_window/path_box.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/icons.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/detect/source_checks.h"

namespace korv {
namespace {

/// "3 files: a.txt, b.txt, c.txt".
std::string TogetherText(const std::vector<SourcePath>& paths) {
  constexpr size_t kMostNamed = 20;
  std::string text = TogetherName(paths) + ": ";
  for (size_t i = 0; i < std::min(kMostNamed, paths.size()); ++i)
    text += (i == 0 ? "" : ", ") + PathToText(PathFromText(paths[i].Path).filename());
  return text + (paths.size() > kMostNamed ? ", ..." : "");
}

}  // namespace

FolderPage::FolderPage(const Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QGridLayout(this));
  layout->setVerticalSpacing(3);
  BuildFolderRow(*layout);
  BuildPatterns(*layout);
  BuildFoot(*layout);
  for (QWidget* control : FileChoices()) KeepPlaceWhenHidden(control);
  layout->setColumnStretch(1, 1);
  Connect();
}

FolderPage::~FolderPage() {
  StopListening(*this);
}

void FolderPage::BuildFolderRow(QGridLayout& layout) {
  cmdFolder = MakeButton("cmdFolder", Tr("F&older"), this);
  cmdFolder->setIcon(NamedIcon("folder-open"));
  cmdFolder->setToolTip(Tr("Click on the 'Folder' button to specify a folder with input files."));
  txbFolder = MakeTextBox("txbFolder", Tr("Path of the folder"), this);
  cmdClearFolder = Described(MakeButton("cmdClearFolder", Tr("Cle&ar"), this), Tr("Clear the folder"));
  layout.addWidget(cmdFolder, 0, 0);
  lblTogether = Named(new ElidingLabel(this), "lblTogether");
  lblTogether->hide();
  layout.addWidget(txbFolder, 0, 1);
  layout.addWidget(lblTogether, 0, 1);
  layout.addWidget(cmdClearFolder, 0, 2);
}

void FolderPage::BuildPatterns(QGridLayout& layout) {
  struct Row {
    const char* Name;
    const char* Caption;
    const char* Examples;
  };
  constexpr std::array<Row, 2> kRows = {
      {{"txbFileFilepathSpecifications_0", TrLater("Scan files matching patterns:"),
        TrLater("E.g., *.txt, *.docx, a*.htm*, b*.xml")},
       {"txbFileFilepathSpecifications_1", TrLater("Exclude filepaths containing text:"),
        TrLater("E.g., copy, bak")}}};
  for (size_t i = 0; i < kRows.size(); ++i) {
    auto* box = MakeTextBox(kRows[i].Name, Tr(kRows[i].Caption), this);
    box->setPlaceholderText(Tr(kRows[i].Examples));
    box->setToolTip(box->placeholderText());
    txbFileFilepathSpecifications[i] = box;
    const int row = 1 + 2 * static_cast<int>(i);
    layout.addWidget(MakeCaption(Tr(kRows[i].Caption), box, this), row, 0, 1, 3);
    layout.addWidget(box, row + 1, 0, 1, 3);
  }
}

void FolderPage::BuildFoot(QGridLayout& layout) {
  chkIncludeSubfolders = MakeCheckBox("chkIncludeSubfolders", Tr("Include subfolders"), this);
  cmdListFiles = MakeButton("cmdListFiles", Tr("List files to be sca&nned"), this);
  auto* foot = new QHBoxLayout;
  foot->addWidget(chkIncludeSubfolders);
  foot->addStretch(1);
  foot->addWidget(cmdListFiles);
  layout.addLayout(foot, 5, 0, 1, 3);
}

void FolderPage::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(cmdFolder, "cmdFolder_Click", [this] { cmdFolder_Click(); });
  wiring.OnClick(cmdClearFolder, "cmdClearFolder_Click", [this] { cmdClearFolder_Click(); });
  wiring.OnLeaving(txbFolder, "txbFolder_LostFocus", [this] { txbFolder_LostFocus(); });
  wiring.OnClick(cmdListFiles, "cmdListFiles_Click", [this] { cmdListFiles_Click(); });
  for (int i = 0; i < 2; ++i) {
    QLineEdit* box = txbFileFilepathSpecifications[static_cast<size_t>(i)];
    wiring.OnLeaving(box, "txbFileFilepathSpecifications_LostFocus",
                     [this, i] { txbFileFilepathSpecifications_LostFocus(i); });
  }
  wiring.OnText(txbFolder, "txbFolder_Change", [this] { EnableClearButtons(); });
}

void FolderPage::cmdFolder_Click() {
  const auto path = desktop_.Dialogs.ChooseFolder(Tr("Specify a folder"), FromQt(txbFolder->text()));
  if (path) Chosen(ToQt(*path));
}

void FolderPage::cmdClearFolder_Click() {
  if (!together_.empty()) {
    TogetherEnded();
    txbFolder->setFocus();
    return;
  }
  txbFolder->clear();
  txbFolder->setFocus();
  EnableClearButtons();
}

void FolderPage::txbFolder_LostFocus() {
  TrimBox(*txbFolder);
  EnableClearButtons();
}

void FolderPage::txbFileFilepathSpecifications_LostFocus(int index) {
  QLineEdit* box = txbFileFilepathSpecifications[static_cast<size_t>(index)];
  const QString joined = ToQt(JoinPatterns(SplitPatterns(FromQt(box->text()))));
  if (joined != box->text()) box->setText(joined);
  if (index == 0) WarnAboutDocPattern(FromQt(joined), desktop_.Messages);
  // Of its own faults only; those of the other box are told when that one is left.
  FileSelection own;
  (index == 0 ? own.Patterns : own.Exclusions) = SplitPatterns(FromQt(joined));
  ValidatePatterns(own, desktop_.Messages);
}

void FolderPage::cmdListFiles_Click() {
  const FileSelection selection = Selection();
  if (!together_.empty()) {
    if (ValidatePatterns(selection, desktop_.Messages)) ListTogether(selection);
    return;
  }
  const std::string folder = TrimmedFolderPath(FromQt(txbFolder->text()));
  if (!ValidatePatterns(selection, desktop_.Messages) ||
      !ValidateFolder(desktop_.Files, desktop_.Messages, folder, {}, chkIncludeSubfolders->isChecked(),
                      true)) {
    return;
  }
  ListFilesOf(PathFromText(folder), selection);
}

FileSelection FolderPage::Selection() const {
  return {.Patterns = SplitPatterns(FromQt(txbFileFilepathSpecifications[0]->text())),
          .Exclusions = SplitPatterns(FromQt(txbFileFilepathSpecifications[1]->text())),
          .OtherDocuments = ReadsOtherDocuments()};
}

void FolderPage::ShowTogether(const std::vector<SourcePath>& paths) {
  if (paths == together_) return;
  together_ = paths;
  const bool several = !together_.empty();
  txbFolder->setVisible(!several);
  lblTogether->setVisible(several);
  lblTogether->setText(several ? ToQt(TogetherText(together_)) : QString());
  EnableClearButtons();
}

bool FolderPage::RefusesOutput(const std::string& path) const {
  const bool subfolders = chkIncludeSubfolders->isChecked();
  if (!together_.empty())
    return !ValidateOutputBeside(desktop_.Files, desktop_.Messages, together_, path, subfolders);
  const std::string folder = FromQt(txbFolder->text());
  if (folder.empty() || !OutputIsInFolder(desktop_.Files, folder, path, subfolders)) return false;
  ShowOutputInFolder(desktop_.Messages);
  return true;
}

void FolderPage::ShowFileChoices(bool shown) {
  for (QWidget* control : FileChoices()) control->setVisible(shown);
}

void FolderPage::EnableDisableButtons(bool enabled) {
  enabled_ = enabled;
  for (QWidget* control : std::initializer_list<QWidget*>{
           cmdFolder, txbFolder, cmdClearFolder, txbFileFilepathSpecifications[0],
           txbFileFilepathSpecifications[1], chkIncludeSubfolders, cmdListFiles}) {
    control->setEnabled(enabled);
  }
  EnableClearButtons();
}

void FolderPage::EnableClearButtons() {
  if (enabled_) cmdClearFolder->setEnabled(!txbFolder->text().isEmpty() || !together_.empty());
}

void FolderPage::SetPathToolTips() {
  ShowPathAsToolTip(*txbFolder, Tr("To specify a folder click on the button labelled 'Folder'."));
}

std::array<QWidget*, 4> FolderPage::FileChoices() const {
  return {txbFileFilepathSpecifications[0], txbFileFilepathSpecifications[1], chkIncludeSubfolders,
          cmdListFiles};
}

}  // namespace korv
