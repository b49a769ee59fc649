#include "desktop/main_window/opening.h"

#include <algorithm>
#include <vector>

#include "app/kept/open_kept_run.h"
#include "desktop/main_window/files_together.h"
#include "desktop/main_window/folder_page.h"
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
  if (!desktop_.Files.FileExists(path)) {
    desktop_.Messages.Show({.Text = "Input file does not exist.",
                            .Title = "File not found",
                            .Icon = Icon::Exclamation,
                            .Addition = FromQt(paths.front())});
    return;
  }
  if (NamesSettings(path)) return openSettings_(path);
  if (NamesKeptRun(path)) return openRun_(path);
  source_.Take(paths.front());
}

bool Opening::AreTexts(const std::vector<std::filesystem::path>& files) const {
  return std::all_of(files.begin(), files.end(), [this](const std::filesystem::path& file) {
    return desktop_.Files.FileExists(file) && !NamesSettings(file) && !NamesKeptRun(file);
  });
}

void Opening::OpenTogether(const QStringList& paths) {
  std::vector<std::filesystem::path> files;
  for (const QString& path : paths) files.push_back(PathFromText(FromQt(path)));
  const auto together = AreTexts(files) ? TakeTogether(files) : std::nullopt;
  Message message{.Text = "Please open one file or one folder at a time.",
                  .Title = "Several files",
                  .Icon = Icon::Information};
  if (together) {
    const bool onlyThese = !together->Patterns.empty();
    message.Addition =
        (onlyThese ? "These files lie in one folder and can be counted together:\n"
                   : "These files lie in one folder, which can be counted with all that it holds:\n") +
        PathToText(together->Folder);
    message.ExtraButton = onlyThese ? "Count them &together" : "Choose the &folder";
  }
  if (desktop_.Messages.Show(message) != Answer::Extra || !together) return;
  if (!together->Patterns.empty()) source_.Folder->SelectFiles(together->Patterns);
  source_.Take(ToQt(PathToText(together->Folder)));
}

}  // namespace korv
