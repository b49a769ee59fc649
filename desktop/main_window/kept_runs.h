#pragma once

#include <filesystem>
#include <string>

#include "app/kept/kept_run_error.h"
#include "desktop/desktop.h"
#include "desktop/main_window/main_panels.h"

namespace korv {

class ResultController;
class RunController;

/// Finished runs as files: asks where to keep the one in front and which one to open, and tells how it ended.
class KeptRuns {
 public:
  /// All outlive this.
  KeptRuns(const Desktop& desktop, const MainPanels& panels, RunController& run, ResultController& result)
      : desktop_(desktop), panels_(panels), run_(run), result_(result) {}

  /// Keeps the run in front. Nothing happens where there is none.
  void KeepRun();
  void OpenKeptRun();
  /// Opens a file, while nothing goes on.
  void Open(const std::filesystem::path& path);

 private:
  void TellFault(const std::string& text, const char* title, const std::filesystem::path& path);

  const Desktop& desktop_;
  const MainPanels& panels_;
  RunController& run_;
  ResultController& result_;
  std::filesystem::path folder_;  ///< Of the file that was kept or opened last; empty before the first.
};

}  // namespace korv
