#include "cli/named_sources.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "cli/path_list.h"
#include "sources/detect/source_checks.h"
#include "sources/folders/expand_pattern.h"

namespace korv {

namespace {

constexpr const char* kStandardInput = "-";

bool Refuse(std::string text, Messages& messages) {
  messages.Show({.Text = std::move(text), .Title = "Error", .Icon = Icon::Exclamation});
  return false;
}

std::vector<std::string> PathsOfArguments(const CountOptions& options, const CountEnvironment& environment) {
  std::vector<std::string> paths;
  for (const std::string& path : options.Paths) {
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
  std::string name = "The list on standard input ";
  if (list.Path != kStandardInput) {
    name = "The list " + list.Path + " ";
    auto found = environment.Files.OpenForReading(PathFromText(list.Path));
    if (!found) return Refuse(name + "cannot be read (" + found.Error().Description + ").", messages);
    opened = std::move(*found);
    file = opened.get();
  }
  auto read = ReadPathList(*file, list.Separator);
  if (!read) return Refuse(name + read.Error() + ".", messages);
  if (read->empty()) return Refuse(name + "names no file.", messages);
  paths.insert(paths.end(), std::make_move_iterator(read->begin()), std::make_move_iterator(read->end()));
  return true;
}

SourcePath SourceOf(std::string path, const FileSystem& files) {
  if (path == kStandardInput) return {std::move(path), SourcePath::Kind::StandardInput};
  std::string folder = WithoutEndSeparators(path);
  if (files.FolderExists(PathFromText(folder))) return {std::move(folder), SourcePath::Kind::Folder};
  return {std::move(path), SourcePath::Kind::File};
}

}  // namespace

Expected<NamedSources, int> NamedSourcesOf(const CountOptions& options, const CountEnvironment& environment,
                                           Messages& messages) {
  NamedSources named;
  std::vector<std::string> paths = PathsOfArguments(options, environment);
  const std::optional<PathListFile>& list = options.FilesFrom;
  if (list && !AddPathsOf(*list, environment, messages, paths)) return kExitRefused;
  // Of the arguments alone it is known already.
  const auto readers = std::count(paths.begin(), paths.end(), kStandardInput);
  if (readers + (list && list->Path == kStandardInput ? 1 : 0) > 1) {
    environment.Err << "korv-count: standard input can be read only once\n";
    return kExitUsage;
  }
  for (std::string& path : paths) named.Paths.push_back(SourceOf(std::move(path), environment.Files));
  named.Together = list.has_value() || named.Paths.size() > 1;
  return named;
}

}  // namespace korv
