#include "cli/count_program.h"

#include <algorithm>
#include <exception>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "app/run/comparison_request.h"
#include "app/run/run_request.h"
#include "app/texts/program_folder.h"
#include "app/texts/program_text.h"
#include "base/translation.h"
#include "cli/about_file.h"
#include "cli/answers.h"
#include "cli/comparison.h"
#include "cli/context_table.h"
#include "cli/count_view.h"
#include "cli/named_sources.h"
#include "cli/options.h"
#include "cli/run_line.h"
#include "cli/setting_lines.h"
#include "cli/settings_files.h"
#include "cli/table_output.h"
#include "platform/console/console_messages.h"
#include "platform/console/visible_controls.h"
#include "report/columns/registry.h"
#include "report/describe_table.h"
#include "report/error_text.h"
#include "report/formats.h"
#include "report/key_phrases.h"
#include "report/list_words.h"
#include "report/output_file.h"
#include "report/report_rules.h"
#include "report/stream_sink.h"
#include "report/summary.h"
#include "sources/detect/source_checks.h"
#include "sources/folders/folder_walk.h"
#include "sources/places/phrase_cut.h"
#include "sources/read/read_plan.h"
#include "wordlists/load_word_filters.h"

namespace korv {

namespace {

constexpr const char* kName = "korv-count";

/// What is said of a file that cannot be written.
struct WrittenFile {
  const char* Same;
  const char* IsFolder;
  const char* Exists;
};

constexpr WrittenFile kReportFile{TrLater("The output file cannot be the same as %1."),
                                  TrLater("The output file %1 is a folder."),
                                  TrLater("The output file %1 exists.  --force replaces it.")};
constexpr WrittenFile kDescriptionFile{TrLater("The description cannot be the same as %1."),
                                       TrLater("The description %1 is a folder."),
                                       TrLater("The description %1 exists.  --force replaces it.")};

class CountProgram {
 public:
  CountProgram(CountOptions options, const CountEnvironment& environment)
      : options_(std::move(options)),
        env_(environment),
        line_(env_.Err, env_.ErrIsTerminal, env_.Clock),
        messages_(env_.Err, kName,
                  options_.Quiet ? ConsoleMessages::When::OnFailure : ConsoleMessages::When::AtOnce,
                  AnswerInTerminal, [this] { line_.Clear(); }),
        encodings_(options_.Encoding),
        view_(env_.Err, line_, progress_, run_.Table, options_.Numbers, options_.Quiet) {}

  int Run() {
    const int status = Work();
    line_.Clear();
    if (status == kExitRefused) messages_.TellHeld();
    return status;
  }

 private:
  int Work() {
    SettingsFiles files(options_, env_, messages_);
    if (!files.Load(settings_)) return kExitRefused;
    ApplyOptions(options_, settings_);
    SetKeyFrequency();
    if (const int status = PlaceSource(); status != kExitReport) return status;
    if (!AddWordsFile()) return kExitRefused;
    const int format = settings_.Report.DisplayFormat;
    if (!ApplyReportRules(settings_.Report, settings_.SourceKind)) TellUnavailableFormat(format);
    if (!files.Save(settings_)) return kExitRefused;
    if (options_.PrintSettings) {
      env_.Out << SettingLines(settings_) << std::flush;
      return env_.Out ? kExitReport : CannotWrite();
    }
    return options_.ListFiles ? ListTheFiles() : Count();
  }

  // ---- Settings

  int PlaceSource() {
    auto named = NamedSourcesOf(options_, env_, messages_);
    if (!named) return named.Error();
    compared_ = std::move(named->Compared);
    if (named->Together) {
      if (!options_.SaveSettingsFile.empty())
        return WrongUsage(Tr("--save-settings holds one file or folder, not several"));
      settings_.SourceKind = TextSource::Folder;
      settings_.Folder.clear();
      together_ = std::move(named->Paths);
    } else if (!named->Paths.empty()) {
      PlacePath(named->Paths.front().Path);
    }
    if (!compared_.empty()) PlaceSideA();
    return options_.ListFiles && ReadsStandardInput() ? WrongUsage(Tr("standard input has no files to list"))
                                                      : kExitReport;
  }

  bool ReadsStandardInput() const {
    const auto isRead = [](const SourcePath& source) {
      return source.What == SourcePath::Kind::StandardInput;
    };
    return settings_.SourceKind == TextSource::Clipboard || std::ranges::any_of(together_, isRead) ||
           std::ranges::any_of(compared_, isRead);
  }

  /// Phrases that are compared occur somewhat oftener, unless the user says how often.
  void SetKeyFrequency() {
    const bool given = (options_.Given.Which & SetOf(RowOf("MinFrequency"))).any();
    if (!options_.Comparison.Paths.empty() && !options_.Comparison.Drafts && !given)
      settings_.MinFrequency = kKeyFrequency;
  }

  /// A single source becomes a list of one, which is what a comparison reads.
  void PlaceSideA() {
    if (together_.empty()) together_ = SourcesOf(RunRequestOf(settings_));
    settings_.SourceKind = TextSource::Folder;
    settings_.Folder.clear();
  }

  void PlacePath(const std::string& typed) {
    const std::string path = TrimmedPath(typed);
    if (path.empty()) return;
    if (options_.FromStandardInput()) {
      settings_.SourceKind = TextSource::Clipboard;
    } else if (options_.FromCounts.empty() &&
               env_.Files.FolderExists(PathFromText(TrimmedFolderPath(path)))) {
      settings_.SourceKind = TextSource::Folder;
      settings_.Folder = path;
    } else {
      settings_.SourceKind = TextSource::SingleFile;
      settings_.InputFile = path;
    }
  }

  int WrongUsage(const char* text) {
    env_.Err << kName << ": " << text << '\n';
    return kExitUsage;
  }

  /// The file of words to ignore that the options name becomes the selected one of the list.
  bool AddWordsFile() {
    std::filesystem::path path;
    if (!options_.IgnoreFile.empty()) {
      path = env_.Files.AbsolutePath(PathFromText(options_.IgnoreFile));
    } else if (options_.CommonWordsOf) {
      const auto file = CommonWordsFile(*options_.CommonWordsOf, env_.ProgramFolder, env_.Files, messages_);
      if (!file) return false;
      path = *file;
      settings_.CommonWordsLanguage =
          static_cast<CommonWords>(options_.CommonWordsOf - kCommonWordsLanguages.data());
    } else {
      return true;
    }
    WordFileList list(ListKind::WordsToIgnore);
    list.Restore(settings_.WordsFiles, settings_.SelectedWordsFile);
    if (!list.AddOrSelect(PathToText(path), messages_)) return false;
    settings_.WordsFiles = list.Paths();
    settings_.SelectedWordsFile = list.Selected();
    return true;
  }

  void TellUnavailableFormat(int format) {
    const auto texts = ProgramTextFile::Load(env_.Files, env_.ProgramFolder / kProgramTextName);
    if (!texts) {
      messages_.Show({.Text = texts.Error().Text(), .Title = Tr("Error"), .Icon = Icon::Critical});
      return;
    }
    messages_.Show(UnavailableFormatMessage(texts->Get(DisplayFormatTextNumber(format))));
  }

  // ---- Listing files

  int ListTheFiles() {
    if (!together_.empty()) return ListFilesTogether();
    if (settings_.SourceKind == TextSource::SingleFile) {
      const std::string path = TrimmedPath(settings_.InputFile);
      AboutFile messages = AboutTheSource();
      const InputFileCode code = ValidateInputFile(env_.Files, path, "");
      ShowInputFileError(messages, code, path);
      if (code != InputFileCode::Valid) return kExitRefused;
      env_.Out << ForOutput(path) << '\n' << std::flush;
      return env_.Out ? kExitReport : CannotWrite();
    }
    const std::string folder = TrimmedFolderPath(settings_.Folder);
    AboutFile messages = AboutTheSource();
    if (!ValidatePatterns(SelectionOf(settings_), messages_) ||
        !ValidateFolder(env_.Files, messages, folder, "", settings_.IncludeSubfolders, true))
      return kExitRefused;
    FolderWalk walk(env_.Files, env_.Yielder, SelectionOf(settings_), settings_.IncludeSubfolders);
    const FolderTotals totals =
        ListFiles(walk, PathFromText(folder), ListingEvents(),
                  [&](const std::string& line) { env_.Out << ForOutput(WithPlainLineEnds(line)); });
    return EndListing(totals.Stopped);
  }

  /// For other programs a name is as it is.
  std::string ForOutput(const std::string& text) const {
    return env_.OutColumns > 0 ? WithVisibleControls(text) : text;
  }

  FolderEvents ListingEvents() {
    FolderEvents events;
    events.Unreadable = [this](const std::filesystem::path& path, const FileError& error) {
      view_.Notice(UnreadableFolderText(path, error));
    };
    return events;
  }

  int EndListing(bool stopped) {
    env_.Out << std::flush;
    if (!env_.Out) return CannotWrite();
    if (!stopped) return kExitReport;
    Tell(Tr("Stopped: these are not all files."));
    return kExitInterrupted;
  }

  /// Their paths in full: they have no folder in common.
  int ListFilesTogether() {
    if (!ValidatePatterns(SelectionOf(settings_), messages_)) return kExitRefused;
    FolderWalk walk(env_.Files, env_.Yielder, SelectionOf(settings_), settings_.IncludeSubfolders);
    ReadPlan plan;
    const bool whole = plan.AddTogether(together_, env_.Files, walk, ListingEvents());
    size_t there = 0;
    for (size_t i = 0; i < plan.Documents(); ++i) {
      const std::filesystem::path path = plan.Document(i).Path;
      if (!env_.Files.FileExists(path)) {
        view_.Notice(Fill(Tr("File %1 does not exist."), {PathToText(path)}));
        continue;
      }
      ++there;
      env_.Out << ForOutput(PathToText(path)) << '\n';
    }
    const int status = EndListing(!whole);
    return status == kExitReport && there == 0 ? kExitRefused : status;
  }

  // ---- Counting

  int Count() {
    RunRequest request;
    if (!MakeRequest(request)) return kExitRefused;
    if (env_.Yielder.Stopped()) return kExitInterrupted;
    ReportOptions report = settings_.Report;
    if (!SourceIsThere(request.OutputPath) || !MayBeWritten(request.OutputPath, kReportFile))
      return kExitRefused;
    if (const int status = PlaceDescription(request.OutputPath); status != kExitReport) return status;
    if (!AskBeforeCounting(request, report, env_.Files, messages_)) return kExitRefused;
    if (ShowsProgress()) env_.Yielder.OnTurn([this] { view_.ShowProgress(); });
    AboutFile messages = AboutTheSource();
    const RunEnd end = RunCount(request, Services(messages), run_);
    if (!run_.OutputPath.empty())
      progress_.Stage = RunStage::Writing;
    else
      env_.Yielder.OnTurn(nullptr);
    line_.Clear();
    switch (end) {
      case RunEnd::Counted:
        break;
      case RunEnd::Stopped:
        Tell(options_.FromCounts.empty() ? Tr("Stopped before a phrase was read: there is no report.")
                                         : Tr("Stopped before all counts were read: there is no report."));
        return kExitInterrupted;
      default:
        return kExitRefused;
    }
    const int status = options_.ContextOf ? WriteContexts() : WriteReport(report);
    line_.Clear();
    if (status == kExitRefused || status == kExitUsage) return status;
    if (!options_.Quiet) env_.Err << WithVisibleControls(SkippedFilesText(run_.Facts)) << std::flush;
    if (run_.Interrupted) Tell(CoverageLine(run_.Facts, progress_, options_.Numbers));
    Tell(RunLine(run_.Facts, request.Rules, options_.Numbers));
    if (run_.Facts.SecondSide) Tell(SidesLine(run_.Facts, options_.Numbers));
    if (options_.Stages && !options_.Quiet) TellStages();
    if (run_.Interrupted) return kExitInterrupted;
    return status == kExitReport && empty_ && options_.FailIfEmpty ? kExitEmpty : status;
  }

  /// What the user should know that is no error.
  void Tell(const std::string& text) {
    if (!options_.Quiet) env_.Err << WithVisibleControls(text) << '\n' << std::flush;
  }

  AboutFile AboutTheSource() {
    if (!together_.empty()) return {messages_, ""};
    switch (settings_.SourceKind) {
      case TextSource::SingleFile:
        return {messages_, TrimmedPath(settings_.InputFile)};
      case TextSource::Folder:
        return {messages_, TrimmedFolderPath(settings_.Folder), Tr("Folder")};
      case TextSource::Clipboard:
        break;
    }
    return {messages_, Tr("standard input"), Tr("Source")};
  }

  RunServices Services(Messages& messages) {
    return {messages, env_.Yielder, env_.Files, env_.Clock, options_.Numbers, encodings_, view_, progress_};
  }

  bool ShowsProgress() const { return !options_.Quiet && (options_.Progress || env_.ErrIsTerminal); }

  bool MakeRequest(RunRequest& request) {
    request = RunRequestOf(settings_);
    request.Paths = together_;
    request.Compared = compared_;
    const TableOutput table = Table(OutputPath());
    request.Options.KeepRedundant = options_.KeepRedundant;
    request.Options.KeepPlaces = options_.ContextOf || NeedPlaces(options_.Rows.Columns()) ||
                                 (table.Form != nullptr && NeedPlaces(ColumnsOf(table)));
    request.KeepText = options_.ContextOf.has_value();
    request.FromCounts = !options_.FromCounts.empty();
    request.OutputPath = OutputPath();
    request.Stream = &env_.StandardInput;
    request.StreamEncoding = options_.Encoding;
    request.ReadAs = options_.ReadAs;
    request.SeveralFilesNeedOutput = false;
    request.OffersWaysOut = true;
    return GatherTheLists(request);
  }

  /// A path on the command line replaces the settings' source, and their output file with it. That file is
  /// for the report as text.
  std::string OutputPath() const {
    if (options_.ContextOf) return {};
    if (!options_.Output.empty() || options_.AsksForTable()) return options_.Output;
    return !options_.NamesSource() && !settings_.DisableOutputToFile ? settings_.OutputFile : std::string();
  }

  bool GatherTheLists(RunRequest& request) {
    ListRequest lists;
    // The settings hold text, which a name need not be.
    if (!options_.IgnoreFile.empty())
      lists.IgnoreFile = env_.Files.AbsolutePath(PathFromText(options_.IgnoreFile));
    else if (const std::string* list = settings_.WordsFile())
      lists.IgnoreFile = PathFromText(*list);
    lists.IgnoreWords = settings_.ExtraWordsToIgnore;
    lists.PatternMatching = settings_.PatternMatchingInWordsToIgnoreFile;
    if (!options_.CountOnlyFile.empty()) lists.CountOnlyFile = PathFromText(options_.CountOnlyFile);
    lists.CountOnly = options_.CountOnly;
    TextFileCheck check{env_.Files, messages_, options_.Numbers, {}};
    ListReading reading{check, encodings_, env_.Yielder, {}};
    std::optional<WordFilterSpec> entries = LoadWordFilters(lists, request.Rules, reading);
    if (entries) request.Lists = std::move(*entries);
    return entries.has_value();
  }

  /// What is wrong with the source, or makes it one with the output file, is told before anything of that
  /// file.
  bool SourceIsThere(const std::string& output) {
    if (!together_.empty()) {
      AboutFile messages(messages_, output);
      if (!ValidateOutputBeside(env_.Files, messages, together_, output, settings_.IncludeSubfolders) ||
          !ValidateOutputBeside(env_.Files, messages, compared_, output, settings_.IncludeSubfolders))
        return false;
      if (!ReadsStandardInput() || !OutputIsStandardInput(output)) return true;
      ShowInputFileError(messages, InputFileCode::SameAsOutput, output);
      return false;
    }
    if (settings_.SourceKind == TextSource::SingleFile) {
      const std::string path = TrimmedPath(settings_.InputFile);
      AboutFile messages = AboutTheSource();
      const InputFileCode code = ValidateInputFile(env_.Files, path, output);
      ShowInputFileError(messages, code, path);
      return code == InputFileCode::Valid;
    }
    const bool meets =
        settings_.SourceKind == TextSource::Folder
            ? OutputIsInFolder(env_.Files, settings_.Folder, output, settings_.IncludeSubfolders)
            : OutputIsStandardInput(output);
    if (!meets) return true;
    if (settings_.SourceKind == TextSource::Folder) {
      // The run itself reports a folder that cannot be counted.
      if (!env_.Files.FolderExists(PathFromText(TrimmedFolderPath(settings_.Folder)))) return true;
      AboutFile messages(messages_, output);
      ShowOutputInFolder(messages);
    } else {
      ShowInputFileError(messages_, InputFileCode::SameAsOutput, output);
    }
    return false;
  }

  bool OutputIsStandardInput(const std::string& output) const {
    return !output.empty() && !env_.InputPath.empty() && env_.Files.FileSize(PathFromText(output)) &&
           env_.Files.SameFile(env_.InputPath, PathFromText(output));
  }

  /// Settles where a description goes that is asked for.
  int PlaceDescription(const std::string& output) {
    const char* const option = options_.DescribingOption();
    if (option == nullptr) return kExitReport;
    if (FormOf(options_, output) == nullptr) {
      env_.Err << kName << ": " << option << ": " << Tr("the output file of settings is no table") << '\n';
      return kExitUsage;
    }
    description_ = options_.Describe ? DescriptionPath(PathFromText(output), env_.Files)
                                     : PathFromText(options_.DescribeTo);
    const std::string text = PathToText(description_);
    if (!output.empty() && PathsMeetInOneFile(env_.Files, output, text)) {
      messages_.Show({.Text = Fill(Tr("The description cannot be the same as %1."), {output}),
                      .Title = Tr("Error"),
                      .Icon = Icon::Exclamation});
      return kExitRefused;
    }
    return SourceIsThere(text) && MayBeWritten(text, kDescriptionFile) ? kExitReport : kExitRefused;
  }

  bool MayBeWritten(const std::string& output, const WrittenFile& what) {
    if (output.empty()) return true;
    const std::filesystem::path path = PathFromText(output);
    std::vector<std::string> inputs = {options_.SettingsFile, options_.IgnoreFile, options_.CountOnlyFile};
    if (options_.FilesFrom) inputs.push_back(options_.FilesFrom->Path);
    if (const std::string* list = settings_.WordsFile()) inputs.push_back(*list);
    for (const std::string& file : inputs) {
      if (file.empty() || !PathsMeetInOneFile(env_.Files, file, output)) continue;
      messages_.Show({.Text = Fill(Tr(what.Same), {file}), .Title = Tr("Error"), .Icon = Icon::Exclamation});
      return false;
    }
    if (!path.has_filename() || env_.Files.FolderExists(path)) {
      messages_.Show(
          {.Text = Fill(Tr(what.IsFolder), {output}), .Title = Tr("Error"), .Icon = Icon::Exclamation});
      return false;
    }
    // A device or a pipe has no size, and nothing in it that could be lost.
    if (!options_.Force && env_.Files.FileExists(path) && env_.Files.FileSize(path)) {
      messages_.Show({.Text = Fill(Tr(what.Exists), {output}),
                      .Title = Tr("The output file exists."),
                      .Icon = Icon::Exclamation});
      return false;
    }
    AboutFile messages(messages_, output);
    return CanOpenOutputFile(path, env_.Files, messages);
  }

  TableOutput Table(const std::string& outputPath) const {
    return TableOutputOf(options_, settings_, together_, outputPath, env_.Clock);
  }

  int WriteContexts() {
    const StageTimer timer(env_.Clock, run_.Times, RunStage::Writing);
    const CutPhrase phrase = CutTypedPhrase(*options_.ContextOf, run_.Table.Corpus());
    if (phrase.Length == 0 || phrase.Length > static_cast<size_t>(kMostWords)) {
      env_.Err << kName << ": --context-of: '" << WithVisibleControls(*options_.ContextOf) << "': "
               << (phrase.Length == 0 ? Tr("the rules in force leave no word of it")
                                      : Tr("that is more than 25 words"))
               << '\n';
      return kExitUsage;
    }
    ContextTable table(run_, {env_.Files, messages_, env_.Yielder}, options_.ReadAs, env_.Out,
                       [this](const std::string& text) { Tell(text); });
    const bool finished = table.Write(phrase.Words, options_.Sort.value_or(PlaceOrder::Place),
                                      static_cast<size_t>(options_.Contexts.value_or(kContexts)));
    empty_ = table.Places() == 0;
    env_.Out << std::flush;
    if (!env_.Out) return CannotWrite();
    return finished ? kExitReport : kExitInterrupted;
  }

  int WriteReport(const ReportOptions& options) {
    const StageTimer timer(env_.Clock, run_.Times, RunStage::Writing);
    const Report report{.Table = run_.Table,
                        .Facts = run_.Facts,
                        .Options = options,
                        .Numbers = options_.Numbers,
                        .Parts = options_.Parts,
                        .ComparedBy = options_.Comparison.By.value_or(ComparisonBasis::Words),
                        .SimpleMathsK = options_.Comparison.SimpleMathsK.value_or(1),
                        .Rows = options_.Rows};
    if (!run_.OutputPath.empty()) {
      AboutFile messages(messages_, run_.OutputPath);
      const FileListResult result = ListWordsToFile(report, PathFromText(run_.OutputPath),
                                                    {.Files = env_.Files,
                                                     .Dialogs = messages,
                                                     .Encoding = env_.Encoding,
                                                     .Table = Table(run_.OutputPath),
                                                     .DescribeTo = description_},
                                                    env_.Yielder);
      empty_ = result.List.Phrases == 0;
      TellPhraseShare(result.List);
      if (result.List.Outcome == ListOutcome::Stopped) {
        Tell(Fill(Tr("Stopped: %1"), {WithPlainLineEnds(StoppedFileText(result, options_.Numbers))}));
        return kExitInterrupted;
      }
      return result.Written && result.Described != description_.empty() ? kExitReport : kExitRefused;
    }
    return WriteToStandardOutput(report);
  }

  int WriteToStandardOutput(const Report& report) {
    const TableOutput table = Table({});
    StreamReportSink sink(env_.Out, table.Form != nullptr);
    const bool tabs = options_.LineLayout == Layout::Tabs;
    std::optional<DigestSink> digest;
    if (!description_.empty()) digest.emplace(sink);
    const ListResult result =
        ListWords(report, {.LineLayout = options_.LineLayout, .File = tabs, .LineEnd = "\n", .Table = table},
                  digest ? static_cast<ReportSink&>(*digest) : sink, env_.Yielder);
    empty_ = result.Phrases == 0;
    TellPhraseShare(result);
    if (!sink.Finish()) return CannotWrite();
    if (digest &&
        !WriteDescription({table, run_.Facts, result, *digest, {}}, description_, env_.Files, messages_))
      return kExitRefused;
    if (result.Outcome != ListOutcome::Stopped) return kExitReport;
    Tell(Fill(TrCount("Stopped: the report ends after %1 phrase.",
                      "Stopped: the report ends after %1 phrases.", result.Phrases),
              {options_.Numbers.Grouped(static_cast<int64_t>(result.Phrases))}));
    return kExitInterrupted;
  }

  void TellPhraseShare(const ListResult& list) {
    if (list.Coverage) Tell(PhraseShareLine(*list.Coverage, run_.Facts, options_.Numbers));
  }

  int CannotWrite() {
    messages_.Show(
        {.Text = Tr("Standard output cannot be written."), .Title = Tr("Error"), .Icon = Icon::Critical});
    return kExitRefused;
  }

  void TellStages() {
    // Programs read them: they are the same in all languages.
    static constexpr const char* kStageNames[kRunStages] = {"reading and cutting", "counting", "sorting",
                                                            "exclusion",           "chain",    "writing"};
    for (int k = 0; k < kRunStages; ++k) {
      const std::chrono::duration<double> time = run_.Times.Of(static_cast<RunStage>(k));
      env_.Err << kStageNames[k] << '\t' << NumberFormat{}.Decimals(time.count(), 3) << " s\n";
    }
    env_.Err << "words\t" << run_.Facts.Words.Taken << "\nwords dropped\t" << run_.Facts.Words.Dropped()
             << "\ndifferent phrases\t" << run_.Table.PhraseCount() << '\n'
             << std::flush;
  }

  CountOptions options_;
  const CountEnvironment& env_;
  Settings settings_;
  std::vector<SourcePath> together_;  ///< Several sources in place of that of the settings.
  std::vector<SourcePath> compared_;  ///< What they are compared with.
  ProgressLine line_;
  ConsoleMessages messages_;
  EncodingChooser encodings_;
  CountedRun run_;
  RunProgress progress_;
  std::filesystem::path description_;  ///< The file for it; empty where none is asked for.
  bool empty_ = false;                 ///< Nothing was listed.
  CountView view_;
};

}  // namespace

int KorvCount(const std::vector<std::string>& arguments, const CountEnvironment& environment) {
  try {
    auto parsed = ParseCountOptions(arguments, environment.Out, environment.Err, environment.OutColumns);
    if (const int* status = std::get_if<int>(&parsed)) return *status;
    return CountProgram(std::get<CountOptions>(std::move(parsed)), environment).Run();
  } catch (const std::bad_alloc&) {
    environment.Err << kName << ": " << Tr("Insufficient memory") << '\n';
  } catch (const std::exception& error) {
    environment.Err << kName << ": " << UnexpectedErrorText("KorvCount", kErrorUnexpected, error.what())
                    << '\n';
  }
  return kExitRefused;
}

}  // namespace korv
