#include "desktop/main_window/run_controller.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <utility>

#include "desktop/main_window/file_page.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/progress_value.h"
#include "desktop/main_window/report_panel.h"
#include "desktop/main_window/run_display.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/status_line.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/toolkit/text.h"
#include "report/listing_errors.h"
#include "report/output_file.h"
#include "report/summary.h"
#include "sources/detect/source_checks.h"
#include "sources/detect/text_file_check.h"
#include "sources/folders/folder_walk.h"
#include "wordlists/read_words.h"

namespace korv {
namespace {

constexpr size_t kSignOfLifeBelow = 3000;  // characters

}  // namespace

class RunController::Busy {
 public:
  Busy(RunController& run, bool counts) : run_(run) { run_.BeginRun(counts); }
  ~Busy() { run_.EndRun(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  RunController& run_;
};

RunController::RunController(const Desktop& desktop, RunClock& clock, const MainPanels& panels,
                             Workspace& work, const ProgramText& texts, Hooks hooks)
    : desktop_(desktop),
      clock_(clock),
      panels_(panels),
      work_(work),
      texts_(texts),
      hooks_(std::move(hooks)) {}

// ---- Counting

void RunController::cmdCountPhrases_Click() {
  if (Running()) {
    RunDisplay display(panels_, clock_, [] {});
    return AskToStop(desktop_.Messages, desktop_.Yielder, display);
  }
  FilterPanel& filter = *panels_.Result->Filter;
  // A key may have come here without the filter words having lost the focus.
  filter.txbFilterWords_LostFocus();
  RunRequest request = work_.RequestOfNow();
  request.OffersWaysOut = true;
  if (request.Options.SourceKind == TextSource::Clipboard) request.ClipboardText = desktop_.Clipboard.Text();
  ReportOptions report = work_.Current().Report;
  if (!AskBeforeCounting(request, report, desktop_.Files, desktop_.Messages)) return;
  FinishedRun finished;
  finished.Filtered = report.FilterActive;
  if (!request.OutputPath.empty() &&
      !CanOpenOutputFile(PathFromText(TrimmedPath(request.OutputPath)), desktop_.Files, desktop_.Messages)) {
    request.OutputPath.clear();
    finished.ToFile = false;
  }
  work_.Change(ChangedBy::Program, [&](Settings& settings) {
    settings.MinFrequency = request.Options.MinFrequency;
    settings.Report.FilterText = report.FilterText;
  });
  Count(std::move(request), std::move(finished));
}

void RunController::Count(RunRequest request, FinishedRun finished) {
  const ResultPanel::Contents before = panels_.Result->GetContents();
  const QString timeBefore = panels_.Run->lblTimeElapsed->text();
  FilePage& filePage = *panels_.Source->File;
  const QString inputFile = filePage.txbFile->text();
  const auto busy = StayBusy(true);
  CountedRun run;
  const RunEnd end = CountInto(run, request);
  // The files of a folder pass through the box; afterwards the user's own choice stands there again, and
  // the sizes of the last file are not the folder's.
  if (request.Options.SourceKind == TextSource::Folder) {
    filePage.txbFile->setText(inputFile);
    filePage.ShowSizes({}, {});
  }
  panels_.Status->ShowText({});
  if (end == RunEnd::Counted) {
    desktop_.Yielder.ClearStop();
    // A file that was chosen meanwhile is another one than that which could not be opened.
    finished.ToFile = finished.ToFile || !run.OutputPath.empty();
    finished.Result = MakeResult(std::move(request), std::move(run));
    return hooks_.Counted(std::move(finished));
  }
  filePage.ShowFileSizes();
  if (end == RunEnd::Stopped) return;
  // The last result is as good as before.
  if (countShown_) {
    panels_.Result->PutBack(before);
    hooks_.ShowResultAgain();
  }
  clock_.Stop();
  panels_.Run->lblTimeElapsed->setText(timeBefore);
}

RunEnd RunController::CountInto(CountedRun& run, const RunRequest& request) {
  RunDisplay display(panels_, clock_, [this] {
    // The counting has begun. A box full of the last result would take nothing of what is to be told now.
    if (std::exchange(countShown_, true)) return;
    hooks_.HideResult();
    panels_.Result->Output().Clear();
  });
  counting_ = &run;
  countShown_ = false;
  desktop_.Yielder.ClearStop();
  const RunEnd end = RunCount(request,
                              {.Messages = desktop_.Messages,
                               .Yielder = desktop_.Yielder,
                               .Files = desktop_.Files,
                               .Clock = desktop_.Clock,
                               .Numbers = desktop_.Numbers,
                               .Encodings = encodings_,
                               .View = display,
                               .Progress = progress_},
                              run);
  counting_ = nullptr;
  return end;
}

std::unique_ptr<ShownResult> RunController::MakeResult(RunRequest request, CountedRun run) {
  auto result = std::make_unique<ShownResult>();
  result->Request = std::move(request);
  result->Request.ClipboardText.clear();
  result->Run = std::move(run);
  if (result->Run.Table.Occurrences() == 0) {
    OfferedPhrases offered;
    if (FindOfferedPhrases(result->Run.Table, desktop_.Yielder, offered)) result->Offered = offered;
    desktop_.Yielder.ClearStop();
  }
  return result;
}

std::string RunController::CountSoFar() const {
  if (counting_ == nullptr || counting_->Facts.Options.SourceKind != TextSource::Folder) return {};
  return ProgressCountText(progress_.FilesRead, progress_.FoldersRead);
}

// ---- Listing

void RunController::List(ShownResult& result, const ReportOptions& options,
                         const std::optional<std::string>& path,
                         const std::function<void(ShownListing)>& listed) {
  const auto busy = StayBusy(false);
  if (!SetUpChainFor(result.Run, options, desktop_.Yielder)) return;
  const Report report{result.Run.Table, result.Run.Facts, options, desktop_.Numbers};
  if (!path) return listed(ListIntoBox(report));
  // What stands in the box is another listing.
  if (result.InSight) panels_.Result->Output().Clear();
  listed(ListIntoFile(report, *path));
}

ShownListing RunController::ListIntoBox(const Report& report) {
  ShownListing listing;
  listing.Options = report.Options;
  try {
    listing.List = ListWordsToTextBox(report, panels_.Result->Output(), desktop_.Yielder);
  } catch (const std::exception&) {
    listing.Failed = true;
    ShowListingError(report.Options, desktop_.Messages, &texts_);
  }
  return listing;
}

ShownListing RunController::ListIntoFile(const Report& report, const std::string& path) {
  panels_.Status->ShowText(QStringLiteral("Now writing to output file . . ."));
  panels_.Run->ShowProgress(-1);
  const FileListResult written =
      ListWordsToFile(report, PathFromText(path),
                      {.Files = desktop_.Files,
                       .Dialogs = desktop_.Messages,
                       .Texts = &texts_,
                       .Box = &panels_.Result->Output(),
                       .Encoding = desktop_.Encoding,
                       .Progress =
                           [this](uint32_t phrases) {
                             panels_.Status->ShowText(ToQt("Now writing to output file . . . " +
                                                           desktop_.Numbers.Grouped(phrases) + " phrases"));
                           }},
                      desktop_.Yielder);
  panels_.Status->ShowText({});
  ShownListing listing;
  listing.Options = report.Options;
  listing.List = written.List;
  listing.Failed = !written.Written && written.List.Outcome != ListOutcome::Stopped;
  if (written.Written) {
    listing.File = path;
    listing.Bytes = written.Bytes;
  }
  return listing;
}

void RunController::ListFolderFiles(const std::filesystem::path& folder, const FileSelection& files,
                                    bool includeSubfolders) {
  const auto busy = StayBusy(false);
  OutputBox& output = panels_.Result->Output();
  hooks_.HideResult();
  output.Clear();
  FolderWalk walk(desktop_.Files, desktop_.Yielder, files, includeSubfolders);
  FolderEvents events;
  events.Say = [&output](const std::string& text) { output.OutputToTxb(text); };
  events.Unreadable = [&output](const std::filesystem::path& path, const FileError& error) {
    output.OutputToTxb(UnreadableFolderText(path, error) + "\r\n");
  };
  const FolderTotals totals =
      ListFiles(walk, folder, events, [&output](const std::string& line) { output.OutputToTxb(line); });
  // Of a walk that was stopped nobody knows how many files there are.
  const std::string found =
      totals.Stopped ? StoppedCountingText(totals.Files) : WillBeScannedText(totals.Files, desktop_.Numbers);
  if (totals.Stopped) output.OutputToTxb(found + "\r\n");
  panels_.Status->ShowText(ToQt(found));
}

// ---- Reading word lists

void RunController::ReadWords(const WordListRequest& request, const std::function<void(ReadWordList)>& done) {
  ResultPanel& result = *panels_.Result;
  // The result stays in sight: the notice stands at its end.
  const size_t lengthBefore = result.OutputLength();
  const auto scrolledBefore = result.Scrolled();
  const std::string notice(ReadingNotice(request.Kind));
  result.Output().OutputToTxb(notice);
  result.ScrollTo(scrolledBefore);
  BeginListReading(notice);
  const auto end = qScopeGuard([this] { EndListReading(); });
  TextFileCheck check{.Files = desktop_.Files,
                      .Messages = desktop_.Messages,
                      .Format = desktop_.Numbers,
                      .ClearOutput = {},
                      .MacNoticeShown = macNoticeShown_};
  ListReading reading{
      .Check = check,
      .Encodings = encodings_,
      .Yield = desktop_.Yielder,
      .ShowWordsRead = [this](const std::string& text) { panels_.Status->ShowText(ToQt(text)); }};
  ReadWordList read;
  if (AttemptToReadWords(reading, request.Path, request.Kind, request.Rules, read.List, read.StateLabel)) {
    done(std::move(read));
  }
  macNoticeShown_ = check.MacNoticeShown;
  if (result.Output().Full()) return;
  result.TruncateOutput(lengthBefore);
  result.ScrollTo(scrolledBefore);
}

void RunController::BeginListReading(const std::string& notice) {
  panels_.Status->ShowText(ToQt(notice).trimmed());
  activity_ = Activity::ListReading;
  hooks_.EnableDisableButtons(false);
  panels_.Run->SetCountPhrasesCaption(RunPanel::Caption::Processing);
  // A stop of an earlier run does not concern the reading.
  desktop_.Yielder.ClearStop();
}

void RunController::EndListReading() {
  activity_ = Activity::None;
  panels_.Status->ShowText({});
  hooks_.EnableDisableButtons(true);
  hooks_.SetCountPhrasesCaption();
  hooks_.Ended();
}

// ---- While it goes on

std::shared_ptr<RunController::Busy> RunController::StayBusy(bool counts) {
  auto busy = busy_.lock();
  if (!busy) {
    busy = std::make_shared<Busy>(*this, counts);
    busy_ = busy;
  }
  return busy;
}

void RunController::BeginRun(bool counts) {
  activity_ = Activity::Run;
  progress_ = {};
  desktop_.Yielder.ClearStop();
  if (counts) clock_.Start();
  QPushButton* const button = panels_.Run->cmdCountPhrases;
  const QWidget* const focused = button->window()->focusWidget();
  hooks_.EnableDisableButtons(false);
  hooks_.SetCountPhrasesCaption();
  button->setEnabled(true);
  // A control that is disabled, if only for a moment, hands the focus on to whatever comes next.
  if (focused && (focused == button || !focused->isEnabled())) button->setFocus();
  panels_.Run->Begin();
  if (counts) panels_.Run->ShowTimeElapsed(clock_.Elapsed());
}

void RunController::EndRun() {
  if (clock_.Running()) panels_.Run->ShowTimeElapsed(clock_.Elapsed());
  clock_.Stop();
  panels_.Run->End();
  activity_ = Activity::None;
  hooks_.EnableDisableButtons(true);
  hooks_.SetCountPhrasesCaption();
  hooks_.Ended();
}

void RunController::Timer2_Timer() {
  if (clock_.Running()) panels_.Run->ShowTimeElapsed(clock_.Elapsed());
  // While a refusal of the source waits for its button, nothing has been found, and the last list still
  // stands.
  if (counting_ == nullptr || !countShown_) return;
  panels_.Result->ShowFoundSoFar(counting_->Table.PhraseCount());
  if (panels_.Report->chkSuppressWords->isChecked() && panels_.Result->OutputLength() < kSignOfLifeBelow) {
    panels_.Result->Output().OutputToTxb(". ");
  }
}

void RunController::tmrProgress_Timer() {
  panels_.Run->TurnTwirler();
  if (counting_ == nullptr) return;
  panels_.Run->ShowProgress(ProgressValue(progress_));
  // Until then the numbers of the last list stand beside it.
  if (countShown_) {
    panels_.Status->ShowCounts(progress_.FilesRead, progress_.Words, counting_->Table.PhraseCount());
  }
  if (progress_.FoldersRead != 0) panels_.Status->ShowFiles(CountSoFar());
}

}  // namespace korv
