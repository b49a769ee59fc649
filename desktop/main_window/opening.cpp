#include "desktop/main_window/opening.h"

#include <vector>

#include "app/kept/open_kept_run.h"
#include "base/translation.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

bool NamesSettings(const std::filesystem::path& path) {
  const QString extension = ToQt(PathToText(path.extension()));
  return extension.compare(QLatin1String(".korv"), Qt::CaseInsensitive) == 0;
}

}  // namespace

void Opening::OpenPaths(const QStringList& paths) {
  if (paths.isEmpty() || !ready_()) return;
  if (paths.size() > 1) return OpenTogether(paths);
  const std::filesystem::path path = PathFromText(FromQt(paths.front()));
  if (desktop_.Files.FolderExists(path)) return source_.Take(paths.front());
  if (!desktop_.Files.FileExists(path)) return TellMissing(paths.front());
  if (NamesSettings(path)) return openSettings_(path);
  if (NamesKeptRun(path)) return openRun_(path);
  source_.Take(paths.front());
}

void Opening::OpenTogether(const QStringList& paths) {
  std::vector<SourcePath> sources;
  for (const QString& name : paths) {
    const std::filesystem::path path = PathFromText(FromQt(name));
    if (NamesSettings(path) || NamesKeptRun(path)) {
      desktop_.Messages.Show({.Text = Tr("Please open settings and kept runs one at a time."),
                              .Title = Tr("Several files"),
                              .Icon = Icon::Information,
                              .Addition = FromQt(name)});
      return;
    }
    const bool folder = desktop_.Files.FolderExists(path);
    if (!folder && !desktop_.Files.FileExists(path)) return TellMissing(name);
    sources.push_back({FromQt(name), folder ? SourcePath::Kind::Folder : SourcePath::Kind::File});
  }
  takeTogether_(std::move(sources));
}

void Opening::TellMissing(const QString& path) {
  desktop_.Messages.Show({.Text = Tr("Input file does not exist."),
                          .Title = Tr("File not found"),
                          .Icon = Icon::Exclamation,
                          .Addition = FromQt(path)});
}

}  // namespace korv
