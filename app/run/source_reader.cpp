#include "app/run/source_reader.h"

#include <utility>

#include "app/run/stream_source.h"
#include "report/error_text.h"
#include "sources/detect/foreign_kind.h"
#include "sources/detect/source_checks.h"
#include "sources/detect/text_file_check.h"
#include "sources/folders/folder_walk.h"
#include "sources/read/docx.h"
#include "sources/scan/line_scanner.h"
#include "wordlists/comment_markers_ok.h"

namespace korv {

namespace {

namespace fs = std::filesystem;

/// Shorter files are read before a progress display could be seen.
constexpr uint64_t kProgressFromBytes = 10241;

void ShowFileError(Messages& messages, const FileError& error) {
  messages.Show({.Text = UnexpectedErrorText("DoItFromFile", ErrorNumber(error.Fault), error.Description),
                 .Title = "Error",
                 .Icon = Icon::Critical});
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
                           CountedRun& run, CorpusBuilder& stream)
    : request_(request), rules_(rules), services_(services), run_(run), stream_(stream) {}

RunEnd SourceReader::DoItFromClipboard() {
  if (request_.Stream) return DoItFromStream();
  const std::string& text = request_.ClipboardText;
  if (!CheckClipboardText(text, services_.Messages, services_.Numbers) ||
      !CheckNaturalLanguage(text, services_.Messages))
    return RunEnd::Refused;
  services_.View.Status("Now counting phrases on the clipboard");
  stream_.BeginSource({});
  services_.Progress.BytesTotal = text.size();
  if (request_.Options.KeepPlaces) run_.KeptText = text;
  TextReader reader(text, nullptr, TextEncoding::Utf8, LongLines::Anywhere);
  FeedLines(reader, {}, AfterStop::Nothing);
  stream_.DescribeSource({.IsUtf8 = true});
  return RunEnd::Counted;
}

RunEnd SourceReader::DoItFromStream() {
  StreamSource source(*request_.Stream, request_.StreamEncoding, services_.Yielder,
                      request_.Options.KeepPlaces ? &run_.KeptText : nullptr);
  const auto unread = source.ReadHead([this](uint64_t bytes) {
    services_.Progress.BytesRead = bytes;
    services_.Yielder.YieldNow();
  });
  if (unread) {
    ShowFileError(services_.Messages, *unread);
    return RunEnd::Refused;
  }
  const std::string beginning = source.Beginning();
  if (beginning.empty() && Stopped()) return RunEnd::Stopped;
  if (!CheckNaturalLanguage(beginning, services_.Messages, kLookedAtCharacters, "standard input",
                            ForeignKindAdvice(source.Head())))
    return RunEnd::Refused;
  services_.View.Status("Now counting phrases on standard input");
  stream_.BeginSource({});
  services_.Progress.BytesTotal = source.Size();
  TextReader reader(source.TakeHead(), &source, source.Encoding(), LongLines::Anywhere);
  FeedLines(reader, {}, AfterStop::WhatIsThere);
  Tally(reader, {});
  if (!reader.Error()) return RunEnd::Counted;
  ShowFileError(services_.Messages, *reader.Error());
  return RunEnd::Refused;
}

RunEnd SourceReader::DoItFromFile() {
  const std::string& input = run_.Facts.InputPath;
  const InputFileCode code = ValidateInputFile(services_.Files, input, run_.OutputPath);
  if (code != InputFileCode::Valid) {
    services_.View.Sizes("", "");
    if (code == InputFileCode::InvalidSpecification) services_.View.InputFile("");
    ShowInputFileError(services_.Messages, code, input);
    return RunEnd::Refused;
  }
  if (!ConfirmLargeInput()) {
    services_.View.Sizes("", "");
    return RunEnd::Abandoned;
  }
  const fs::path path = PathFromText(input);
  if (!CommentMarkersAreSafe(MarkersOfFile(path))) return RunEnd::Refused;
  services_.View.Status("Now counting phrases in\r\n\r\n" + input);
  if (ReadFile(path, Kind::Single)) return RunEnd::Counted;
  services_.View.Sizes("", "");
  services_.View.ClearOutput();
  return RunEnd::Refused;
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
  const std::string& folderText = run_.Facts.InputPath;
  if (!ValidatePatterns(request_.Selection, services_.Messages) ||
      !ValidateFolder(services_.Files, services_.Messages, folderText, run_.OutputPath,
                      request_.IncludeSubfolders, request_.OffersWaysOut))
    return RunEnd::Refused;

  const fs::path folder = PathFromText(folderText);
  RunObserver& view = services_.View;
  RunProgress& progress = services_.Progress;
  FolderWalk walk(services_.Files, services_.Yielder, request_.Selection, request_.IncludeSubfolders);
  FolderEvents events;
  events.Say = [&](const std::string& text) { view.Status(text); };
  events.Unreadable = [&](const fs::path& path, const FileError& error) {
    Note(UnreadableFolderText(path, error));
  };

  // One file in a language with comments is enough to ask for safe markers.
  CommentMarkers withComments;
  events.Wanted = [&](const fs::path& path) {
    ++progress.FilesTotal;
    if (const CommentMarkers markers = MarkersOfFile(path);
        markers.Language == "C" || markers.Language == "PHP")
      withComments = markers;
  };
  progress.CountingFiles = true;
  const FolderTotals found = walk.ProcessFolder(folder, WalkMode::Counting, events);
  progress.CountingFiles = false;
  if (found.Stopped) return RunEnd::Stopped;
  progress.FilesTotal = found.Files;
  view.Status(WillBeScannedText(found.Files, services_.Numbers));
  if (found.Files == 0) {
    const std::string pattern = JoinPatterns(request_.Selection.Patterns);
    services_.Messages.Show({.Text = "No scanable files " +
                                     (pattern.empty() ? "" : "as specified " + pattern + " ") +
                                     "were found in this folder" +
                                     (request_.IncludeSubfolders ? " or in its subfolders" : "") + ".",
                             .Title = "No files found",
                             .Icon = Icon::Information});
    return RunEnd::Refused;
  }
  if (found.Files > 1 && run_.OutputPath.empty() && request_.SeveralFilesNeedOutput &&
      !ShowMultipleFilesNeedOutput(services_.Messages, request_.OffersWaysOut))
    return RunEnd::Refused;
  if (!CommentMarkersAreSafe(withComments)) return RunEnd::Refused;

  const OneAnswerForAll encodings(services_.Encodings);
  events.Entered = [&](const fs::path&) { ++progress.FoldersRead; };
  events.Wanted = [&](const fs::path& path) {
    view.InputFile(PathToText(path));
    if (ReadFile(path, Kind::OneOfMany)) ++run_.Facts.FilesScanned;
    ++progress.FilesRead;
  };
  const FolderTotals read = walk.ProcessFolder(folder, WalkMode::Reading, events);
  run_.Facts.FoldersScanned = read.Folders;
  return RunEnd::Counted;
}

bool SourceReader::ReadFile(const fs::path& path, Kind kind) {
  OpenedText opened = OpenTextSource(services_.Files, path, kRunThreshold);
  const uint64_t size = opened.File ? opened.File->Size() : 0;
  services_.View.Sizes(opened.File ? FileSizeLabel(size, services_.Numbers) : "", "");
  if (opened.IsDocx) return ReadDocx(path, opened, kind);
  if (!IsReadableText(opened.Facts.Code)) return Refuse(path, opened, kind);

  const CommentMarkers markers = MarkersOfFile(path);
  EncodingPlan encoding = PlanFor(path, opened.Facts);
  services_.View.FileKind(FileKindWhileReading(encoding.Settled == TextEncoding::Utf8));
  if (kind == Kind::Single) services_.Progress.BytesTotal = size >= kProgressFromBytes ? size : 0;
  stream_.BeginSource(path);
  TextReader reader(std::move(opened.Head), opened.File.get(), std::move(encoding), LongLines::Anywhere);
  const uint64_t textBytes = FeedLines(reader, markers, AfterStop::Nothing);
  Tally(reader, {.Size = size, .Modified = opened.File->Modified()});
  if (kind == Kind::Single)
    run_.FileKind = FileKindAfterRun(reader.ReadAs() == ReadAs::Utf8, opened.Facts.Code);
  if (markers.blnCharacterEntitiesPossible)
    services_.View.Sizes(FileSizeLabel(size, services_.Numbers), TextSizeLabel(textBytes, services_.Numbers));
  const std::optional<FileError> error = reader.Error();
  if (!error) return true;
  if (kind == Kind::Single) {
    ShowFileError(services_.Messages, *error);
    return false;
  }
  Note("File " + PathToText(path) + " was read only in part (" + error->Description + ").");
  return true;
}

/// The plan for a file, and the label that goes with it once it is known.
EncodingPlan SourceReader::PlanFor(const fs::path& path, const TextFacts& facts) {
  EncodingPlan plan = services_.Encodings.PlanFor(facts, PathToText(path), services_.Messages);
  if (plan.Settled) return plan;
  return EncodingPlan([this, confirm = std::move(plan.ConfirmUtf8)] {
    const bool isUtf8 = confirm();
    services_.View.FileKind(FileKindWhileReading(isUtf8));
    return isUtf8;
  });
}

void SourceReader::Tally(const TextReader& reader, SourceOrigin origin) {
  origin.IsUtf8 = reader.ReadAs() == ReadAs::Utf8;
  stream_.DescribeSource(origin);
  EncodingCounts& counts = run_.Facts.Encodings;
  switch (reader.ReadAs()) {
    case ReadAs::Ascii:
      ++counts.Ascii;
      break;
    case ReadAs::Ansi:
      ++counts.Ansi;
      break;
    case ReadAs::Utf8:
      ++counts.Utf8;
      break;
  }
  counts.IllFormed += reader.IllFormed();
}

bool SourceReader::ReadDocx(const fs::path& path, OpenedText& opened, Kind kind) {
  const uint64_t size = opened.File ? opened.File->Size() : 0;
  const int64_t modified = opened.File ? opened.File->Modified() : 0;
  std::string text;
  // In a folder run nobody wants to be asked about each large document.
  const int32_t result = korv::ReadDocx({services_.Files, services_.Messages, services_.Yielder}, path,
                                        std::move(opened.File), kProductWord, kind == Kind::Single, text,
                                        [&](const std::string& bar) { services_.View.TextProgress(bar); });
  if (result < 0) return RefuseDocx(path, result, kind);
  services_.View.Sizes(FileSizeLabel(size, services_.Numbers), TextSizeLabel(text.size(), services_.Numbers));
  if (request_.ExtractTextFromDocx) KeepExtractedText(path, text);
  stream_.BeginSource(path);
  TextReader reader(std::move(text), nullptr, TextEncoding::Utf8, LongLines::Anywhere);
  FeedLines(reader, {}, AfterStop::Nothing);
  Tally(reader, {.IsDocument = true, .Size = size, .Modified = modified});
  return true;
}

bool SourceReader::RefuseDocx(const fs::path& path, int32_t fault, Kind kind) {
  const std::string shown = PathToText(path);
  const Message message = kind == Kind::Single ? DocxRefusal(fault, shown) : DocxFolderRefusal(fault, shown);
  if (!message.Text.empty() && !docxFaultTold_) {
    services_.Messages.Show(message);
    docxFaultTold_ = true;
  }
  return kind == Kind::Single ? false : Skip(path, DocxSkipReason(fault));
}

void SourceReader::KeepExtractedText(const fs::path& path, std::string_view text) {
  const auto error = WriteExtractedText(services_.Files, path, text);
  if (!error) return;
  if (extractionFaultTold_) {
    Note("The text of " + PathToText(path) + " was not written (" + error->Description + ").");
  } else {
    ShowFileError(services_.Messages, *error);
    extractionFaultTold_ = true;
  }
}

bool SourceReader::Refuse(const fs::path& path, const OpenedText& opened, Kind kind) {
  if (kind == Kind::OneOfMany) return Skip(path, SkipReason(opened.Facts.Code));
  const auto size = services_.Files.FileSize(path);
  services_.Messages.Show(
      SingleFileRefusal(PathToText(path), opened.Facts, opened.Head, size ? *size : 0, services_.Numbers));
  return false;
}

void SourceReader::Note(const std::string& text) {
  services_.View.Notice(text);
  run_.Facts.Notices.push_back(text);
}

bool SourceReader::Skip(const fs::path& path, std::string_view reason) {
  run_.Facts.SkippedFiles.push_back({PathToText(path), std::string(reason)});
  return false;
}

uint64_t SourceReader::FeedLines(TextReader& reader, const CommentMarkers& markers, AfterStop afterStop) {
  LineScanner<CorpusBuilder> scanner(rules_, markers, stream_);
  scanner.BeginSource();
  RunProgress& progress = services_.Progress;
  uint32_t line = 0;
  while ((!Stopped() || afterStop == AfterStop::WhatIsThere) && reader.NextLine()) {
    line += reader.StartsLine();
    // Pieces of mark-up depend on what came before them.
    const bool resumable =
        reader.StartsLine() ? !scanner.InRegion() : IsPlainText(markers) && !scanner.HoldsBack();
    stream_.BeginLine(reader.LineOffset(), line, reader.StartsLine(), resumable);
    scanner.ScanLine(reader.Line(), reader.StartsLine(), reader.EndsLine());
    progress.BytesRead = reader.BytesRead();
    progress.Words = stream_.Counts().Taken;
    services_.Yielder.Yield();
  }
  return scanner.TextBytes();
}

bool SourceReader::CommentMarkersAreSafe(const CommentMarkers& markers) const {
  if (markers.Language != "C" && markers.Language != "PHP") return true;
  return CommentMarkersOK(rules_, services_.Messages);
}

}  // namespace korv
