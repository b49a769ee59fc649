#include "app/run/comparison_request.h"

#include <algorithm>
#include <utility>

#include "app/settings/settings.h"
#include "base/translation.h"
#include "report/key_phrases.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {

bool FolderIsThere(const std::string& folder, const FileSystem& files, Messages& messages) {
  const bool exists = files.FolderExists(PathFromText(folder));
  if (!exists)
    messages.Show({.Text = folder.empty() ? Tr("Folder not specified.") : Tr("Folder does not exist"),
                   .Title = Tr("Invalid input"),
                   .Icon = Icon::Exclamation,
                   .Addition = folder});
  return exists;
}

bool IsThere(const SourcePath& source, const FileSystem& files, Messages& messages) {
  switch (source.What) {
    case SourcePath::Kind::StandardInput:
      return true;
    case SourcePath::Kind::Folder:
      return FolderIsThere(source.Path, files, messages);
    case SourcePath::Kind::File:
      break;
  }
  const InputFileCode code = ValidateInputFile(files, source.Path, "");
  ShowInputFileError(messages, code, source.Path);
  return code == InputFileCode::Valid;
}

}  // namespace

std::vector<SourcePath> SourcesOf(const RunRequest& request) {
  if (!request.Paths.empty()) return request.Paths;
  switch (request.Options.SourceKind) {
    case TextSource::Clipboard:
      return {{"-", SourcePath::Kind::StandardInput}};
    case TextSource::SingleFile:
      return {{TrimmedPath(request.InputPath), SourcePath::Kind::File}};
    case TextSource::Folder:
      break;
  }
  return {{TrimmedFolderPath(request.InputPath), SourcePath::Kind::Folder}};
}

RunRequest ComparisonOf(RunRequest request, std::vector<SourcePath> compared, const ComparisonChoice& how) {
  request.Paths = SourcesOf(request);
  request.Compared = std::move(compared);
  request.Comparison = how;
  request.Options.SourceKind = TextSource::Folder;
  SetKeyFrequency(request);
  request.InputPath.clear();
  request.OutputPath.clear();
  return request;
}

void SetKeyFrequency(RunRequest& request) {
  int& least = request.Options.MinFrequency;
  if (!request.Comparison.Drafts && least == Settings().MinFrequency) least = kKeyFrequency;
}

bool ReadsClipboard(const RunRequest& request) {
  const auto isStream = [](const SourcePath& source) {
    return source.What == SourcePath::Kind::StandardInput;
  };
  return request.Options.SourceKind == TextSource::Clipboard ||
         std::ranges::any_of(request.Paths, isStream) || std::ranges::any_of(request.Compared, isStream);
}

bool SidesAreThere(RunRequest& request, const FileSystem& files, Messages& messages) {
  for (const SourcePath& source : request.Paths)
    if (!IsThere(source, files, messages)) return false;
  for (SourcePath& source : request.Compared) {
    if (source.What == SourcePath::Kind::StandardInput) continue;
    const std::string folder = TrimmedFolderPath(source.Path);
    if (files.FolderExists(PathFromText(folder))) {
      source = {folder, SourcePath::Kind::Folder};
    } else if (!files.FileExists(PathFromText(source.Path))) {
      messages.Show({.Text = Tr("What is to be compared with does not exist."),
                     .Title = Tr("Nothing to compare with"),
                     .Icon = Icon::Exclamation,
                     .Addition = source.Path});
      return false;
    }
  }
  return true;
}

}  // namespace korv
