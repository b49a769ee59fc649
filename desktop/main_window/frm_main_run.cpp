// The main window's run: a click on "Count phrases", what is shown while it goes on, and its report.

#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTimer>
#include <array>
#include <utility>

#include "app/run/run_request.h"
#include "base/time_text.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"
#include "report/listing_errors.h"
#include "report/output_file.h"
#include "report/report_rules.h"
#include "report/summary.h"
#include "sources/detect/source_checks.h"
#include "sources/detect/text_file_check.h"

namespace korv {
namespace {

constexpr int kProgressTick = 100;  // milliseconds
constexpr int kWholeProgress = 1000;
constexpr int kReadingShare = 700;
constexpr size_t kSignOfLifeBelow = 3000;  // characters
constexpr std::array<const char*, 4> kTwirler = {"\xE2\x97\x90", "\xE2\x97\x93", "\xE2\x97\x91",
                                                 "\xE2\x97\x92"};

/// How much of a run lies behind it, of kWholeProgress; -1 where nobody can tell.
int ProgressValue(const RunProgress& progress) {
  const auto shareOf = [](uint64_t done, uint64_t all) {
    return static_cast<int>(kReadingShare * static_cast<double>(std::min(done, all)) /
                            static_cast<double>(all));
  };
  switch (progress.Stage) {
    case RunStage::Reading:
      if (progress.CountingFiles) return -1;
      if (progress.FilesTotal > 0) return shareOf(progress.FilesRead, progress.FilesTotal);
      return progress.BytesTotal > 0 ? shareOf(progress.BytesRead, progress.BytesTotal) : 0;
    case RunStage::Counting:
      return kReadingShare;
    case RunStage::Sorting:
      return 850;
    case RunStage::Exclusion:
      return 900;
    case RunStage::Chain:
      return 940;
    case RunStage::Writing:
      return 960;
  }
  return 0;
}

}  // namespace

/// What a run shows, in the window's controls.
class frmMain::WindowRunObserver final : public RunObserver {
 public:
  explicit WindowRunObserver(frmMain& main) : main_(main) {}

  void Status(const std::string& text) override {
    // The counting has begun. A box full of the last result would take nothing of what is to be told now.
    if (main_.counting_ != nullptr && !std::exchange(main_.countShown_, true)) {
      main_.HideResult();
      main_.output_->Clear();
    }
    main_.output_->OutputToTxb(text + "\r\n");
    main_.ShowStatus(ToQtLines(text).simplified());
  }
  void Notice(const std::string& text) override { main_.output_->OutputToTxb(text + "\r\n"); }
  void ClearOutput() override { main_.output_->Clear(); }
  void InputFile(const std::string& path) override {
    main_.txbFile[0]->setText(ToQt(path));
    if (!path.empty()) main_.ShowStatus(ToQt(path));
  }
  void Sizes(const std::string& fileSize, const std::string& textSize) override {
    main_.lblFilesize->setText(fileSize.empty() ? QStringLiteral(" ") : ToQt(fileSize));
    main_.lblXMLsize->setText(textSize.empty() ? QStringLiteral(" ") : ToQt(textSize));
  }
  void FileKind(const std::string& text) override { main_.lblTotalNumOccurrences->setText(ToQt(text)); }
  void TextProgress(const std::string& bar) override { main_.ShowStatus(ToQt(bar)); }
  std::optional<std::string> ChooseOutputFile() override {
    const RunClock::Waiting waiting(main_.runClock_);
    if (!main_.ChooseOutputFile()) return std::nullopt;
    main_.chkDisableOutputToFile->setChecked(false);
    return FromQt(main_.txbFile[1]->text());
  }

 private:
  frmMain& main_;
};

/// What the text box holds, to be put back where a run comes to nothing.
class frmMain::BoxContents {
 public:
  explicit BoxContents(const frmMain& main)
      : text_(main.txbOutput->toPlainText()),
        full_(main.output_->Full()),
        kept_(main.output_->Kept()),
        vertical_(main.txbOutput->verticalScrollBar()->value()),
        horizontal_(main.txbOutput->horizontalScrollBar()->value()),
        inSight_(main.result_ && main.result_->InSight) {}

  void PutBack(frmMain& main) const {
    main.output_->Restore(FromQt(QString(text_).replace(u'\n', QLatin1String("\r\n"))), full_, kept_);
    main.txbOutput->verticalScrollBar()->setValue(vertical_);
    main.txbOutput->horizontalScrollBar()->setValue(horizontal_);
    if (main.result_) main.result_->InSight = inSight_;
  }

 private:
  QString text_;
  bool full_;
  size_t kept_;
  int vertical_;
  int horizontal_;
  bool inSight_;
};

RunRequest frmMain::GatherRunRequest() const {
  const Settings settings = GatherSettings();
  RunRequest request = RunRequestOf(settings);
  request.Lists = params_->GatherWordFilterSpec(settings.Words);
  request.OffersWaysOut = true;
  return request;
}

void frmMain::cmdCountPhrases_Click() {
  WindowRunObserver view(*this);
  if (running_) {
    AskToStop(desktop_.Messages, desktop_.Yielder, view);
    return;
  }
  const BoxContents before(*this);
  const QString timeBefore = lblTimeElapsed->text();
  // A key may have come here without the filter words having lost the focus.
  txbFilterWords_LostFocus();
  RunRequest request = GatherRunRequest();
  if (request.Options.SourceKind == TextSource::Clipboard) request.ClipboardText = desktop_.Clipboard.Text();
  ReportOptions report = GatherReportOptions();
  if (!AskBeforeCounting(request, report, desktop_.Files, desktop_.Messages)) return;
  bool toFile = true;
  if (!request.OutputPath.empty() &&
      !CanOpenOutputFile(PathFromText(TrimmedPath(request.OutputPath)), desktop_.Files, desktop_.Messages)) {
    request.OutputPath.clear();
    toFile = false;
  }
  cboMinimumFrequency->setCurrentIndex(request.Options.MinFrequency - 1);
  txbFilterWords->setText(ToQt(report.FilterText));
  cmdClear->setEnabled(!report.FilterText.empty());

  const QString inputFile = txbFile[0]->text();
  const RunGuard busy(*this, true);
  CountedRun run;
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
                               .View = view,
                               .Progress = progress_},
                              run);
  counting_ = nullptr;
  // The files of a folder pass through the box; afterwards the user's own choice stands there again, and
  // the sizes of the last file are not the folder's.
  if (request.Options.SourceKind == TextSource::Folder) {
    txbFile[0]->setText(inputFile);
    view.Sizes("", "");
  }
  ShowStatus({});
  if (end != RunEnd::Counted) {
    ShowFileSizes();
    if (end == RunEnd::Stopped) return;
    // The last result is as good as before.
    if (countShown_) before.PutBack(*this);
    runClock_.Stop();
    lblTimeElapsed->setText(timeBefore);
    return;
  }

  desktop_.Yielder.ClearStop();
  TakeResult(request, std::move(run));
  // A file that was chosen meanwhile is another one than that which could not be opened.
  ListTheResult(report.FilterActive, toFile || !result_->Run.OutputPath.empty());
}

void frmMain::TakeResult(const RunRequest& request, CountedRun run) {
  result_ = std::make_unique<ShownResult>();
  result_->Request = request;
  result_->Request.ClipboardText.clear();
  result_->Run = std::move(run);
  if (result_->Run.Table.Occurrences() == 0) {
    OfferedPhrases offered;
    if (FindOfferedPhrases(result_->Run.Table, desktop_.Yielder, offered)) result_->Offered = offered;
    desktop_.Yielder.ClearStop();
  }
  if (request.Options.SourceKind != TextSource::Clipboard) {
    (request.Options.SourceKind == TextSource::Folder ? recentFolders_ : recentFiles_)
        .Add(ToQt(result_->Run.Facts.InputPath));
  }
}

void frmMain::ShowCounts(uint64_t files, uint64_t words, uint64_t phrases) {
  const auto count = [this](uint64_t number, const char* one, const char* many) {
    return ToQt(desktop_.Numbers.Grouped(static_cast<int64_t>(number))) + u' ' +
           QString::fromUtf8(number == 1 ? one : many);
  };
  lblStatusFiles->setText(files == 0 ? QString() : count(files, "file", "files"));
  // Some styles draw lines between the fields, around empty ones too.
  lblStatusFiles->setVisible(files != 0);
  lblStatusWords->setText(count(words, "word", "words"));
  lblStatusPhrases->setText(count(phrases, "different phrase", "different phrases"));
  lblStatusWords->show();
  lblStatusPhrases->show();
}

void frmMain::HideCounts() {
  for (QLabel* label : {lblStatusEncoding, lblStatusFiles, lblStatusWords, lblStatusPhrases}) label->hide();
}

// ---- Listing

void frmMain::ListTheResult(bool filtered, bool toFile) {
  if (!result_) return;
  ReportOptions options = GatherReportOptions();
  options.FilterActive = filtered && !options.FilterText.empty();
  // A format that is there for folders only may have been chosen for the next count.
  ApplyReportRules(options, result_->Run.Facts.Options.SourceKind);
  std::optional<std::string> path;
  if (toFile) path = ConfirmedOutputPath();

  std::optional<RunGuard> busy;
  if (!running_) busy.emplace(*this);
  changedMeanwhile_ = false;
  if (!SetUpChainFor(result_->Run, options, desktop_.Yielder)) return;
  const Report report{result_->Run.Table, result_->Run.Facts, options, desktop_.Numbers};
  const BoxContents before(*this);
  ShownListing listing = path ? ListIntoFile(report, *path) : ListIntoBox(report);
  if (listing.Failed && path && result_->InSight) return before.PutBack(*this);
  result_->Listing = std::move(listing);
  result_->InSight = true;
  // The most frequent phrases stand at the top.
  txbOutput->verticalScrollBar()->setValue(0);
  txbOutput->horizontalScrollBar()->setValue(0);
}

ShownListing frmMain::ListIntoBox(const Report& report) {
  ShownListing listing;
  listing.Options = report.Options;
  try {
    listing.List = ListWordsToTextBox(report, *output_, desktop_.Yielder);
  } catch (const std::exception&) {
    listing.Failed = true;
    ShowListingError(report.Options, desktop_.Messages, texts_.get());
  }
  return listing;
}

ShownListing frmMain::ListIntoFile(const Report& report, const std::string& path) {
  const std::filesystem::path file = PathFromText(path);
  // What stands there is another listing.
  if (result_->InSight) output_->Clear();
  ShowStatus(QStringLiteral("Now writing to output file . . ."));
  prgProgress->setRange(0, 0);
  const FileListResult written =
      ListWordsToFile(report, file,
                      {.Files = desktop_.Files,
                       .Dialogs = desktop_.Messages,
                       .Texts = texts_.get(),
                       .Box = output_.get(),
                       .Encoding = desktop_.Encoding,
                       .Progress = [this](uint32_t phrases) { ShowWritingProgress(phrases); }},
                      desktop_.Yielder);
  ShowStatus({});
  const bool stopped = written.List.Outcome == ListOutcome::Stopped;
  ShownListing listing;
  listing.Options = report.Options;
  listing.List = written.List;
  listing.Failed = !written.Written && !stopped;
  if (written.Written) {
    overwrite_->Written(file);
    listing.File = path;
    listing.Bytes = written.Bytes;
  }
  return listing;
}

void frmMain::ShowWritingProgress(uint32_t phrases) {
  ShowStatus(ToQt("Now writing to output file . . . " + desktop_.Numbers.Grouped(phrases) + " phrases"));
}

std::optional<std::string> frmMain::ConfirmedOutputPath() {
  const std::string wanted = TrimmedPath(FromQt(txbFile[1]->text()));
  if (wanted.empty() || chkDisableOutputToFile->isChecked()) return std::nullopt;
  std::optional<std::string> path = overwrite_->Confirm(wanted, params_->chkWarnOnOverwrite->isChecked());
  // Whatever was typed: what has been counted is never written over.
  if (path && OutputIsSource(*path)) path.reset();
  if (!path) {
    chkDisableOutputToFile->setChecked(true);
    return std::nullopt;
  }
  txbFile[1]->setText(ToQt(*path));
  return path;
}

bool frmMain::OutputIsSource(const std::string& path) {
  const RunSummary& facts = result_->Run.Facts;
  switch (facts.Options.SourceKind) {
    case TextSource::Clipboard:
      return false;
    case TextSource::SingleFile:
      if (!PathsMeetInOneFile(desktop_.Files, facts.InputPath, path)) return false;
      ShowInputFileError(desktop_.Messages, InputFileCode::SameAsOutput, facts.InputPath);
      return true;
    case TextSource::Folder:
      if (!OutputIsInFolder(desktop_.Files, facts.InputPath, path, facts.IncludeSubfolders)) return false;
      ShowOutputInFolder(desktop_.Messages);
      return true;
  }
  return false;
}

// ---- While it goes on

void frmMain::BeginRun(bool counts) {
  running_ = true;
  progress_ = {};
  desktop_.Yielder.ClearStop();
  if (counts) runClock_.Start();
  const QWidget* const focused = focusWidget();
  EnableDisableButtons(false);
  SetCountPhrasesCaption();
  cmdCountPhrases->setEnabled(true);
  // A control that is disabled, if only for a moment, hands the focus on to whatever comes next.
  if (focused && (focused == cmdCountPhrases || !focused->isEnabled())) cmdCountPhrases->setFocus();
  prgProgress->setValue(0);
  prgProgress->setTextVisible(true);
  prgProgress->show();
  if (counts) ShowTimeElapsed();
  Timer2->start();
  tmrProgress_->start(kProgressTick);
}

void frmMain::EndRun() {
  if (runClock_.Running()) ShowTimeElapsed();
  runClock_.Stop();
  Timer2->stop();
  tmrProgress_->stop();
  prgProgress->setRange(0, kWholeProgress);
  prgProgress->setValue(0);
  prgProgress->setTextVisible(false);
  prgProgress->hide();
  lblTwirler->clear();
  running_ = false;
  EnableDisableButtons(true);
  SetCountPhrasesCaption();
  ShowResult();
  FollowWhatChangedMeanwhile();
  if (quitRequested_) {
    // What goes wrong with the state file is worth telling even now.
    messages_.Unmute();
    QTimer::singleShot(0, this, Guarded("cmdQuit_Click", [this] { cmdQuit_Click(); }));
  }
}

void frmMain::ShowTimeElapsed() {
  lblTimeElapsed->setText(QStringLiteral("Time elapsed: ") + ToQt(FormatElapsedCompact(runClock_.Elapsed())));
  lblTimeElapsed->show();
}

void frmMain::Timer2_Timer() {
  if (runClock_.Running()) ShowTimeElapsed();
  // While a refusal of the source waits for its button, nothing has been found, and the last list still
  // stands.
  if (counting_ == nullptr || !countShown_) return;
  lblNumberOfWords->setText(
      QStringLiteral("Number of different phrases found so far: ") +
      ToQt(desktop_.Numbers.Grouped(static_cast<int64_t>(counting_->Table.PhraseCount()))));
  if (chkSuppressWords->isChecked() && outputTextBox_->Length() < kSignOfLifeBelow) {
    output_->OutputToTxb(". ");
  }
}

void frmMain::tmrProgress_Timer() {
  twirlerFrame_ = (twirlerFrame_ + 1) % kTwirler.size();
  lblTwirler->setText(QString::fromUtf8(kTwirler[twirlerFrame_]));
  if (counting_ == nullptr) return;
  const int value = ProgressValue(progress_);
  prgProgress->setRange(0, value < 0 ? 0 : kWholeProgress);
  if (value >= 0) prgProgress->setValue(std::max(value, prgProgress->value()));
  // Until then the numbers of the last list stand beside it.
  if (countShown_) ShowCounts(progress_.FilesRead, progress_.Words, counting_->Table.PhraseCount());
  if (progress_.FoldersRead == 0) return;
  lblStatusFiles->setText(ToQt(CountSoFar()));
  lblStatusFiles->show();
}

std::string frmMain::CountSoFar() const {
  if (counting_ == nullptr || counting_->Facts.Options.SourceKind != TextSource::Folder) return {};
  return ProgressCountText(progress_.FilesRead, progress_.FoldersRead);
}

void frmMain::WhileBusy(const std::string& notice, const std::function<void(ListReading&)>& work) {
  const size_t before = outputTextBox_->Length();
  // The result stays in sight: the notice stands at its end.
  const std::array<std::pair<QScrollBar*, int>, 2> places = {
      {{txbOutput->verticalScrollBar(), txbOutput->verticalScrollBar()->value()},
       {txbOutput->horizontalScrollBar(), txbOutput->horizontalScrollBar()->value()}}};
  const auto scrollBack = [&places] {
    for (const auto& [bar, value] : places) bar->setValue(value);
  };
  output_->OutputToTxb(notice);
  scrollBack();
  ShowStatus(ToQt(notice).trimmed());
  readingList_ = true;
  EnableDisableButtons(false);
  cmdCountPhrases->setText(QStringLiteral("Processing . . . "));
  const auto end = qScopeGuard([this] {
    readingList_ = false;
    ShowStatus({});
    EnableDisableButtons(true);
    SetCountPhrasesCaption();
    ShowResult();
    FollowWhatChangedMeanwhile();
  });
  // A stop of an earlier run does not concern the reading.
  desktop_.Yielder.ClearStop();
  TextFileCheck check{.Files = desktop_.Files,
                      .Messages = desktop_.Messages,
                      .Format = desktop_.Numbers,
                      .ClearOutput = {},
                      .MacNoticeShown = macNoticeShown_};
  ListReading reading{.Check = check,
                      .Encodings = encodings_,
                      .Yield = desktop_.Yielder,
                      .ShowWordsRead = [this](const std::string& text) { ShowStatus(ToQt(text)); }};
  work(reading);
  macNoticeShown_ = check.MacNoticeShown;
  if (output_->Full()) return;
  outputTextBox_->Truncate(before);
  scrollBack();
}

void frmMain::SetWordsToIgnoreNotice() {
  const Settings settings = GatherSettings();
  lblWordsToIgnoreNotice->setText(ToQt(korv::SetWordsToIgnoreNotice(
      settings.IgnoreOption.value_or(IgnoreRule::Allow), params_->HasWordsToIgnore())));
  ShowResult();
}

}  // namespace korv
