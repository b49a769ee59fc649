#pragma once

#include <QStringList>
#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

#include "desktop/desktop.h"
#include "engine/source_path.h"

namespace korv {

class SourcePanel;

/// Opens what is dropped, given to the program or chosen again: a text or a folder becomes the source, a
/// settings file is loaded, a kept run gets a tab.
class Opening {
 public:
  /// Loads a settings file.
  using OpenSettings = std::function<void(const std::filesystem::path&)>;
  /// Opens a kept run.
  using OpenRun = std::function<void(const std::filesystem::path&)>;
  /// Makes several files and folders the source.
  using TakeTogether = std::function<void(std::vector<SourcePath>)>;
  /// Nothing is opened while `ready` says no. The others have to outlive this.
  Opening(const Desktop& desktop, SourcePanel& source, std::function<bool()> ready, OpenSettings openSettings,
          OpenRun openRun, TakeTogether takeTogether)
      : desktop_(desktop),
        source_(source),
        ready_(std::move(ready)),
        openSettings_(std::move(openSettings)),
        openRun_(std::move(openRun)),
        takeTogether_(std::move(takeTogether)) {}

  /// Several texts and folders are counted together; settings and kept runs are opened one at a time. Says
  /// what is wrong.
  void OpenPaths(const QStringList& paths);

 private:
  void OpenTogether(const QStringList& paths);
  void TellMissing(const QString& path);

  const Desktop& desktop_;
  SourcePanel& source_;
  std::function<bool()> ready_;
  OpenSettings openSettings_;
  OpenRun openRun_;
  TakeTogether takeTogether_;
};

}  // namespace korv
