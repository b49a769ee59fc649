#include "app/run/source_reader.h"

#include <memory>
#include <utility>

#include "app/run/comparison_request.h"
#include "app/run/encoding_tally.h"
#include "base/translation.h"
#include "base/workers.h"
#include "report/error_text.h"
#include "report/summary.h"
#include "sources/detect/comment_markers_ok.h"
#include "sources/detect/declared_encoding.h"
#include "sources/detect/foreign_kind.h"
#include "sources/detect/source_checks.h"
#include "sources/detect/text_file_check.h"
#include "sources/folders/met_paths.h"
#include "sources/read/document_readers.h"
#include "sources/read/documents_ahead.h"
#include "sources/read/docx.h"

namespace korv {

namespace {

namespace fs = std::filesystem;

/// Shorter files are read before a progress display could be seen.
constexpr uint64_t kProgressFromBytes = 10241;
/// What standard input is called among files.
constexpr const char* kStandardInputName = "-";
/// A message with more lines is not read.
constexpr size_t kSkippedInMessage = 10;

void ShowFileError(Messages& messages, const FileError& error) {
  messages.Show({.Text = UnexpectedErrorText("DoItFromFile", ErrorNumber(error.Fault), error.Description),
                 .Title = Tr("Error"),
                 .Icon = Icon::Critical});
}

std::string SkippedFilesInMessage(const RunSummary& facts) {
  std::string text = SkippedFilesText(facts, kSkippedInMessage);
  if (!text.empty()) text.pop_back();  // Its line end.
  return text;
}

bool IsDocx(const fs::path& path) {
  return FileExtension(PathToText(path), true) == kDocxExtension;
}

/// For as long as this lives, one answer about the encoding holds for every file.
class OneAnswerForAll {
 public:
  explicit OneAnswerForAll(EncodingChooser& chooser) : chooser_(chooser) { chooser_.BeginFolderRun(); }
  ~OneAnswerForAll() { chooser_.EndFolderRun(); }
  OneAnswerForAll(const OneAnswerForAll&) = delete;
  OneAnswerForAll& operator=(const OneAnswerForAll&) = delete;

 private:
  EncodingChooser& chooser_;
};

}  // namespace

SourceReader::SourceReader(const RunRequest& request, const WordRules& rules, const RunServices& services,
                           CountedRun& run, CorpusBuilder& corpus)
    : request_(request),
      rules_(rules),
      services_(services),
      run_(run),
      corpus_(corpus),
      reader_(rules, corpus, services.Yielder, {services.Progress.BytesRead, services.Progress.Words}) {}

RunEnd SourceReader::DoItFromClipboard() {
  if (request_.Stream) return DoItFromStream();
  if (!ClipboardIsValid()) return RunEnd::Refused;
  services_.View.Status(Tr("Now counting phrases on the clipboard"));
  services_.Progress.BytesTotal = request_.ClipboardText.size();
  ReadClipboardText();
  return RunEnd::Counted;
}

bool SourceReader::ClipboardIsValid() const {
  const std::string& text = request_.ClipboardText;
  return CheckClipboardText(text, services_.Messages, services_.Numbers) &&
         CheckNaturalLanguage(text, services_.Messages);
}

void SourceReader::ReadClipboardText() {
  if (KeepsText()) run_.KeptText = request_.ClipboardText;
  DocumentText document;
  document.Head = request_.ClipboardText;
  reader_.Read({}, std::move(document), TextEncoding::Utf8);
}

std::unique_ptr<StreamSource> SourceReader::MakeStream() {
  std::string* const kept = KeepsText() ? &run_.KeptText : nullptr;
  const std::string& named = request_.Options.Reading.Encoding;
  if (named.empty())
    return std::make_unique<StreamSource>(*request_.Stream, request_.StreamEncoding, services_.Yielder, kept);
  decoded_ =
      std::make_unique<DecodedStream>(*request_.Stream, EncodingAsBrowsersHaveIt(named), services_.Yielder);
  return std::make_unique<StreamSource>(*decoded_, EncodingChoice::Utf8, services_.Yielder, kept);
}

std::optional<FileError> SourceReader::ReadHeadOf(StreamSource& source) {
  return source.ReadHead([this](uint64_t bytes) {
    services_.Progress.BytesRead = bytes;
    services_.Yielder.YieldNow();
  });
}

RunEnd SourceReader::DoItFromStream() {
  std::unique_ptr<StreamSource> source = MakeStream();
  if (const auto unread = ReadHeadOf(*source)) {
    ShowFileError(services_.Messages, *unread);
    return RunEnd::Refused;
  }
  const std::string beginning = source->Beginning();
  if (beginning.empty() && services_.Yielder.Stopped()) return RunEnd::Stopped;
  if (!CheckNaturalLanguage(beginning, services_.Messages, kLookedAtCharacters, TextPlace::StandardInput,
                            ForeignKindAdvice(source->Head())))
    return RunEnd::Refused;
  if (!CommentMarkersAreSafe(MarkersOfFile({}, request_.ReadAs).Language)) return RunEnd::Refused;
  services_.View.Status(Tr("Now counting phrases on standard input"));
  services_.Progress.BytesTotal = source->Size();
  const TextSummary summary = ReadStream(std::move(source));
  if (!summary.Error) return RunEnd::Counted;
  ShowFileError(services_.Messages, *summary.Error);
  return RunEnd::Refused;
}

TextSummary SourceReader::ReadStream(std::unique_ptr<StreamSource> source) {
  EncodingPlan encoding = source->Encoding();
  DocumentText document;
  document.Head = source->TakeHead();
  document.Rest = std::move(source);
  document.Markers = MarkersOfFile({}, request_.ReadAs);
  TextSummary summary = reader_.Read({}, std::move(document), std::move(encoding), AfterStop::WhatIsThere);
  Tally(summary);
  return summary;
}

RunEnd SourceReader::DoItFromFile() {
  if (!InputFileIsValid()) return RunEnd::Refused;
  if (!ConfirmLargeInput()) {
    services_.View.Sizes("", "");
    return RunEnd::Abandoned;
  }
  const std::string& input = run_.Facts.InputPath;
  ReadPlan plan(request_.ReadAs);
  plan.AddFile(PathFromText(input));
  if (!CommentMarkersAreSafe(plan)) return RunEnd::Refused;
  services_.View.Status(Tr("Now counting phrases in") + ("\r\n\r\n" + input));
  const fs::path path = plan.Document(0).Path;
  if (ReadDocument(path, Open(path, Alone::Yes), Alone::Yes)) return RunEnd::Counted;
  services_.View.Sizes("", "");
  services_.View.ClearOutput();
  return RunEnd::Refused;
}

bool SourceReader::InputFileIsValid() {
  const std::string& input = run_.Facts.InputPath;
  const InputFileCode code = ValidateInputFile(services_.Files, input, run_.OutputPath);
  if (code == InputFileCode::Valid) return true;
  services_.View.Sizes("", "");
  if (code == InputFileCode::InvalidSpecification) services_.View.InputFile("");
  ShowInputFileError(services_.Messages, code, input);
  return false;
}

bool SourceReader::ConfirmLargeInput() {
  if (!run_.OutputPath.empty()) return true;
  const auto size = services_.Files.FileSize(PathFromText(run_.Facts.InputPath));
  if (!size || *size < kLargeInputBytes) return true;
  switch (AskLargeInput(services_.Messages)) {
    case Answer::Cancel:
      return false;
    case Answer::Yes:
      run_.OutputPath = services_.View.ChooseOutputFile().value_or("");
      return true;
    default:
      return true;
  }
}

RunEnd SourceReader::DoItFromFolder() {
  if (!FolderIsValid()) return RunEnd::Refused;
  ReadPlan plan(request_.ReadAs);
  if (!MakePlan(plan)) return RunEnd::Stopped;
  if (!PlanIsAccepted(plan)) return RunEnd::Refused;
  if (Compares()) TellSharedFiles(plan);
  ReadFolder(plan);
  return SomethingWasRead() && BothSidesHaveWords() ? RunEnd::Counted : RunEnd::Refused;
}

bool SourceReader::FolderIsValid() {
  if (!ValidatePatterns(request_.Selection, services_.Messages)) return false;
  if (!request_.Stream && ReadsClipboard(request_) && !ClipboardIsValid()) return false;
  const auto isBeside = [this](std::span<const SourcePath> paths) {
    return ValidateOutputBeside(services_.Files, services_.Messages, paths, run_.OutputPath,
                                request_.IncludeSubfolders);
  };
  if (!request_.Paths.empty()) return isBeside(request_.Paths) && isBeside(request_.Compared);
  return ValidateFolder(services_.Files, services_.Messages, run_.Facts.InputPath, run_.OutputPath,
                        request_.IncludeSubfolders, request_.OffersWaysOut);
}

/// False where it was stopped.
bool SourceReader::MakePlan(ReadPlan& plan) {
  RunProgress& progress = services_.Progress;
  FolderWalk walk(services_.Files, services_.Yielder, request_.Selection, request_.IncludeSubfolders);
  FolderEvents events;
  events.Say = [this](const std::string& text) { services_.View.Status(text); };
  events.Unreadable = [this](const fs::path& path, const FileError& error) {
    Note(UnreadableFolderText(path, error));
  };
  events.Wanted = [&progress](const fs::path&) { ++progress.FilesTotal; };
  progress.CountingFiles = true;
  bool whole = request_.Paths.empty()
                   ? !plan.AddFolder(walk, PathFromText(run_.Facts.InputPath), events).Stopped
                   : plan.AddTogether(request_.Paths, services_.Files, walk, events);
  secondSide_ = plan.Documents();
  if (whole && Compares()) whole = plan.AddTogether(request_.Compared, services_.Files, walk, events);
  progress.CountingFiles = false;
  return whole;
}

/// Whether there is something to read, of both sides where there are two.
bool SourceReader::HasDocuments(const ReadPlan& plan) const {
  return plan.Documents() > 0 && (!Compares() || (secondSide_ > 0 && secondSide_ < plan.Documents()));
}

/// A file on both sides counts for both, which is mostly a mistake.
void SourceReader::TellSharedFiles(const ReadPlan& plan) {
  MetPaths met(services_.Files);
  uint64_t shared = 0;
  for (size_t i = 0; i < plan.Documents(); ++i) {
    services_.Yielder.Yield();
    const fs::path path = plan.Document(i).Path;
    if (!path.empty() && !met.MeetFile(path)) ++shared;
  }
  run_.Facts.SecondSide->SharedFiles = shared;
  if (shared == 0) return;
  const std::string number = services_.Numbers.Grouped(static_cast<int64_t>(shared));
  Note(Fill(TrCount("%1 file is on both sides of the comparison.",
                    "%1 files are on both sides of the comparison.", shared),
            {number}));
}

/// Whether what was found is to be read; if not, the user has been told why.
bool SourceReader::PlanIsAccepted(const ReadPlan& plan) {
  services_.View.Status(WillBeScannedText(plan.Documents(), services_.Numbers));
  if (!HasDocuments(plan)) {
    services_.Messages.Show(NothingToScan());
    return false;
  }
  if (plan.Documents() > 1 && run_.OutputPath.empty() && request_.SeveralFilesNeedOutput && !Compares() &&
      !ShowMultipleFilesNeedOutput(services_.Messages, request_.OffersWaysOut))
    return false;
  return CommentMarkersAreSafe(plan);
}

Message SourceReader::NothingToScan() const {
  const std::string pattern = JoinPatterns(request_.Selection.Patterns);
  const bool several = request_.Paths.size() > 1;
  const char* const where = request_.IncludeSubfolders
                                ? (several ? Tr("in these folders or in their subfolders")
                                           : Tr("in this folder or in its subfolders"))
                                : (several ? Tr("in these folders") : Tr("in this folder"));
  return {.Text = pattern.empty()
                      ? Fill(Tr("No scanable files were found %1."), {where})
                      : Fill(Tr("No scanable files as specified %1 were found %2."), {pattern, where}),
          .Title = Tr("No files found"),
          .Icon = Icon::Information};
}

void SourceReader::ReadFolder(const ReadPlan& plan) {
  const OneAnswerForAll encodings(services_.Encodings);
  RunProgress& progress = services_.Progress;
  const ReadContext context = ContextOf(Alone::No);
  std::optional<DocumentsAhead> ahead;
  const size_t threads = WorkerCount(services_.Yielder);
  if (threads > 1 && DocumentsAhead::IsWorthIt(plan, context)) ahead.emplace(plan, context, threads);
  for (size_t i = 0; i < plan.Documents(); ++i) {
    if (Compares() && i == secondSide_) BeginSecondSide();
    const PlannedDocument document = plan.Document(i);
    progress.FoldersRead = document.Folders;
    services_.Yielder.Yield();
    if (services_.Yielder.Stopped()) break;
    const auto open = [&] {
      if (!ahead) return Open(document.Path, Alone::No);
      OpenedDocument opened = ahead->Take(i);
      ShowSize(opened.FileSize);
      return opened;
    };
    if (ReadOneOfMany(document.Path, open)) ++run_.Facts.FilesScanned;
    ++progress.FilesRead;
  }
  if (progress.FilesRead == plan.Documents()) progress.FoldersRead = plan.Folders();
  run_.Facts.FoldersScanned = progress.FoldersRead;
  if (!Compares()) return;
  // Stopped while side A was read.
  if (progress.FilesRead < secondSide_) BeginSecondSide();
  SecondSide& b = *run_.Facts.SecondSide;
  b.Words = corpus_.Counts() - wordsOfA_;
  b.FilesScanned = run_.Facts.FilesScanned - b.FilesScanned;
}

void SourceReader::BeginSecondSide() {
  corpus_.BeginSecondSide();
  wordsOfA_ = corpus_.Counts();
  // Those of side A, until all are known.
  run_.Facts.SecondSide->FilesScanned = run_.Facts.FilesScanned;
}

/// Without words on one side there is no ratio; the user has been told.
bool SourceReader::BothSidesHaveWords() {
  if (!Compares()) return true;
  const bool ofA = wordsOfA_.Read() > 0;
  if (ofA && run_.Facts.SecondSide->Words.Read() > 0) return true;
  services_.Messages.Show({.Text = ofA ? Tr("No words were read of what is to be compared with.")
                                       : Tr("No words were read of what is to be compared."),
                           .Title = Tr("Nothing to compare"),
                           .Icon = Icon::Exclamation,
                           .Addition = SkippedFilesInMessage(run_.Facts)});
  return false;
}

/// Of what was named one by one, something is expected; if nothing was read, the user has been told.
bool SourceReader::SomethingWasRead() {
  if (request_.Paths.empty() || run_.Facts.FilesScanned > 0 || services_.Yielder.Stopped()) return true;
  services_.Messages.Show({.Text = Tr("None of the files could be counted."),
                           .Title = Tr("Invalid input"),
                           .Icon = Icon::Exclamation,
                           .Addition = SkippedFilesInMessage(run_.Facts)});
  return false;
}

bool SourceReader::ReadOneOfMany(const fs::path& path, const std::function<OpenedDocument()>& open) {
  if (path.empty()) return ReadStreamAmongFiles();
  services_.View.InputFile(PathToText(path));
  // Of a folder it was there a moment ago.
  if (!request_.Paths.empty() && !services_.Files.FileExists(path))
    return Skip(PathToText(path), TrLater("does not exist"));
  return ReadDocument(path, open(), Alone::No);
}

bool SourceReader::ReadStreamAmongFiles() {
  if (!request_.Stream) {
    ReadClipboardText();
    return true;
  }
  services_.View.InputFile(kStandardInputName);
  std::unique_ptr<StreamSource> source = MakeStream();
  if (ReadHeadOf(*source)) return Skip(kStandardInputName, SkipReason(TextFileCode::CannotOpen));
  const std::string beginning = source->Beginning();
  if (beginning.empty() && services_.Yielder.Stopped()) return false;
  if (beginning.empty()) return Skip(kStandardInputName, SkipReason(TextFileCode::ZeroLength));
  if (!IsNaturalLanguage(beginning, kLookedAtCharacters))
    return Skip(kStandardInputName, SkipReason(TextFileCode::NotText));
  const TextSummary summary = ReadStream(std::move(source));
  if (summary.Error)
    Note(Fill(Tr("Standard input was read only in part (%1)."), {summary.Error->Description}));
  return true;
}

bool SourceReader::Skip(std::string path, std::string_view reason) {
  run_.Facts.SkippedFiles.push_back({std::move(path), std::string(reason)});
  return false;
}

ReadContext SourceReader::ContextOf(Alone alone) const {
  return {services_.Files,
          services_.Messages,
          services_.Yielder,
          alone == Alone::No,
          [this](const std::string& bar) { services_.View.TextProgress(bar); },
          request_.ReadAs,
          request_.Documents,
          request_.Options.Reading};
}

void SourceReader::ShowSize(std::optional<uint64_t> fileSize) {
  services_.View.Sizes(fileSize ? FileSizeLabel(*fileSize, services_.Numbers) : "", "");
}

/// Opens a document on this thread.
OpenedDocument SourceReader::Open(const fs::path& path, Alone alone) {
  return OpenDocument(path, ContextOf(alone), [this](std::optional<uint64_t> size) { ShowSize(size); });
}

bool SourceReader::ReadDocument(const fs::path& path, OpenedDocument document, Alone alone) {
  Expected<DocumentText, DocumentRefusal>& text = document.Text;
  if (!text) return Refuse(path, text.Error(), alone);
  if (text->Origin.IsDocument) {
    services_.View.Sizes(FileSizeLabel(text->Origin.Size, services_.Numbers),
                         TextSizeLabel(text->Head.size(), services_.Numbers));
    if (request_.ExtractTextFromDocx && IsDocx(path)) KeepExtractedText(path, text->Head);
  }
  return ReadText(path, std::move(*text), alone);
}

bool SourceReader::ReadText(const fs::path& path, DocumentText text, Alone alone) {
  const uint64_t size = text.Origin.Size;
  const bool isFileItself = !text.Origin.IsDocument;
  const bool isMarkup = text.Markers.blnCharacterEntitiesPossible;
  const TextFileCode code = text.Facts.Code;
  EncodingPlan encoding = EncodingOf(path, text);
  if (isFileItself && alone == Alone::Yes)
    services_.Progress.BytesTotal = size >= kProgressFromBytes ? size : 0;
  const std::string named = text.EncodingName == "UTF-8" ? std::string() : text.EncodingName;
  const TextSummary summary = reader_.Read(path, std::move(text), std::move(encoding));
  Tally(summary, named);
  if (!named.empty() && alone == Alone::Yes) run_.FileKind = Fill(Tr("This is a text in %1."), {named});
  if (isFileItself && alone == Alone::Yes)
    run_.FileKind = FileKindAfterRun(summary.ReadAs == ReadAs::Utf8, code);
  if (isMarkup)
    services_.View.Sizes(FileSizeLabel(size, services_.Numbers),
                         TextSizeLabel(summary.TextBytes, services_.Numbers));
  if (!summary.Error) {
    // What it has lost was there when it was opened, and a stop leaves the rest unread.
    if (isFileItself && summary.BytesRead < size && !services_.Yielder.Stopped()) NoteShortened(path);
    return true;
  }
  if (alone == Alone::Yes) {
    ShowFileError(services_.Messages, *summary.Error);
    return false;
  }
  Note(Fill(Tr("File %1 was read only in part (%2)."), {PathToText(path), summary.Error->Description}));
  return true;
}

/// The encoding that the reader of the document knows, or else the one that the user chooses; and the label
/// that goes with it as soon as it is known.
EncodingPlan SourceReader::EncodingOf(const fs::path& path, const DocumentText& text) {
  if (text.Encoding) return *text.Encoding;
  EncodingPlan plan = services_.Encodings.PlanFor(text.Facts, PathToText(path), services_.Messages);
  if (request_.Options.Reading.DeclaredEncodings) {
    plan.OtherThanUtf8 = TextEncoding::Windows1252;
    if (plan.Settled == TextEncoding::Ansi) plan.Settled = TextEncoding::Windows1252;
  }
  services_.View.FileKind(FileKindWhileReading(plan.Settled == TextEncoding::Utf8));
  if (plan.Settled) return plan;
  plan.ConfirmUtf8 = [this, confirm = std::move(plan.ConfirmUtf8)] {
    const bool isUtf8 = confirm();
    services_.View.FileKind(FileKindWhileReading(isUtf8));
    return isUtf8;
  };
  return plan;
}

bool SourceReader::Refuse(const fs::path& path, const DocumentRefusal& refusal, Alone alone) {
  const Message message = alone == Alone::Yes ? refusal.MessageAlone(services_.Numbers) : refusal.MessageOnce;
  if (!message.Text.empty() && !refusalTold_) {
    services_.Messages.Show(message);
    refusalTold_ = true;
  }
  return alone == Alone::No && Skip(PathToText(path), refusal.SkipReason);
}

void SourceReader::Tally(const TextSummary& summary, const std::string& encoding) {
  EncodingCounts& counts = run_.Facts.Encodings;
  if (encoding.empty())
    CountReading(summary.ReadAs, counts);
  else
    ++run_.Facts.OtherEncodings[encoding];
  counts.IllFormed += summary.IllFormed;
}

void SourceReader::NoteShortened(const fs::path& path) {
  Note(Fill(Tr("File %1 became shorter while it was read: it was counted as far as it went."),
            {PathToText(path)}));
}

void SourceReader::KeepExtractedText(const fs::path& path, std::string_view text) {
  const auto error = WriteExtractedText(services_.Files, path, text);
  if (!error) return;
  if (extractionFaultTold_) {
    Note(Fill(Tr("The text of %1 was not written (%2)."), {PathToText(path), error->Description}));
  } else {
    ShowFileError(services_.Messages, *error);
    extractionFaultTold_ = true;
  }
}

void SourceReader::Note(const std::string& text) {
  services_.View.Notice(text);
  run_.Facts.Notices.push_back(text);
}

bool SourceReader::CommentMarkersAreSafe(MarkupLanguage language) const {
  return !HoldsProgramComments(language) || CommentMarkersOK(rules_, services_.Messages);
}

bool SourceReader::CommentMarkersAreSafe(const ReadPlan& plan) const {
  return !plan.HasProgramComments() || CommentMarkersOK(rules_, services_.Messages);
}

}  // namespace korv
