// Exporting finished runs as tables.

#include <utility>

#include "base/translation.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/status_line.h"
#include "desktop/toolkit/text.h"

namespace korv {

struct RunController::ExportJob {
  std::shared_ptr<ShownResult> Result;
  ExportRequest Request;
  FileListResult Written;
};

void RunController::Export(std::shared_ptr<ShownResult> result, ExportRequest request,
                           const std::filesystem::path& path, uint32_t rows,
                           std::function<void(const FileListResult&)> exported) {
  const auto job = std::make_shared<ExportJob>(
      ExportJob{.Result = std::move(result), .Request = std::move(request), .Written = {}});
  exported_ = 0;
  toExport_ = rows;
  Start(
      RunActivity::Exporting,
      [this, job, path] {
        job->Written = ExportRun(*job->Result, job->Request, path,
                                 {.Files = desktop_.Files,
                                  .Dialogs = thread_.Messages(),
                                  .Texts = &texts_,
                                  .Yielder = thread_.Yielder(),
                                  .Clock = desktop_.Clock,
                                  .Numbers = desktop_.Numbers,
                                  .Exported = exported_});
      },
      [this, job, exported = std::move(exported)](const std::exception_ptr& thrown) {
        panels_.Status->ShowText({});
        if (thrown) std::rethrow_exception(thrown);
        if (!Abandoned()) exported(job->Written);
      });
  BeginRun(false);
  panels_.Status->ShowText(Tr("Exporting . . ."));
}

void RunController::ShowExportProgress() {
  if (Doing() != RunActivity::Exporting || !thread_.Working()) return;
  const uint64_t done = exported_;
  if (done > 0)
    panels_.Status->ShowText(QString(Tr("Exporting . . . %1 of %2 phrases"))
                                 .arg(ToQt(desktop_.Numbers.Grouped(static_cast<int64_t>(done))),
                                      ToQt(desktop_.Numbers.Grouped(toExport_))));
  // Before the first row columns are computed, and behind the last one libraries finish their files: nobody
  // can tell how far that is.
  const bool told = done > 0 && done < toExport_;
  panels_.Run->ShowProgress(told ? static_cast<int>(done * RunPanel::kWholeProgress / toExport_) : -1);
}

}  // namespace korv
