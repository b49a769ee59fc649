// The main window's source: what is to be counted, and choosing it.

#include <QLineEdit>
#include <QStackedWidget>

#include "desktop/dialogs/frm_clipboard.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/placement.h"
#include "sources/detect/source_checks.h"
#include "sources/folders/file_selection.h"
#include "sources/folders/folder_walk.h"

namespace korv {
namespace {

constexpr const char* kAnyTextFile = "Any text file (*.*) | *.*";

FileSelection SelectionOf(const std::array<QLineEdit*, 2>& boxes) {
  return {.Patterns = SplitPatterns(FromQt(boxes[0]->text())),
          .Exclusions = SplitPatterns(FromQt(boxes[1]->text()))};
}

}  // namespace

void frmMain::SelectSource(TextSource source) {
  switch (source) {
    case TextSource::Clipboard:
      optOnClipboard->setChecked(true);
      return optOnClipboard_Click();
    case TextSource::SingleFile:
      optInFile->setChecked(true);
      return optInFile_Click();
    case TextSource::Folder:
      optFolder->setChecked(true);
      return optFolder_Click();
  }
}

void frmMain::optOnClipboard_Click() {
  SourceHasChanged();
}

void frmMain::optInFile_Click() {
  SourceHasChanged();
  ShowFileSizes();
}

void frmMain::optFolder_Click() {
  SourceHasChanged();
}

void frmMain::SourceHasChanged() {
  const TextSource source = SourceKind();
  stkSource->setCurrentIndex(static_cast<int>(source));
  lblFilesize->setText(QStringLiteral(" "));
  lblXMLsize->setText(QStringLiteral(" "));
  for (QWidget* control :
       std::initializer_list<QWidget*>{txbFileFilepathSpecifications[0], txbFileFilepathSpecifications[1],
                                       chkIncludeSubfolders, cmdListFiles}) {
    control->setVisible(source == TextSource::Folder);
  }
  EnableDisableReportOptions();
  FollowControls();
}

void frmMain::cmdFile_Click(int index) {
  QLineEdit* box = txbFile[static_cast<size_t>(index)];
  if (index == 0) {
    const auto path = desktop_.Dialogs.ChooseFileToOpen(
        {.Title = "Specify an input file", .Filter = kAnyTextFile, .InitialPath = FromQt(box->text())});
    if (!path) return;
    TakeSource(ToQt(*path));
  } else {
    ChooseOutputFile();
  }
}

bool frmMain::ChooseOutputFile() {
  QLineEdit* const box = txbFile[1];
  const auto path = desktop_.Dialogs.ChooseFileToSave(
      {.Title = "Specify an output file", .Filter = kAnyTextFile, .InitialPath = FromQt(box->text())});
  if (!path) return false;
  const std::string folder = FromQt(txbFolder->text());
  if (SourceKind() == TextSource::Folder && !folder.empty() &&
      OutputIsInFolder(desktop_.Files, folder, *path, chkIncludeSubfolders->isChecked())) {
    ShowOutputInFolder(desktop_.Messages);
    return false;
  }
  box->setText(ToQt(*path));
  box->setCursorPosition(static_cast<int>(box->text().size()));
  EnableClearButtons();
  SetPathToolTips();
  return true;
}

void frmMain::cmdClearFile_Click(int index) {
  QLineEdit* box = txbFile[static_cast<size_t>(index)];
  box->clear();
  box->setFocus();
  if (index == 0) ShowFileSizes();
  EnableClearButtons();
}

void frmMain::txbFile_LostFocus(int index) {
  QLineEdit* box = txbFile[static_cast<size_t>(index)];
  const QString trimmed = box->text().trimmed();
  if (trimmed != box->text()) box->setText(trimmed);
  if (index == 0) ShowFileSizes();
  EnableClearButtons();
}

void frmMain::ShowFileSizes() {
  lblFilesize->setText(QStringLiteral(" "));
  lblXMLsize->setText(QStringLiteral(" "));
  const std::string path = TrimmedPath(FromQt(txbFile[0]->text()));
  if (SourceKind() != TextSource::SingleFile || path.empty()) return;
  const auto size = desktop_.Files.FileSize(PathFromText(path));
  if (size && desktop_.Files.FileExists(PathFromText(path))) {
    lblFilesize->setText(ToQt(FileSizeLabel(*size, desktop_.Numbers)));
  }
}

void frmMain::cmdFolder_Click() {
  const auto path = desktop_.Dialogs.ChooseFolder("Specify a folder", FromQt(txbFolder->text()));
  if (path) TakeSource(ToQt(*path));
}

void frmMain::cmdClearFolder_Click() {
  txbFolder->clear();
  txbFolder->setFocus();
  EnableClearButtons();
}

void frmMain::txbFolder_LostFocus() {
  const QString trimmed = txbFolder->text().trimmed();
  if (trimmed != txbFolder->text()) txbFolder->setText(trimmed);
  EnableClearButtons();
}

void frmMain::TakeSource(const QString& path) {
  const bool folder = desktop_.Files.FolderExists(PathFromText(FromQt(path)));
  QLineEdit* box = folder ? txbFolder : txbFile[0];
  box->setText(path);
  // The end of a path tells more than its beginning.
  box->setCursorPosition(static_cast<int>(path.size()));
  (folder ? recentFolders_ : recentFiles_).Add(path);
  SelectSource(folder ? TextSource::Folder : TextSource::SingleFile);
  EnableClearButtons();
  SetPathToolTips();
}

void frmMain::txbFileFilepathSpecifications_LostFocus(int index) {
  QLineEdit* box = txbFileFilepathSpecifications[static_cast<size_t>(index)];
  const QString joined = ToQt(JoinPatterns(SplitPatterns(FromQt(box->text()))));
  if (joined != box->text()) box->setText(joined);
  if (index == 0) WarnAboutDocPattern(FromQt(joined), desktop_.Messages);
  // Of its own faults only; those of the other box are told when that one is left.
  FileSelection own;
  (index == 0 ? own.Patterns : own.Exclusions) = SplitPatterns(FromQt(joined));
  ValidatePatterns(own, desktop_.Messages);
}

void frmMain::cmdListFiles_Click() {
  const FileSelection selection = SelectionOf(txbFileFilepathSpecifications);
  const std::string folderText = TrimmedFolderPath(FromQt(txbFolder->text()));
  if (!ValidatePatterns(selection, desktop_.Messages) ||
      !ValidateFolder(desktop_.Files, desktop_.Messages, folderText, {}, chkIncludeSubfolders->isChecked(),
                      true)) {
    return;
  }
  const std::filesystem::path folder = PathFromText(folderText);
  const RunGuard busy(*this);
  HideResult();
  output_->Clear();
  FolderWalk walk(desktop_.Files, desktop_.Yielder, selection, chkIncludeSubfolders->isChecked());
  FolderEvents events;
  events.Say = [this](const std::string& text) { output_->OutputToTxb(text); };
  events.Unreadable = [this](const std::filesystem::path& path, const FileError& error) {
    output_->OutputToTxb(UnreadableFolderText(path, error) + "\r\n");
  };
  const FolderTotals totals =
      ListFiles(walk, folder, events, [this](const std::string& line) { output_->OutputToTxb(line); });
  // Of a walk that was stopped nobody knows how many files there are.
  const std::string found =
      totals.Stopped ? StoppedCountingText(totals.Files) : WillBeScannedText(totals.Files, desktop_.Numbers);
  if (totals.Stopped) output_->OutputToTxb(found + "\r\n");
  ShowStatus(ToQt(found));
}

void frmMain::cmdClipboardViewer_Click() {
  if (desktop_.Launcher.OpenClipboardViewer()) return;
  if (!clipboardViewer_) clipboardViewer_ = std::make_unique<frmClipboard>(desktop_.Clipboard);
  if (!clipboardViewer_->isVisible()) CentreOver(*clipboardViewer_, *this);
  clipboardViewer_->ShowText();
}

}  // namespace korv
