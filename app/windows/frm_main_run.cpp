// The main window's run: a click on "Count phrases", what is shown while it goes on, and its report.

#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScopeGuard>
#include <QScrollBar>
#include <QTimer>
#include <array>
#include <utility>

#include "app/format.h"
#include "app/windows/frm_main.h"
#include "app/windows/frm_params.h"
#include "platform/qt/text.h"
#include "report/listing_errors.h"
#include "report/output_file.h"
#include "report/report_rules.h"
#include "report/summary.h"
#include "sources/source_checks.h"
#include "sources/text_file_check.h"

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
class frmMain::WindowRunView final : public RunView {
 public:
  explicit WindowRunView(frmMain& main) : main_(main) {}

  void Status(const std::string& text) override {
    // The counting has begun. Two results at a time would only cost memory, and a box full of the last one
    // would take nothing of what is to be told now.
    if (main_.counting_ != nullptr && !std::exchange(main_.countShown_, true)) {
      main_.DiscardResult();
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
    if (!main_.ChooseOutputFile()) return std::nullopt;
    main_.chkDisableOutputToFile->setChecked(false);
    return FromQt(main_.txbFile[1]->text());
  }

 private:
  frmMain& main_;
};

bool frmMain::HasResult() const {
  return result_.has_value();
}

void frmMain::DiscardResult() {
  result_.reset();
}

RunRequest frmMain::GatherRunRequest() const {
  const Settings settings = GatherSettings();
  RunRequest request;
  request.Options = RunOptionsOf(settings);
  request.Rules = settings.Words;
  request.Lists = params_->GatherListEntries(settings.Words);
  request.InputPath = settings.SourceKind == TextSource::Folder ? settings.Folder : settings.InputFile;
  if (!settings.DisableOutputToFile) request.OutputPath = settings.OutputFile;
  if (settings.SourceKind == TextSource::Clipboard) request.ClipboardText = desktop_.clipboard.Text();
  request.Selection = {.Patterns = SplitPatterns(settings.FilePatterns),
                       .Exclusions = SplitPatterns(settings.ExcludedTexts)};
  request.IncludeSubfolders = settings.IncludeSubfolders;
  request.Chain = ChainOrderOf(settings.Report);
  request.ExtractTextFromDocx = settings.ExtractTextFromDocx;
  return request;
}

void frmMain::cmdCountPhrases_Click() {
  WindowRunView view(*this);
  if (running_) {
    AskToStop(desktop_.messages, desktop_.yielder, view);
    return;
  }
  // A key may have come here without the filter words having lost the focus.
  txbFilterWords_LostFocus();
  RunRequest request = GatherRunRequest();
  ReportOptions report = GatherReportOptions();
  if (!AskBeforeCounting(request, report, desktop_.files, desktop_.messages)) return;
  bool toFile = true;
  if (!request.OutputPath.empty() &&
      !CanOpenOutputFile(PathFromText(TrimmedPath(request.OutputPath)), desktop_.files, desktop_.messages)) {
    request.OutputPath.clear();
    toFile = false;
  }
  cboMinimumFrequency->setCurrentIndex(request.Options.MinFrequency - 1);
  txbFilterWords->setText(ToQt(report.FilterText));
  cmdClear->setEnabled(!report.FilterText.empty());

  const QString inputFile = txbFile[0]->text();
  const RunGuard busy(*this);
  CountedRun run;
  counting_ = &run;
  countShown_ = false;
  desktop_.yielder.ClearStop();
  const RunEnd end = RunCount(request,
                              {.Messages = desktop_.messages,
                               .Yielder = desktop_.yielder,
                               .Files = desktop_.files,
                               .Clock = desktop_.clock,
                               .Numbers = desktop_.numbers,
                               .Encodings = encodings_,
                               .View = view,
                               .Progress = progress_},
                              run);
  counting_ = nullptr;
  // The files of a folder pass through the box; afterwards the user's own choice stands there again.
  if (request.Options.SourceKind == TextSource::Folder) txbFile[0]->setText(inputFile);
  ShowStatus({});
  if (end != RunEnd::Counted) return;

  desktop_.yielder.ClearStop();
  result_.emplace(std::move(run));
  ShowRunFacts();
  if (request.Options.SourceKind != TextSource::Clipboard) {
    (request.Options.SourceKind == TextSource::Folder ? recentFolders_ : recentFiles_)
        .Add(ToQt(result_->Facts.InputPath));
  }
  // A file that was chosen meanwhile is another one than that which could not be opened.
  ListTheResult(report.FilterActive, toFile || !result_->OutputPath.empty());
}

void frmMain::ShowRunFacts() {
  const CountedRun& run = *result_;
  const NumberFormat& numbers = desktop_.numbers;
  lblTotalNumOccurrences->setText(
      run.Facts.Options.SourceKind == TextSource::SingleFile
          ? ToQt(run.FileKind)
          : QStringLiteral("Total number of phrase occurrences: ") +
                ToQt(numbers.Grouped(static_cast<int64_t>(run.Table.Occurrences()))));
  const uint64_t dropped = run.Facts.Words.Dropped();
  lblNumWordsExcluded->setText(dropped == 0 ? QString()
                                            : QStringLiteral("Number of words excluded: ") +
                                                  ToQt(numbers.Grouped(static_cast<int64_t>(dropped))));
  const bool folder = run.Facts.Options.SourceKind == TextSource::Folder;
  ShowCounts(folder ? run.Facts.FilesScanned : 0, run.Facts.Words.Taken, run.Table.PhraseCount());
}

void frmMain::ShowCounts(uint64_t files, uint64_t words, uint64_t phrases) {
  const auto count = [this](uint64_t number, const char* one, const char* many) {
    return ToQt(desktop_.numbers.Grouped(static_cast<int64_t>(number))) + u' ' +
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

// ---- Listing

void frmMain::ListTheResult(bool filtered, bool toFile) {
  if (!result_) return;
  ReportOptions options = GatherReportOptions();
  options.FilterActive = filtered;
  const QString format = cboDisplayFormat->currentText();
  if (!ApplyReportRules(options, result_->Facts.Options.SourceKind)) {
    desktop_.messages.Show(UnavailableFormatMessage(FromQt(format)));
    const QSignalBlocker quiet(cboDisplayFormat);
    cboDisplayFormat->setCurrentIndex(options.DisplayFormat);
    EnableDisableReportOptions();
  }
  std::optional<std::string> path;
  if (toFile) path = ConfirmedOutputPath();

  std::optional<RunGuard> busy;
  if (!running_) busy.emplace(*this);
  if (!SetUpChainFor(*result_, options, desktop_.yielder)) return;
  const Report report{result_->Table, result_->Facts, options, desktop_.numbers};
  ListTheResultTo(report, path);
  listed_ = options;
}

void frmMain::ListTheResultTo(const Report& report, const std::optional<std::string>& path) {
  korv::ListResult listed;
  if (path) {
    const std::filesystem::path file = PathFromText(*path);
    const FileListResult written = ListWordsToFile(report, file,
                                                   {.Files = desktop_.files,
                                                    .Dialogs = desktop_.messages,
                                                    .Texts = texts_.get(),
                                                    .Box = output_.get(),
                                                    .Encoding = desktop_.encoding},
                                                   desktop_.yielder);
    if (written.Written) overwrite_->Written(file);
    listed = written.List;
  } else {
    try {
      listed = ListWordsToTextBox(report, *output_, desktop_.yielder);
    } catch (const std::exception&) {
      ShowListingError(report.Options, desktop_.messages, texts_.get());
    }
  }
  const StatusLabels labels =
      StatusLabelTexts(listed.Phrases, listed.Occurrences, report.Options.FilterActive, desktop_.numbers);
  lblNumberOfWords->setText(ToQt(labels.NumberOfWords));
  lblNumOccurrences->setText(ToQt(labels.NumOccurrences));
  // The most frequent phrases stand at the top.
  txbOutput->verticalScrollBar()->setValue(0);
  txbOutput->horizontalScrollBar()->setValue(0);
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
  const RunFacts& facts = result_->Facts;
  switch (facts.Options.SourceKind) {
    case TextSource::Clipboard:
      return false;
    case TextSource::SingleFile:
      if (!PathsMeetInOneFile(desktop_.files, facts.InputPath, path)) return false;
      ShowInputFileError(desktop_.messages, InputFileCode::SameAsOutput, facts.InputPath);
      return true;
    case TextSource::Folder:
      if (!OutputIsInFolder(desktop_.files, facts.InputPath, path, facts.IncludeSubfolders)) return false;
      ShowOutputInFolder(desktop_.messages);
      return true;
  }
  return false;
}

// ---- While it goes on

void frmMain::BeginRun() {
  running_ = true;
  progress_ = {};
  desktop_.yielder.ClearStop();
  runStart_ = desktop_.clock.Now();
  const QWidget* const focused = focusWidget();
  EnableDisableButtons(false);
  SetCountPhrasesCaption();
  cmdCountPhrases->setEnabled(true);
  // A control that is disabled, if only for a moment, hands the focus on to whatever comes next.
  if (focused && (focused == cmdCountPhrases || !focused->isEnabled())) cmdCountPhrases->setFocus();
  prgProgress->setValue(0);
  prgProgress->setTextVisible(true);
  lblTimeElapsed->setText(QStringLiteral("Time elapsed: 0s"));
  lblTimeElapsed->show();
  Timer2->start();
  tmrProgress_->start(kProgressTick);
}

void frmMain::EndRun() {
  ShowTimeElapsed();
  Timer2->stop();
  tmrProgress_->stop();
  prgProgress->setRange(0, kWholeProgress);
  prgProgress->setValue(0);
  prgProgress->setTextVisible(false);
  lblTwirler->clear();
  running_ = false;
  EnableDisableButtons(true);
  SetCountPhrasesCaption();
  if (quitRequested_) {
    // What goes wrong with the state file is worth telling even now.
    messages_.Unmute();
    QTimer::singleShot(0, this, Guarded("cmdQuit_Click", [this] { cmdQuit_Click(); }));
  }
}

void frmMain::ShowTimeElapsed() {
  const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(desktop_.clock.Now() - runStart_);
  lblTimeElapsed->setText(QStringLiteral("Time elapsed: ") + ToQt(FormatElapsedCompact(elapsed)));
  lblTimeElapsed->show();
}

void frmMain::Timer2_Timer() {
  ShowTimeElapsed();
  // While a refusal of the source waits for its button, nothing has been found, and the last list still
  // stands.
  if (counting_ == nullptr || !countShown_) return;
  lblNumberOfWords->setText(
      QStringLiteral("Number of different phrases found so far: ") +
      ToQt(desktop_.numbers.Grouped(static_cast<int64_t>(counting_->Table.PhraseCount()))));
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
  ShowCounts(progress_.FilesRead, progress_.Words, counting_->Table.PhraseCount());
  if (progress_.FoldersRead > 0) lblStatusFiles->setText(ToQt(CountSoFar()));
}

std::string frmMain::CountSoFar() const {
  if (counting_ == nullptr || counting_->Facts.Options.SourceKind != TextSource::Folder) return {};
  return ProgressCountText(progress_.FilesRead, progress_.FoldersRead);
}

void frmMain::WhileBusy(const std::string& notice, const std::function<void(ListReading&)>& work) {
  const size_t before = outputTextBox_->Length();
  output_->OutputToTxb(notice);
  lblNumberOfWords->clear();
  lblNumOccurrences->clear();
  readingList_ = true;
  EnableDisableButtons(false);
  cmdCountPhrases->setText(QStringLiteral("Processing . . . "));
  const auto end = qScopeGuard([this] {
    readingList_ = false;
    ShowStatus({});
    EnableDisableButtons(true);
    SetCountPhrasesCaption();
  });
  // A stop of an earlier run does not concern the reading.
  desktop_.yielder.ClearStop();
  TextFileCheck check{.Files = desktop_.files,
                      .Messages = desktop_.messages,
                      .Format = desktop_.numbers,
                      .ClearOutput = {},
                      .MacNoticeShown = macNoticeShown_};
  ListReading reading{.Check = check,
                      .Encodings = encodings_,
                      .Yield = desktop_.yielder,
                      .ShowWordsRead = [this](const std::string& text) { ShowStatus(ToQt(text)); }};
  work(reading);
  macNoticeShown_ = check.MacNoticeShown;
  if (!output_->Full()) outputTextBox_->Truncate(before);
}

void frmMain::SetWordsToIgnoreNotice() {
  const Settings settings = GatherSettings();
  lblWordsToIgnoreNotice->setText(ToQt(korv::SetWordsToIgnoreNotice(
      settings.IgnoreOption.value_or(IgnoreRule::Allow), params_->HasWordsToIgnore())));
}

}  // namespace korv
