#include "desktop/main_window/result_controller.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <utility>

#include "app/run/run_changes.h"
#include "app/run/run_description.h"
#include "base/line_ends.h"
#include "base/translation.h"
#include "desktop/main_window/compare_panel.h"
#include "desktop/main_window/open_associated.h"
#include "desktop/main_window/output_file_panel.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/status_line.h"
#include "desktop/questions.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/results/run_tabs.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/guarded.h"
#include "report/filter.h"
#include "report/report_rules.h"
#include "report/summary.h"
#include "sources/detect/source_checks.h"

namespace korv {

ResultController::ResultController(const Desktop& desktop, const MainPanels& panels, Workspace& work,
                                   RunController& run, ShowSettings showSettings)
    : desktop_(desktop),
      panels_(panels),
      work_(work),
      run_(run),
      showSettings_(std::move(showSettings)),
      overwrite_(desktop.Files, desktop.Messages),
      runs_(*panels.Frame->Tabs, *panels.Result),
      kept_(desktop, panels, run, *this),
      exports_(desktop, panels, run, *this) {
  panels_.Frame->ViewChanged = [this] {
    Guarded(desktop_.Messages, "tabViews_Click", [this] { ShowResult(); })();
  };
  RunTabs& tabs = *panels_.Frame->Tabs;
  tabs.Chosen = [this](int) { Guarded(desktop_.Messages, "tabRuns_Click", [this] { FrontHasChanged(); })(); };
  tabs.Comparable = [this](int index) { return ComparableWith(index); };
  tabs.CompareWanted = [this](int a, int b) {
    Guarded(desktop_.Messages, "tabRuns_Compare", [&] { CompareRuns(a, b); })();
  };
  tabs.Closed = [this](int index) {
    Guarded(desktop_.Messages, "tabRuns_Close", [this, index] { CloseRun(index); })();
  };
}

bool ResultController::ResultKeepsTo(const WordRules& rules) const {
  if (!result_) return false;
  RunRequest request = work_.RequestOfNow();
  request.Rules = rules;
  return !ChangesBetween(result_->Request, request).WordRules;
}

bool ResultController::WantsFilter() const {
  return panels_.Result->Filter->WantsFilter();
}

ChosenNow ResultController::GatherChosen() const {
  ChosenNow now;
  RunRequest request = work_.RequestOfNow();
  if (IsOfSingleWords(*result_)) request = SingleWordsOf(std::move(request));
  now.Changes = ChangesBetween(result_->Request, request);
  now.Report = work_.Current().Report;
  now.Report.FilterText = NormaliseFilterText(now.Report.FilterText);
  now.Report.FilterActive = !now.Report.FilterText.empty();
  now.FormatAvailable = ApplyReportRules(now.Report, result_->Run.Facts.Options.SourceKind);
  if (!Compares()) now.OutputPath = panels_.OutputFile->Path();
  return now;
}

// ---- Listing

void ResultController::Take(FinishedRun finished) {
  runs_.Add(std::move(finished.Result));
  result_ = runs_.InFront();
  panels_.Frame->ShowRun(result_);
  RunChanged();
  DescribeRun();
  ShowMemory();
  if (Compares()) panels_.Compare->Remember(result_->Request);
  if (result_->KeptIn.empty())
    panels_.Source->Remember(result_->Request.Options.SourceKind, result_->Run.Facts.InputPath);
  ListTheResult(finished.Filtered, finished.ToFile);
}

void ResultController::DescribeRun() {
  const std::string when = FromQt(WhenCounted(*result_));
  runs_.Describe(ToQt(RunTip(*result_, when, desktop_.Numbers)));
}

void ResultController::ShowMemory() {
  panels_.Status->ShowMemory(runs_.Count(), runs_.Memory());
}

void ResultController::ListTheResult(bool filtered, bool toFile) {
  if (!result_) return;
  ReportOptions options = work_.Current().Report;
  options.FilterActive = filtered && !options.FilterText.empty();
  // A format that is there for folders only may have been chosen for the next count.
  ApplyReportRules(options, result_->Run.Facts.Options.SourceKind);
  std::optional<std::string> path;
  if (toFile && !Compares()) path = ConfirmedOutputPath();
  changedMeanwhile_ = false;
  run_.List(result_, options, path,
            [this, result = result_, intoFile = path.has_value(),
             before = panels_.Result->GetContents()](ShownListing listing) {
              // The last list is as good as before.
              if (listing.Failed && intoFile && result->InSight) return panels_.Result->PutBack(before);
              TakeListing(*result, std::move(listing));
            });
}

void ResultController::TakeListing(ShownResult& result, ShownListing listing) {
  if (!listing.File.empty()) overwrite_.Written(PathFromText(listing.File));
  result.Listing = std::move(listing);
  result.InSight = true;
  // The most frequent phrases stand at the top.
  panels_.Result->ScrollToTop();
}

std::optional<std::string> ResultController::ConfirmedOutputPath() {
  const std::string wanted = panels_.OutputFile->Path();
  if (wanted.empty()) return std::nullopt;
  std::optional<std::string> path = overwrite_.Confirm(wanted, work_.Current().WarnOnOverwrite);
  // Whatever was typed: what has been counted is never written over.
  if (path && OutputIsSource(*path)) path.reset();
  work_.Change(ChangedBy::Program, [&path](Settings& settings) {
    if (path)
      settings.OutputFile = *path;
    else
      settings.DisableOutputToFile = true;
  });
  return path;
}

bool ResultController::OutputIsSource(const std::string& path) {
  const RunSummary& facts = result_->Run.Facts;
  switch (facts.Options.SourceKind) {
    case TextSource::Clipboard:
      return false;
    case TextSource::SingleFile:
      if (!PathsMeetInOneFile(desktop_.Files, facts.InputPath, path)) return false;
      ShowInputFileError(desktop_.Messages, InputFileCode::SameAsOutput, facts.InputPath);
      return true;
    case TextSource::Folder:
      if (!facts.Paths.empty())
        return !ValidateOutputBeside(desktop_.Files, desktop_.Messages, facts.Paths, path,
                                     facts.IncludeSubfolders);
      if (!OutputIsInFolder(desktop_.Files, facts.InputPath, path, facts.IncludeSubfolders)) return false;
      ShowOutputInFolder(desktop_.Messages);
      return true;
  }
  return false;
}

void ResultController::RelistAfterChange() {
  if (!HasResult()) return;
  if (!run_.Idle()) {
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

void ResultController::FilterResults() {
  if (!HasResult()) return;
  if (!run_.Idle()) {
    changedMeanwhile_ = true;
    return;
  }
  ListTheResult(true);
}

void ResultController::FollowControls() {
  if (run_.Idle() && result_ && result_->InSight) {
    const ChosenNow now = GatherChosen();
    const bool writesFile = !now.OutputPath.empty() || !result_->Listing.File.empty();
    const bool differs =
        !SameForm(result_->Listing.Options, now.Report) || !SameFilter(result_->Listing.Options, now.Report);
    if (now.FormatAvailable && !writesFile && differs) ListTheResult(WantsFilter());
  }
  ShowResult();
}

void ResultController::OfferToWrite() {
  if (!run_.Idle() || !HasResult() || Compares()) return;
  if (desktop_.Messages.Show({.Text = Tr("Relist words (so as to write to file)?"),
                              .Title = Tr("Relist?"),
                              .Icon = Icon::Question,
                              .Buttons = Buttons::YesNo,
                              .DefaultAnswer = Answer::Yes,
                              .Question = questions::kRelist}) == Answer::Yes) {
    ListTheResult(WantsFilter());
  }
}

void ResultController::FrontHasChanged() {
  result_ = runs_.InFront();
  panels_.Frame->ShowRun(result_);
  RunChanged();
  if (!run_.Idle()) return;
  if (runs_.BringBox()) FollowControls();
  ShowResult();
}

std::vector<NamedRun> ResultController::ComparableWith(int index) const {
  const auto isOfText = [this](int run) {
    const RunSummary& facts = runs_.At(run).Run.Facts;
    return !facts.SecondSide && !facts.Counts;
  };
  std::vector<NamedRun> runs;
  if (index < 0 || !isOfText(index)) return runs;
  for (int other = 0; other < static_cast<int>(runs_.Count()); ++other)
    if (other != index && isOfText(other)) runs.push_back({other, runs_.NameOf(other)});
  return runs;
}

void ResultController::CompareRuns(int a, int b) {
  run_.CompareRuns(runs_.Share(a), runs_.Share(b));
}

void ResultController::CloseRun(int index) {
  if (runs_.Count() < 2) return;
  runs_.Close(index);
  FrontHasChanged();
  ShowMemory();
}

void ResultController::RunEnded() {
  // Another run may have come in front meanwhile.
  const bool another = runs_.BringBox();
  ShowResult();
  if (std::exchange(changedMeanwhile_, false)) {
    QTimer::singleShot(0, this,
                       Guarded(desktop_.Messages, "RelistAfterChange", [this] { RelistAfterChange(); }));
  } else if (another) {
    QTimer::singleShot(0, this, Guarded(desktop_.Messages, "FollowControls", [this] { FollowControls(); }));
  }
}

// ---- What is shown of the result

void ResultController::ShowResult() {
  // While something goes on its own numbers stand there.
  if (run_.Running()) return;
  const bool inSight = result_ && result_->InSight;
  panels_.Result->ShowLabels(inSight ? LabelsOf(*result_, desktop_.Numbers)
                                     : ResultLabels{" ", " ", " ", " "});
  if (inSight) {
    ShowCounts();
  } else {
    panels_.Status->HideCounts();
  }
  ShowNotes();
}

void ResultController::ShowNotes() {
  runs_.MarkChanged(work_.RequestOfNow());
  Shown();
  std::vector<ResultNote> notes;
  // How it is listed concerns the report alone.
  if (result_)
    notes = (panels_.Frame->View() == RunView::Report ? NotesOf : NotesOfRun)(*result_, GatherChosen(),
                                                                              desktop_.Numbers);
  panels_.Frame->Notes->ShowNotes(notes);
}

void ResultController::ShowCounts() {
  const RunSummary& facts = result_->Run.Facts;
  const bool folder = facts.Options.SourceKind == TextSource::Folder;
  panels_.Status->ShowCounts(folder ? facts.FilesScanned : 0, facts.Words.Taken,
                             result_->Run.Table.PhraseCount());
  panels_.Status->ShowEncoding(EncodingText(facts, desktop_.Numbers));
}

void ResultController::HideResult() {
  runs_.LendBox();
  panels_.Result->ClearLabels();
  panels_.Status->HideCounts();
  panels_.Frame->Notes->ShowNotes({});
}

void ResultController::ShowResultAgain() {
  runs_.TakeBoxBack();
}

void ResultController::ForgetListing() {
  if (result_) result_->InSight = false;
  ShowResult();
}

void ResultController::ShowLastList() {
  const ShownListing& listing = result_->Listing;
  if (listing.File.empty() || !SameForm(listing.Options, GatherChosen().Report))
    return ListTheResult(WantsFilter(), false);
  OutputBox& output = panels_.Result->Output();
  output.Clear();
  output.OutputToTxb(WrittenText(listing.List.Phrases, listing.File, desktop_.Numbers) + "\r\n");
  output.OutputToTxb(WithLineEnds(SkippedFilesText(result_->Run.Facts), kCrLf));
  result_->InSight = true;
  ShowResult();
}

// ---- Ways out

void ResultController::TakeWayOut(NoteAction action) {
  if (!run_.Idle() || !result_) return;
  switch (action) {
    case NoteAction::ListAnew:
      return ListTheResult(WantsFilter());
    case NoteAction::CountAgain:
      return IsOfSingleWords(*result_) ? run_.CountSingleWords() : run_.cmdCountPhrases_Click();
    case NoteAction::ShowLastList:
      return ShowLastList();
    case NoteAction::ShowAll:
      work_.Change(ChangedBy::Program, [](Settings& settings) { settings.Report.FilterText.clear(); });
      return ListTheResult(false);
    case NoteAction::FilterResults:
      return panels_.Result->Filter->cmdFilterResults_Click();
    case NoteAction::WriteToFile:
      // A comparison has a table of its own to be written.
      if (Compares()) return exports_.Export();
      if (!panels_.OutputFile->ChooseOutputFile()) return;
      work_.Change(ChangedBy::Program, [](Settings& settings) { settings.DisableOutputToFile = false; });
      return ListTheResult(WantsFilter());
    case NoteAction::OpenFile:
      return OpenWrittenFile();
    case NoteAction::OpenFolder:
      return OpenWrittenFolder();
    case NoteAction::CountOnly:
      return showSettings_(ListKind::CountOnly);
    case NoteAction::WordsToIgnore:
      return showSettings_(ListKind::WordsToIgnore);
    case NoteAction::CountLeftOut:
      return CountLeftOut();
    case NoteAction::ShowSkipped:
      return ShowSkipped();
    case NoteAction::WordRules:
      return showSettings_(std::nullopt);
    case NoteAction::MinFrequency:
      return panels_.Phrases->cboMinimumFrequency->setFocus();
    case NoteAction::Lengths:
      return panels_.Phrases->cboPhraseLength[0]->setFocus();
  }
}

void ResultController::ShowSkipped() {
  panels_.Frame->ShowView(RunView::Report);
  // The list of a file leaves room in the text box; any other has the skipped files at its top.
  if (!result_->InSight) ShowLastList();
  panels_.Result->ScrollToTop();
}

void ResultController::OpenWrittenFile() {
  OpenWithAssociatedProgram(desktop_.Launcher, desktop_.Messages, result_->Listing.File);
}

void ResultController::OpenWrittenFolder() {
  const std::filesystem::path file = PathFromText(result_->Listing.File);
  OpenWithAssociatedProgram(desktop_.Launcher, desktop_.Messages,
                            PathToText(desktop_.Files.AbsolutePath(file).parent_path()));
}

}  // namespace korv
