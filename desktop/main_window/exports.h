#pragma once

#include <filesystem>
#include <memory>

#include "desktop/desktop.h"
#include "desktop/dialogs/frm_export.h"
#include "desktop/main_window/main_panels.h"
#include "report/output_file.h"

namespace korv {

class ResultController;
class RunController;

/// Finished runs as tables for other programs: asks what of the run in front to write where, has it written
/// beside the window, and tells how it ended.
class Exports {
 public:
  /// All outlive this.
  Exports(const Desktop& desktop, const MainPanels& panels, RunController& run, ResultController& result);

  /// Opens the window that asks. Nothing happens where there is no run or something goes on.
  void Export();

 private:
  ExportExtent Extent() const;
  /// False where it cannot be; the user has been told.
  bool Begin(const ExportChoice& choice);
  /// Whether a file may be written there. Asks before one is replaced.
  bool MayWrite(const std::filesystem::path& path) const;
  void Tell(const FileListResult& written, const std::filesystem::path& path) const;

  const Desktop& desktop_;
  const MainPanels& panels_;
  RunController& run_;
  ResultController& result_;
  frmExport* window_;  ///< The main window's.
};

}  // namespace korv
