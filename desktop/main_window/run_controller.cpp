#include "desktop/main_window/run_controller.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

#include "app/run/comparison_request.h"
#include "base/translation.h"
#include "desktop/main_window/compare_panel.h"
#include "desktop/main_window/file_page.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/progress_value.h"
#include "desktop/main_window/report_panel.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/status_line.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/guarded.h"
#include "report/listing_errors.h"
#include "report/output_file.h"
#include "report/summary.h"
#include "sources/detect/source_checks.h"
#include "sources/detect/text_file_check.h"
#include "sources/read/read_plan.h"
#include "wordlists/read_words.h"

namespace korv {
namespace {

constexpr size_t kSignOfLifeBelow = 3000;  // characters

}  // namespace

struct RunController::CountJob {
  CountedBefore Before;
  FinishedRun Finished;  ///< Without a result where there is none.
  RunEnd End = RunEnd::Failed;
  // What the window showed before.
  ResultPanel::Contents Box;
  QString Time;
  QString InputFile;
};

struct RunController::ListJob {
  std::shared_ptr<ShownResult> Result;
  std::optional<std::string> Path;
  ShownListing Listing;
  bool ClearsBox = false;  ///< What stands there is another listing.
  bool Listed = false;     ///< Not stopped before.
};

struct RunController::ReadJob {
  WordListRequest Request;
  ReadWordList Read;
  bool Done = false;
};

RunController::RunController(const Desktop& desktop, RunClock& clock, const MainPanels& panels,
                             Workspace& work, const ProgramText& texts, Hooks hooks)
    : desktop_(desktop),
      clock_(clock),
      panels_(panels),
      work_(work),
      texts_(texts),
      hooks_(std::move(hooks)),
      display_(panels, clock,
               [this] {
                 // The counting has begun. A box full of the last result would take no further text.
                 hooks_.HideResult();
                 panels_.Result->Output().Clear();
               }),
      thread_({.Loop = desktop.Loop,
               .Messages = desktop.Messages,
               .Observer = display_,
               .Box = panels.Result->Output()},
              desktop.Yielder) {
  thread_.OnIdle([this] { BecomeIdle(); });
}

RunController::~RunController() = default;

void RunController::WhenIdle(std::function<void()> act) {
  thread_.WhenIdle(Guarded(desktop_.Messages, CurrentHandler(), std::move(act)));
}

void RunController::Start(RunActivity what, std::function<void()> work,
                          std::function<void(std::exception_ptr)> done) {
  thread_.Start(what, std::move(work),
                [this, place = CurrentHandler(), done = std::move(done)](const std::exception_ptr& thrown) {
                  Guarded(desktop_.Messages, place, [&] { done(thrown); })();
                });
}

// ---- Counting

void RunController::cmdCountPhrases_Click() {
  for (const RunActivity unasked : {RunActivity::Exporting, RunActivity::KeepingRun, RunActivity::OpeningRun})
    if (Doing() == unasked) return thread_.RequestStop();
  if (Running()) {
    const auto hold = HoldStill();
    RunDisplay display(panels_, clock_, [] {});
    return AskToStop(desktop_.Messages, desktop_.Yielder, display);
  }
  BeginCount(false);
}

void RunController::CountSingleWords() {
  if (Idle()) BeginCount(true);
}

void RunController::BeginCount(bool singleWords) {
  FilterPanel& filter = *panels_.Result->Filter;
  // A key may have come here without the filter words having lost the focus.
  filter.txbFilterWords_LostFocus();
  RunRequest request = work_.RequestOfNow();
  if (!CanCompare(request)) return;
  const bool compares = !request.Compared.empty();
  if (singleWords) request = SingleWordsOf(std::move(request));
  request.OffersWaysOut = true;
  request.Options.KeepPlaces = true;
  if (ReadsClipboard(request)) request.ClipboardText = desktop_.Clipboard.Text();
  ReportOptions report = work_.Current().Report;
  const int minFrequency = request.Options.MinFrequency;
  if (!AskBeforeCounting(request, report, desktop_.Files, desktop_.Messages)) return;
  FinishedRun finished;
  finished.Filtered = report.FilterActive;
  finished.ToFile = !singleWords && !compares;
  if (!request.OutputPath.empty() &&
      !CanOpenOutputFile(PathFromText(TrimmedPath(request.OutputPath)), desktop_.Files, desktop_.Messages)) {
    request.OutputPath.clear();
    finished.ToFile = false;
  }
  work_.Change(ChangedBy::Program, [&](Settings& settings) {
    // That of a comparison is not the one that was chosen.
    if (request.Options.MinFrequency != minFrequency) settings.MinFrequency = request.Options.MinFrequency;
    settings.Report.FilterText = report.FilterText;
  });
  if (compares) SetKeyFrequency(request);
  Count(std::move(request), std::move(finished));
}

void RunController::Count(RunRequest request, FinishedRun finished, CountedBefore before) {
  const auto job = std::make_shared<CountJob>(CountJob{.Before = std::move(before),
                                                       .Finished = std::move(finished),
                                                       .Box = panels_.Result->GetContents(),
                                                       .Time = panels_.Run->lblTimeElapsed->text(),
                                                       .InputFile = panels_.Source->File->txbFile->text()});
  job->Finished.Result = thread_.Share(std::make_unique<ShownResult>());
  job->Finished.Result->Request = std::move(request);
  job->Finished.Result->Chosen = job->Before.Runs.empty() ? work_.Keep() : job->Before.Chosen;
  counted_ = job->Finished.Result->Request.Options.SourceKind;
  progress_ = {};
  phrasesFound_ = 0;
  display_.Begin();
  Start(
      RunActivity::Counting, [this, job] { CountOnWorker(*job); },
      [this, job](const std::exception_ptr& thrown) {
        EndCount(*job);
        if (thrown) std::rethrow_exception(thrown);
      });
  BeginRun(true);
}

void RunController::CountOnWorker(CountJob& job) {
  if (!RunsAreAsCounted(job.Before)) {
    job.End = RunEnd::Abandoned;
    return job.Finished.Result.reset();
  }
  ShownResult& result = *job.Finished.Result;
  thread_.OnTurn([this, &result] { phrasesFound_ = result.Run.Table.PhraseCount(); });
  job.End = RunCount(result.Request,
                     {.Messages = thread_.Messages(),
                      .Yielder = thread_.Yielder(),
                      .Files = desktop_.Files,
                      .Clock = desktop_.Clock,
                      .Numbers = desktop_.Numbers,
                      .Encodings = encodings_,
                      .View = thread_.Observer(),
                      .Progress = progress_},
                     result.Run);
  if (job.End != RunEnd::Counted) return job.Finished.Result.reset();
  result.Request.ClipboardText = {};
  if (result.Run.Table.Occurrences() > 0) return;
  thread_.Yielder().ClearStop();
  OfferedPhrases offered;
  if (FindOfferedPhrases(result.Run.Table, thread_.Yielder(), offered)) result.Offered = offered;
}

void RunController::EndCount(CountJob& job) {
  FilePage& filePage = *panels_.Source->File;
  // The files of a folder pass through the box; afterwards the user's own choice stands there again, and
  // the sizes of the last file are not the folder's.
  if (counted_ == TextSource::Folder) {
    filePage.txbFile->setText(job.InputFile);
    filePage.ShowSizes({}, {});
  }
  panels_.Status->ShowText({});
  // Once the program is to end, nothing is listed any more.
  if (Abandoned()) return;
  if (job.End == RunEnd::Counted) {
    job.Finished.Result->Took = clock_.Elapsed();
    job.Finished.Result->Ended = desktop_.Clock.WallTime();
    // A file that was chosen meanwhile is another one than that which could not be opened.
    job.Finished.ToFile = job.Finished.ToFile || !job.Finished.Result->Run.OutputPath.empty();
    return hooks_.Counted(std::move(job.Finished));
  }
  filePage.ShowFileSizes();
  if (job.End == RunEnd::Stopped) return;
  // The last result is as good as before.
  if (display_.ShownAnything()) {
    panels_.Result->PutBack(job.Box);
    hooks_.ShowResultAgain();
  }
  clock_.Stop();
  panels_.Run->lblTimeElapsed->setText(job.Time);
}

std::string RunController::CountSoFar() const {
  if (Doing() != RunActivity::Counting || counted_ != TextSource::Folder) return {};
  return ProgressCountText(progress_.FilesRead, progress_.FoldersRead);
}

// ---- Listing

void RunController::List(std::shared_ptr<ShownResult> result, const ReportOptions& options,
                         const std::optional<std::string>& path, std::function<void(ShownListing)> listed) {
  const bool inSight = result->InSight;
  const auto job =
      std::make_shared<ListJob>(ListJob{.Result = std::move(result), .Path = path, .Listing = {}});
  job->Listing.Options = options;
  job->ClearsBox = inSight;
  const bool begins = Idle();
  Start(
      RunActivity::Listing, [this, job] { ListOnWorker(*job); },
      [this, job, listed = std::move(listed)](const std::exception_ptr& thrown) {
        if (job->Path) panels_.Status->ShowText({});
        if (thrown) std::rethrow_exception(thrown);
        if (job->Listed) listed(std::move(job->Listing));
      });
  if (begins) BeginRun(false);
  if (!path) return;
  panels_.Status->ShowText(Tr("Now writing to output file . . ."));
  panels_.Run->ShowProgress(-1);
}

void RunController::ListOnWorker(ListJob& job) {
  if (!SetUpChainFor(job.Result->Run, job.Listing.Options, thread_.Yielder())) return;
  job.Path ? ListIntoFile(job) : ListIntoBox(job);
  job.Listed = true;
}

void RunController::ListIntoBox(ListJob& job) {
  const Report report{job.Result->Run.Table, job.Result->Run.Facts, job.Listing.Options, desktop_.Numbers};
  try {
    job.Listing.List = ListWordsToTextBox(report, thread_.Box(), thread_.Yielder());
  } catch (const std::exception&) {
    job.Listing.Failed = true;
    ShowListingError(report.Options, thread_.Messages(), &texts_);
  }
}

void RunController::ListIntoFile(ListJob& job) {
  const Report report{job.Result->Run.Table, job.Result->Run.Facts, job.Listing.Options, desktop_.Numbers};
  if (job.ClearsBox) thread_.Box().Clear();
  const FileListResult written =
      ListWordsToFile(report, PathFromText(*job.Path),
                      {.Files = desktop_.Files,
                       .Dialogs = thread_.Messages(),
                       .Texts = &texts_,
                       .Box = &thread_.Box(),
                       .Encoding = desktop_.Encoding,
                       .Progress =
                           [this](uint32_t phrases) {
                             thread_.Observer().TextProgress(
                                 Fill(TrCount("Now writing to output file . . . %1 phrases",
                                              "Now writing to output file . . . %1 phrases", phrases),
                                      {desktop_.Numbers.Grouped(phrases)}));
                           }},
                      thread_.Yielder());
  job.Listing.List = written.List;
  job.Listing.Failed = !written.Written && written.List.Outcome != ListOutcome::Stopped;
  if (!written.Written) return;
  job.Listing.File = *job.Path;
  job.Listing.Bytes = written.Bytes;
}

void RunController::ListFolderFiles(const std::filesystem::path& folder, const FileSelection& files,
                                    bool includeSubfolders) {
  const auto walk = std::make_shared<FolderWalk>(desktop_.Files, desktop_.Yielder, files, includeSubfolders);
  ListFilesBy([this, walk, folder] {
    TextOutput& output = thread_.Box();
    const FolderTotals totals = ListFiles(*walk, folder, ListingEvents(),
                                          [&output](const std::string& line) { output.OutputToTxb(line); });
    return EndListing(totals.Files, totals.Stopped);
  });
}

void RunController::ListFilesTogether(std::vector<SourcePath> paths, const FileSelection& files,
                                      bool includeSubfolders) {
  const auto walk = std::make_shared<FolderWalk>(desktop_.Files, desktop_.Yielder, files, includeSubfolders);
  ListFilesBy([this, walk, paths = std::move(paths)] {
    TextOutput& output = thread_.Box();
    FolderEvents events = ListingEvents();
    // Each folder would say anew that its files are counted.
    events.Say = nullptr;
    events.Wanted = [&output](const std::filesystem::path& path) {
      output.OutputToTxb(PathToText(path) + "\r\n");
    };
    ReadPlan plan;
    const bool whole = plan.AddTogether(paths, desktop_.Files, *walk, events);
    return EndListing(plan.Documents(), !whole);
  });
}

void RunController::ListFilesBy(std::function<std::string()> list) {
  const auto found = std::make_shared<std::string>();
  Start(
      RunActivity::ListingFiles, [list = std::move(list), found] { *found = list(); },
      [this, found](const std::exception_ptr& thrown) {
        if (thrown) std::rethrow_exception(thrown);
        panels_.Status->ShowText(ToQt(*found));
      });
  BeginRun(false);
  hooks_.HideResult();
  panels_.Result->Output().Clear();
}

FolderEvents RunController::ListingEvents() {
  TextOutput& output = thread_.Box();
  FolderEvents events;
  events.Say = [&output](const std::string& text) { output.OutputToTxb(text); };
  events.Unreadable = [&output](const std::filesystem::path& path, const FileError& error) {
    output.OutputToTxb(UnreadableFolderText(path, error) + "\r\n");
  };
  return events;
}

std::string RunController::EndListing(uint64_t files, bool stopped) {
  // Of a walk that was stopped nobody knows how many files there are.
  std::string found = stopped ? StoppedCountingText(files) : WillBeScannedText(files, desktop_.Numbers);
  if (stopped) thread_.Box().OutputToTxb(found + "\r\n");
  return found;
}

// ---- Reading word lists

void RunController::ReadWords(const WordListRequest& request, std::function<void(ReadWordList)> done) {
  ResultPanel& result = *panels_.Result;
  // The result stays in sight: the notice stands at its end.
  const size_t length = result.OutputLength();
  const auto scrolled = result.Scrolled();
  const std::string notice(ReadingNotice(request.Kind));
  result.Output().OutputToTxb(notice);
  result.ScrollTo(scrolled);
  panels_.Status->ShowText(ToQt(notice).trimmed());
  const auto job = std::make_shared<ReadJob>(ReadJob{.Request = request, .Read = {}});
  Start(
      RunActivity::ReadingWords, [this, job] { ReadOnWorker(*job); },
      [this, job, length, scrolled, done = std::move(done)](const std::exception_ptr& thrown) {
        panels_.Status->ShowText({});
        if (thrown) std::rethrow_exception(thrown);
        if (job->Done) done(std::move(job->Read));
        ResultPanel& box = *panels_.Result;
        if (box.Output().Full()) return;
        box.TruncateOutput(length);
        box.ScrollTo(scrolled);
      });
  hooks_.EnableDisableButtons(false);
  hooks_.SetCountPhrasesCaption();
}

void RunController::ReadOnWorker(ReadJob& job) {
  TextFileCheck check{.Files = desktop_.Files,
                      .Messages = thread_.Messages(),
                      .Format = desktop_.Numbers,
                      .ClearOutput = {},
                      .MacNoticeShown = macNoticeShown_};
  ListReading reading{
      .Check = check,
      .Encodings = encodings_,
      .Yield = thread_.Yielder(),
      .ShowWordsRead = [this](const std::string& text) { thread_.Observer().TextProgress(text); }};
  job.Done = AttemptToReadWords(reading, job.Request.Path, job.Request.Kind, job.Request.Rules, job.Read.List,
                                job.Read.StateLabel);
  macNoticeShown_ = check.MacNoticeShown;
}

// ---- While it goes on

void RunController::BeginRun(bool counts) {
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

void RunController::BecomeIdle() {
  if (clock_.Running()) panels_.Run->ShowTimeElapsed(clock_.Elapsed());
  clock_.Stop();
  panels_.Run->End();
  hooks_.EnableDisableButtons(true);
  hooks_.SetCountPhrasesCaption();
  hooks_.Ended();
}

bool RunController::CountIsShown() const {
  return Doing() == RunActivity::Counting && thread_.Working() && display_.ShownAnything();
}

void RunController::Timer2_Timer() {
  if (clock_.Running()) panels_.Run->ShowTimeElapsed(clock_.Elapsed());
  // While a refusal of the source waits for its button, nothing has been found, and the last list still
  // stands.
  if (!CountIsShown()) return;
  panels_.Result->ShowFoundSoFar(phrasesFound_);
  if (panels_.Report->chkSuppressWords->isChecked() && panels_.Result->OutputLength() < kSignOfLifeBelow) {
    panels_.Result->Output().OutputToTxb(". ");
  }
}

void RunController::tmrProgress_Timer() {
  panels_.Run->TurnTwirler();
  ShowKeptProgress();
  ShowExportProgress();
  if (Doing() != RunActivity::Counting || !thread_.Working()) return;
  panels_.Run->ShowProgress(ProgressValue(progress_));
  // Until then the numbers of the last list stand beside it.
  if (CountIsShown()) panels_.Status->ShowCounts(progress_.FilesRead, progress_.Words, phrasesFound_);
  if (progress_.FoldersRead != 0) panels_.Status->ShowFiles(CountSoFar());
}

}  // namespace korv
