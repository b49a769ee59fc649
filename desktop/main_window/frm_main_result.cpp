// What the main window tells of the last result: labels, notes, status line and title.

#include <QPlainTextEdit>
#include <QStatusBar>

#include "desktop/main_window/frm_main.h"
#include "desktop/main_window/open_associated.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"
#include "report/filter.h"
#include "report/output_file.h"
#include "report/report_rules.h"
#include "sources/detect/source_checks.h"

namespace korv {

void frmMain::ConnectResult() {
  Notes->OnAction([this](NoteAction action) { Guarded("TakeWayOut", [&] { TakeWayOut(action); })(); });
  const auto changed = Guarded("ShowResult", [this] { ShowResult(); });
  for (QComboBox* combo : {cboPhraseLength[0], cboPhraseLength[1], cboMinimumFrequency,
                           params_->cboShortWordSize, params_->cboLongWordSize}) {
    connect(combo, &QComboBox::currentIndexChanged, this, changed);
  }
  for (const QCheckBox* box : params_->findChildren<QCheckBox*>())
    connect(box, &QCheckBox::toggled, this, changed);
  for (const QCheckBox* box : {chkIncludeSubfolders, chkDisableOutputToFile})
    connect(box, &QCheckBox::toggled, this, changed);
  for (const QLineEdit* box : {txbFile[0], txbFile[1], txbFolder, txbFileFilepathSpecifications[0],
                               txbFileFilepathSpecifications[1], txbFilterWords})
    connect(box, &QLineEdit::textChanged, this, changed);
}

bool frmMain::WantsFilter() const {
  return !NormaliseFilterText(FromQt(txbFilterWords->text())).empty();
}

bool frmMain::ResultKeepsToWordRules() const {
  return result_ && !ChangesBetween(result_->Request, GatherRunRequest()).WordRules;
}

ChosenNow frmMain::GatherChosen() const {
  ChosenNow now;
  now.Changes = ChangesBetween(result_->Request, GatherRunRequest());
  now.Report = GatherReportOptions();
  now.Report.FilterText = NormaliseFilterText(now.Report.FilterText);
  now.Report.FilterActive = !now.Report.FilterText.empty();
  now.FormatAvailable = ApplyReportRules(now.Report, result_->Run.Facts.Options.SourceKind);
  if (!chkDisableOutputToFile->isChecked()) now.OutputPath = TrimmedPath(FromQt(txbFile[1]->text()));
  return now;
}

void frmMain::ShowResult() {
  SetTitle();
  // While something goes on its own numbers stand there.
  if (running_ || restoring_) return;
  const bool inSight = result_ && result_->InSight;
  const ResultLabels labels =
      inSight ? LabelsOf(*result_, desktop_.Numbers) : ResultLabels{" ", " ", " ", " "};
  lblNumberOfWords->setText(ToQt(labels.NumberOfWords));
  lblNumOccurrences->setText(ToQt(labels.NumOccurrences));
  lblTotalNumOccurrences->setText(ToQt(labels.TotalNumOccurrences));
  lblNumWordsExcluded->setText(ToQt(labels.NumWordsExcluded));
  if (!inSight) {
    HideCounts();
  } else {
    const RunSummary& facts = result_->Run.Facts;
    ShowCounts(facts.Options.SourceKind == TextSource::Folder ? facts.FilesScanned : 0, facts.Words.Taken,
               result_->Run.Table.PhraseCount());
    const std::string encoding = EncodingText(facts, desktop_.Numbers);
    lblStatusEncoding->setText(ToQt(encoding));
    lblStatusEncoding->setVisible(!encoding.empty());
  }
  Notes->ShowNotes(result_ ? NotesOf(*result_, GatherChosen(), desktop_.Numbers) : std::vector<ResultNote>{});
}

void frmMain::HideResult() {
  if (result_) result_->InSight = false;
  for (QLabel* label : {lblNumberOfWords, lblNumOccurrences, lblTotalNumOccurrences, lblNumWordsExcluded}) {
    label->clear();
  }
  HideCounts();
  Notes->ShowNotes({});
}

void frmMain::SetTitle() {
  const TextSource source = SourceKind();
  const QLineEdit* const box = source == TextSource::Folder ? txbFolder : txbFile[0];
  const std::string name = SourceName(source, FromQt(box->text()));
  setWindowTitle(name.empty() ? QStringLiteral("Korv") : ToQt(name) + QStringLiteral(" - Korv"));
}

void frmMain::FollowControls() {
  if (startUpCompleted_ && !restoring_ && Idle() && result_ && result_->InSight) {
    const ChosenNow now = GatherChosen();
    const bool writesFile = !now.OutputPath.empty() || !result_->Listing.File.empty();
    const bool differs =
        !SameForm(result_->Listing.Options, now.Report) || !SameFilter(result_->Listing.Options, now.Report);
    if (now.FormatAvailable && !writesFile && differs) ListTheResult(WantsFilter());
  }
  ShowResult();
}

void frmMain::ShowLastList() {
  const ShownListing& listing = result_->Listing;
  if (listing.File.empty() || !SameForm(listing.Options, GatherChosen().Report))
    return ListTheResult(WantsFilter(), false);
  output_->Clear();
  output_->OutputToTxb(WrittenText(listing.List.Phrases, listing.File, desktop_.Numbers) + "\r\n");
  result_->InSight = true;
  ShowResult();
}

void frmMain::TakeWayOut(NoteAction action) {
  if (!Idle() || !result_) return;
  const std::string written = result_->Listing.File;
  switch (action) {
    case NoteAction::ListAnew:
      return ListTheResult(WantsFilter());
    case NoteAction::CountAgain:
      return cmdCountPhrases_Click();
    case NoteAction::ShowLastList:
      return ShowLastList();
    case NoteAction::ShowAll:
      txbFilterWords->clear();
      return ListTheResult(false);
    case NoteAction::FilterResults:
      return cmdFilterResults_Click();
    case NoteAction::WriteToFile:
      if (!ChooseOutputFile()) return;
      chkDisableOutputToFile->setChecked(false);
      return ListTheResult(WantsFilter());
    case NoteAction::OpenFile:
      OpenWithAssociatedProgram(desktop_.Launcher, desktop_.Messages, written);
      return;
    case NoteAction::OpenFolder:
      OpenWithAssociatedProgram(desktop_.Launcher, desktop_.Messages,
                                PathToText(desktop_.Files.AbsolutePath(PathFromText(written)).parent_path()));
      return;
    case NoteAction::CountOnly:
      if (!params_->optCountOnlyWordsAndPhrases->isChecked()) params_->optCountOnlyWordsAndPhrases->click();
      return cmdSetParameters_Click();
    case NoteAction::WordsToIgnore:
      if (!params_->optWordsToIgnore->isChecked()) params_->optWordsToIgnore->click();
      return cmdSetParameters_Click();
    case NoteAction::WordRules:
      return cmdSetParameters_Click();
    case NoteAction::MinFrequency:
      return cboMinimumFrequency->setFocus();
    case NoteAction::Lengths:
      return cboPhraseLength[0]->setFocus();
  }
}

}  // namespace korv
