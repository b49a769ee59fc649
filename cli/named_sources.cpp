#include "cli/named_sources.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "base/translation.h"
#include "cli/path_list.h"
#include "sources/detect/source_checks.h"
#include "sources/folders/expand_pattern.h"

namespace korv {

namespace {

constexpr const char* kStandardInput = "-";

bool Refuse(std::string text, Messages& messages) {
  messages.Show({.Text = std::move(text), .Title = Tr("Error"), .Icon = Icon::Exclamation});
  return false;
}

bool RefuseList(const PathListFile& list, std::string_view why, Messages& messages) {
  if (list.Path == kStandardInput) return Refuse(Fill(Tr("The list on standard input %1."), {why}), messages);
  return Refuse(Fill(Tr("The list %1 %2."), {list.Path, why}), messages);
}

std::vector<std::string> Expanded(const std::vector<std::string>& arguments,
                                  const CountEnvironment& environment) {
  std::vector<std::string> paths;
  for (const std::string& path : arguments) {
    if (!environment.ExpandsPatterns) {
      paths.push_back(path);
      continue;
    }
    for (std::string& named : ExpandPattern(path, environment.Files)) paths.push_back(std::move(named));
  }
  return paths;
}

bool AddPathsOf(const PathListFile& list, const CountEnvironment& environment, Messages& messages,
                std::vector<std::string>& paths) {
  std::unique_ptr<InputFile> opened;
  InputFile* file = &environment.StandardInput;
  if (list.Path != kStandardInput) {
    auto found = environment.Files.OpenForReading(PathFromText(list.Path));
    if (!found) return RefuseList(list, UnreadableListText(found.Error()), messages);
    opened = std::move(*found);
    file = opened.get();
  }
  auto read = ReadPathList(*file, list.Separator);
  if (!read) return RefuseList(list, read.Error(), messages);
  if (read->empty()) return RefuseList(list, Tr("names no file"), messages);
  paths.insert(paths.end(), std::make_move_iterator(read->begin()), std::make_move_iterator(read->end()));
  return true;
}

SourcePath SourceOf(const std::string& path, const FileSystem& files) {
  if (path == kStandardInput) return {path, SourcePath::Kind::StandardInput};
  std::string folder = WithoutEndSeparators(path);
  if (files.FolderExists(PathFromText(folder))) return {std::move(folder), SourcePath::Kind::Folder};
  return {path, SourcePath::Kind::File};
}

}  // namespace

Expected<NamedSources, int> NamedSourcesOf(const CountOptions& options, const CountEnvironment& environment,
                                           Messages& messages) {
  NamedSources named;
  std::vector<std::string> paths = Expanded(options.Paths, environment);
  const std::optional<PathListFile>& list = options.FilesFrom;
  if (list && !AddPathsOf(*list, environment, messages, paths)) return kExitRefused;
  // Of the arguments alone it is known already.
  std::vector<std::string> compared = Expanded(options.Comparison.Paths, environment);
  const auto readers = std::count(paths.begin(), paths.end(), kStandardInput) +
                       std::count(compared.begin(), compared.end(), kStandardInput);
  if (readers + (list && list->Path == kStandardInput ? 1 : 0) > 1) {
    environment.Err << "korv-count: " << Tr("standard input can be read only once") << '\n';
    return kExitUsage;
  }
  for (const std::string& path : paths) named.Paths.push_back(SourceOf(path, environment.Files));
  for (const std::string& path : compared) named.Compared.push_back(SourceOf(path, environment.Files));
  named.Together = list.has_value() || named.Paths.size() > 1;
  return named;
}

}  // namespace korv
