#include "report/output_file.h"

#include <algorithm>
#include <exception>
#include <memory>

#include "base/line_ends.h"
#include "base/translation.h"
#include "report/describe_table.h"
#include "report/error_text.h"
#include "report/listing_errors.h"
#include "report/summary.h"

namespace korv {

namespace {

std::string Trimmed(const std::string& path) {
  const size_t first = path.find_first_not_of(' ');
  return first == path.npos ? "" : path.substr(first, path.find_last_not_of(' ') - first + 1);
}

void ShowFileError(const FileError& error, const FileListingServices& services) {
  if (error.Fault == FileFault::PermissionDenied) {
    services.Dialogs.Show({.Text = Tr("Perhaps the output file\nis in use by another application."),
                           .Title = Tr("Permission denied"),
                           .Icon = Icon::Information});
    return;
  }
  services.Dialogs.Show(
      {.Text = UnexpectedErrorText("ListWords", ErrorNumber(error.Fault), error.Description) +
               ListingAdvice(services.Texts),
       .Title = Tr("Error"),
       .Icon = Icon::Critical});
}

/// What the text box, which has room for what was not counted, tells of a file.
void TellInBox(const Report& report, const std::filesystem::path& path, const FileListResult& result,
               TextOutput& box) {
  const bool stopped = result.List.Outcome == ListOutcome::Stopped;
  if (result.Written && !stopped)
    box.OutputToTxb(WrittenText(result.List.Phrases, PathToText(path), report.Numbers) + "\r\n");
  box.OutputToTxb(WithLineEnds(SkippedFilesText(report.Facts) + NoticesText(report.Facts), kCrLf));
  if (stopped)
    box.OutputToTxb(std::string("\r\n") + Tr("Output to file was terminated.") + "\r\n" +
                    StoppedFileText(result, report.Numbers));
}

}  // namespace

std::string WrittenText(uint32_t phrases, const std::string& path, const NumberFormat& numbers) {
  if (phrases == 0) return Fill(Tr("A report without a phrase was written to %1."), {path});
  return Fill(TrCount("%1 phrase was written to %2.", "%1 phrases were written to %2.", phrases),
              {numbers.Grouped(phrases), path});
}

bool FileReportSink::Write(std::string_view piece) {
  if (error_) return false;
  if (encoding_) {
    encoded_.clear();
    encoding_->Encode(piece, encoded_);
    piece = encoded_;
  }
  error_ = file_.Write(piece);
  if (error_) return false;
  bytes_ += piece.size();
  if (progress_) progress_(phrases_);
  return true;
}

FileListResult ListWordsToFile(const Report& report, const std::filesystem::path& path,
                               const FileListingServices& services, Yielder& yielder) {
  FileListResult result;
  if (services.Box) services.Box->OutputToTxb(std::string(Tr("Now writing to output file . . .")) + "\r\n");
  auto file = services.Files.OpenForWriting(path);
  if (!file) {
    ShowFileError(file.Error(), services);
    return result;
  }
  FileReportSink sink(**file, services.Table.Form ? nullptr : services.Encoding, services.Progress);
  std::optional<DigestSink> digest;
  if (!services.DescribeTo.empty()) digest.emplace(sink);
  try {
    result.List = ListWords(
        report, {.LineLayout = Layout::Tabs, .File = true, .Table = services.Table, .Files = &services.Files},
        digest ? static_cast<ReportSink&>(*digest) : sink, yielder);
  } catch (const std::exception&) {
    ShowListingError(report.Options, services.Dialogs, services.Texts);
    return result;
  }
  std::optional<FileError> error = sink.Error() ? sink.Error() : result.List.Fault;
  const bool stopped = result.List.Outcome == ListOutcome::Stopped;
  // After a stop the file that was there stays, for a whole report is worth more than part of one. Where
  // there was no file, the part is kept.
  const bool part = result.List.Shown > 0 && sink.Bytes() > 0;
  const bool keep = !error && !(stopped && ((*file)->Replaces() || !part));
  if (keep) error = (*file)->Commit();
  result.Written = keep && !error;
  result.Bytes = sink.Bytes();
  if (error) ShowFileError(*error, services);
  if (digest && result.Written)
    result.Described = WriteDescription({services.Table, report.Facts, result.List, *digest, path},
                                        services.DescribeTo, services.Files, services.Dialogs);
  if (services.Box) TellInBox(report, path, result, *services.Box);
  return result;
}

std::string StoppedFileText(const FileListResult& result, const NumberFormat& numbers) {
  if (!result.Written) return Tr("The output file is as it was.");
  const uint32_t shown = result.List.Shown;
  if (shown == 1) return Tr("The output file holds only the first phrase of the list.");
  return Fill(TrCount("The output file holds only the first %1 phrase of the list.",
                      "The output file holds only the first %1 phrases of the list.", shown),
              {numbers.Grouped(static_cast<int64_t>(shown))});
}

std::optional<std::string> OverwriteGuard::Confirm(std::string path, bool always) {
  // A path that the user edits may name another file that exists; it is asked for in its turn.
  for (;;) {
    const std::filesystem::path target = PathFromText(path);
    if (!files_.FileExists(target) || (!always && WrittenBefore(target))) return path;
    const std::optional<std::string> answer =
        messages_.AskText(Tr("To overwrite the current output file click on 'OK'.\n"
                             "To write to a different file edit the filepath below.\n"
                             "To disable file output click on 'Cancel'."),
                          Tr("The output file exists."), path);
    if (!answer) return std::nullopt;
    const std::string edited = Trimmed(*answer);
    if (edited.empty()) return std::nullopt;
    if (edited == path) return path;
    if (!files_.FolderExists(files_.AbsolutePath(PathFromText(edited)).parent_path())) {
      messages_.Show({.Text = Tr("Folder does not exist."), .Title = Tr("Error"), .Icon = Icon::Exclamation});
      return std::nullopt;
    }
    path = edited;
  }
}

void OverwriteGuard::Written(const std::filesystem::path& path) {
  if (!WrittenBefore(path)) written_.push_back(path);
}

bool OverwriteGuard::WrittenBefore(const std::filesystem::path& path) const {
  return std::any_of(written_.begin(), written_.end(),
                     [&](const std::filesystem::path& before) { return files_.SameFile(before, path); });
}

bool CanOpenOutputFile(const std::filesystem::path& path, FileSystem& files, Messages& messages) {
  const auto file = files.OpenForWriting(path);
  if (file) return true;
  messages.Show({.Text = Fill(Tr("Error: %1\n"
                                 "If the output file is open in Excel then it must first be closed\n"
                                 "or a different file should be specified as the output file."),
                              {file.Error().Description}),
                 .Title = Tr("Error"),
                 .Icon = Icon::Exclamation});
  return false;
}

}  // namespace korv
