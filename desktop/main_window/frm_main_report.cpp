// The main window's report: its options, the filter, and listing what was counted.

#include <QGroupBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <utility>

#include "desktop/main_window/frm_main.h"
#include "desktop/questions.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"
#include "report/filter.h"
#include "report/report_rules.h"

namespace korv {
namespace {

constexpr int kFileListFormat = 10;

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
    desktop_.Messages.Show(UnavailableFormatMessage(FromQt(format)));
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
  cboDisplayFormat->setCurrentIndex(chkFileList->isChecked() ? kFileListFormat : 0);
}

void frmMain::RelistAfterChange() {
  if (!startUpCompleted_ || !HasResult()) return;
  if (!Idle()) {
    changedMeanwhile_ = true;
    return;
  }
  const ChosenNow now = GatherChosen();
  const ReportOptions& listed = result_->Listing.Options;
  const bool same = result_->InSight && !result_->Listing.Failed && SameForm(listed, now.Report) &&
                    SameFilter(listed, now.Report);
  if (same || !now.FormatAvailable) return ShowResult();
  ListTheResult(WantsFilter());
}

void frmMain::FollowWhatChangedMeanwhile() {
  if (!std::exchange(changedMeanwhile_, false)) return;
  QTimer::singleShot(0, this, Guarded("RelistAfterChange", [this] { RelistAfterChange(); }));
}

void frmMain::chkDisableOutputToFile_Click() {
  if (chkDisableOutputToFile->isChecked() || !Idle() || !HasResult() ||
      txbFile[1]->text().trimmed().isEmpty()) {
    return;
  }
  if (desktop_.Messages.Show({.Text = "Relist words (so as to write to file)?",
                              .Title = "Relist?",
                              .Icon = Icon::Question,
                              .Buttons = Buttons::YesNo,
                              .DefaultAnswer = Answer::Yes,
                              .Question = questions::kRelist}) == Answer::Yes) {
    ListTheResult(WantsFilter());
  }
}

void frmMain::txbFilterWords_LostFocus() {
  const QString normalised = ToQt(NormaliseFilterText(FromQt(txbFilterWords->text())));
  if (normalised != txbFilterWords->text()) txbFilterWords->setText(normalised);
}

void frmMain::txbFilterWords_KeyPress(int key) {
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return;
  txbFilterWords_LostFocus();
  cmdFilterResults_Click();
}

void frmMain::cmdFilterResults_Click() {
  txbFilterWords_LostFocus();
  if (txbFilterWords->text().isEmpty() || !HasResult()) return;
  if (!Idle()) {
    changedMeanwhile_ = true;
    return;
  }
  ListTheResult(true);
}

void frmMain::optFilterMode_Click() {
  txbFilterWords_LostFocus();
  if (WantsFilter()) RelistAfterChange();
}

void frmMain::cmdClear_Click() {
  txbFilterWords->clear();
  txbFilterWords->setFocus();
  cmdClear->setEnabled(false);
}

void frmMain::cmdClearOutput_Click() {
  output_->Clear();
  if (result_) result_->InSight = false;
  EnableClearButtons();
  ShowResult();
}

}  // namespace korv
