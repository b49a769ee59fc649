// What is opened from outside: files that are dropped on the windows or given to the program.

#include "desktop/main_window/file_drops.h"
#include "desktop/main_window/files_together.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/main_window/recent_list.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

bool NamesSettings(const std::filesystem::path& path) {
  const QString extension = ToQt(PathToText(path.extension()));
  return extension.compare(QLatin1String(".korv"), Qt::CaseInsensitive) == 0;
}

}  // namespace

void frmMain::WatchDrops() {
  auto* drops = new FileDrops(
      this, [this] { return startUpCompleted_ && Idle(); },
      [this](const QStringList& paths) { Guarded("OpenPaths", [&] { OpenPaths(paths); })(); });
  drops->Watch(*this);
  drops->Watch(*params_);
}

void frmMain::ConnectRecent() {
  const auto show = [this] { lstRecent->Show(recentFiles_.Paths(), recentFolders_.Paths()); };
  recentFiles_.Changed = show;
  recentFolders_.Changed = show;
  show();
  // Once the list is done with the click: choosing an entry fills it anew.
  const auto choose = [this](const QListWidgetItem* item) {
    const QString path = RecentList::PathOf(*item);
    QMetaObject::invokeMethod(
        this, [this, path] { Guarded("lstRecent_Click", [&] { OpenPaths({path}); })(); },
        Qt::QueuedConnection);
  };
  connect(lstRecent, &QListWidget::itemClicked, this, choose);
  connect(lstRecent, &QListWidget::itemActivated, this, choose);
}

void frmMain::OpenPaths(const QStringList& paths) {
  if (paths.isEmpty() || !Idle()) return;
  if (paths.size() > 1) return OpenTogether(paths);
  const std::filesystem::path path = PathFromText(FromQt(paths.front()));
  if (desktop_.Files.FolderExists(path)) return TakeSource(paths.front());
  if (!desktop_.Files.FileExists(path)) {
    desktop_.Messages.Show({.Text = "Input file does not exist.",
                            .Title = "File not found",
                            .Icon = Icon::Exclamation,
                            .Addition = FromQt(paths.front())});
    return;
  }
  if (NamesSettings(path)) return params_->OpenSettingsFile(path);
  TakeSource(paths.front());
}

void frmMain::OpenTogether(const QStringList& paths) {
  std::vector<std::filesystem::path> files;
  for (const QString& path : paths) files.push_back(PathFromText(FromQt(path)));
  const bool texts = std::all_of(files.begin(), files.end(), [this](const std::filesystem::path& file) {
    return desktop_.Files.FileExists(file) && !NamesSettings(file);
  });
  const auto together = texts ? TakeTogether(files) : std::nullopt;
  Message message{.Text = "Please open one file or one folder at a time.",
                  .Title = "Several files",
                  .Icon = Icon::Information};
  if (together) {
    const bool onlyThese = !together->Patterns.empty();
    message.Addition =
        (onlyThese ? "These files lie in one folder and can be counted together:\r\n"
                   : "These files lie in one folder, which can be counted with all that it holds:\r\n") +
        PathToText(together->Folder);
    message.ExtraButton = onlyThese ? "Count them &together" : "Choose the &folder";
  }
  if (desktop_.Messages.Show(message) != Answer::Extra || !together) return;
  if (!together->Patterns.empty()) {
    txbFileFilepathSpecifications[0]->setText(ToQt(together->Patterns));
    txbFileFilepathSpecifications[1]->clear();
    chkIncludeSubfolders->setChecked(false);
  }
  TakeSource(ToQt(PathToText(together->Folder)));
}

}  // namespace korv
