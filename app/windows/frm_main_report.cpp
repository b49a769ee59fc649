// The main window's report: its options, the filter, and listing what was counted.

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>

#include "app/windows/frm_main.h"
#include "app/windows/frm_params.h"
#include "platform/qt/text.h"
#include "report/filter.h"
#include "report/report_rules.h"

namespace korv {
namespace {

constexpr int kFileListFormat = 10;

/// Whether an unfiltered listing with `wanted` would only repeat what stands there.
bool SameListing(const ReportOptions& listed, const ReportOptions& wanted) {
  return !listed.FilterActive && listed.DisplayFormat == wanted.DisplayFormat &&
         listed.WordOrder == wanted.WordOrder && listed.RelativeFrequency == wanted.RelativeFrequency &&
         listed.SortByNumberOfFiles == wanted.SortByNumberOfFiles;
}

}  // namespace

ReportOptions frmMain::GatherReportOptions() const {
  ReportOptions options;
  options.DisplayFormat = cboDisplayFormat->currentIndex();
  options.WordOrder = cboWordOrder->currentIndex();
  options.RelativeFrequency = chkDisplayRelativeFrequency->isChecked();
  options.SortByNumberOfFiles = chkSortByNumberOfFiles->isChecked();
  options.FileList = chkFileList->isChecked();
  options.FilterText = FromQt(txbFilterWords->text());
  options.FilterModeOfWords = optIncludeAllWordsAsSubphrase->isChecked()   ? FilterMode::Subphrase
                              : optIncludeAllWordsInSameOrder->isChecked() ? FilterMode::AllWordsInSameOrder
                                                                           : FilterMode::AllWords;
  return options;
}

void frmMain::EnableDisableReportOptions() {
  const TextSource source = SourceKind();
  ReportOptions options = GatherReportOptions();
  const QString format = cboDisplayFormat->currentText();
  const bool available = ApplyReportRules(options, source);
  if (!available) {
    const QSignalBlocker quiet(cboDisplayFormat);
    cboDisplayFormat->setCurrentIndex(options.DisplayFormat);
  }
  const ReportRules rules = RulesOfOptions(options, source);
  chkDisplayRelativeFrequency->setEnabled(rules.RelativeFrequencyEnabled);
  chkSortByNumberOfFiles->setEnabled(rules.SortByNumberOfFilesEnabled);
  chkSortByNumberOfFiles->setChecked(options.SortByNumberOfFiles);
  chkFileList->setVisible(source == TextSource::Folder);
  chkFileList->setChecked(options.DisplayFormat == kFileListFormat);
  if (!available && startUpCompleted_ && !restoring_)
    desktop_.messages.Show(UnavailableFormatMessage(FromQt(format)));
}

void frmMain::cboDisplayFormat_Click() {
  if (restoring_) return;
  EnableDisableReportOptions();
  RelistAfterChange();
}

void frmMain::cboWordOrder_Click() {
  if (restoring_) return;
  EnableDisableReportOptions();
  RelistAfterChange();
}

void frmMain::chkDisplayRelativeFrequency_Click() {
  EnableDisableReportOptions();
  RelistAfterChange();
}

void frmMain::chkSortByNumberOfFiles_Click() {
  RelistAfterChange();
}

void frmMain::chkFileList_Click() {
  // Format 10 is left by choosing another one, not by this box.
  if (!chkFileList->isChecked()) return;
  cboDisplayFormat->setCurrentIndex(kFileListFormat);
}

void frmMain::RelistAfterChange() {
  if (!startUpCompleted_ || !Idle() || !HasResult()) return;
  if (listed_ && SameListing(*listed_, GatherReportOptions())) return;
  ListTheResult(false);
}

void frmMain::chkDisableOutputToFile_Click() {
  if (chkDisableOutputToFile->isChecked() || !Idle() || !HasResult() ||
      txbFile[1]->text().trimmed().isEmpty()) {
    return;
  }
  if (desktop_.messages.Show({.text = "Relist words (so as to write to file)?",
                              .title = "Relist?",
                              .icon = Icon::Question,
                              .buttons = Buttons::YesNo,
                              .defaultAnswer = Answer::Yes,
                              .question = Question::Relist}) == Answer::Yes) {
    ListTheResult(false);
  }
}

void frmMain::txbFilterWords_LostFocus() {
  const QString normalised = ToQt(NormaliseFilterText(FromQt(txbFilterWords->text())));
  if (normalised != txbFilterWords->text()) txbFilterWords->setText(normalised);
}

void frmMain::txbFilterWords_KeyPress(int key) {
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    txbFilterWords_LostFocus();
    cmdFilterResults_Click();
  } else {
    cmdClear->setEnabled(true);
  }
}

void frmMain::cmdFilterResults_Click() {
  txbFilterWords_LostFocus();
  if (!Idle() || txbFilterWords->text().isEmpty() || !HasResult()) return;
  ListTheResult(true);
}

void frmMain::cmdClear_Click() {
  txbFilterWords->clear();
  txbFilterWords->setFocus();
  cmdClear->setEnabled(false);
}

void frmMain::cmdClearOutput_Click() {
  output_->Clear();
  EnableClearButtons();
}

}  // namespace korv
