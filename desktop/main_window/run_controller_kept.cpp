// Keeping finished runs as files, and opening them again.

#include <utility>

#include "app/kept/keep_run.h"
#include "app/kept/open_kept_run.h"
#include "base/translation.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/status_line.h"
#include "desktop/toolkit/text.h"

namespace korv {

struct RunController::KeptJob {
  std::shared_ptr<ShownResult> Result;
  std::optional<RunToKeep> Run{};
  std::optional<Expected<uint64_t, KeepError>> Kept{};
  std::optional<OpenError> Error{};
};

void RunController::BeginKept(const QString& what) {
  keptProgress_ = {};
  BeginRun(false);
  panels_.Status->ShowText(what);
}

void RunController::Keep(const std::shared_ptr<ShownResult>& result, const std::filesystem::path& path,
                         std::function<void(Expected<uint64_t, KeepError>)> kept) {
  const auto job = std::make_shared<KeptJob>(KeptJob{.Result = result});
  job->Run.emplace(ToKeep(*result));
  Start(
      RunActivity::KeepingRun,
      [this, job, path] {
        job->Kept = KeepRun(*job->Run, path, {desktop_.Files, thread_.Yielder(), keptProgress_});
      },
      [this, job, kept = std::move(kept)](const std::exception_ptr& thrown) {
        panels_.Status->ShowText({});
        if (thrown) std::rethrow_exception(thrown);
        kept(*std::move(job->Kept));
      });
  BeginKept(Tr("Writing the kept run . . ."));
}

void RunController::OpenKept(const std::filesystem::path& path,
                             std::function<void(const OpenError&)> failed) {
  const auto job =
      std::make_shared<KeptJob>(KeptJob{.Result = thread_.Share(std::make_unique<ShownResult>())});
  Start(
      RunActivity::OpeningRun,
      [this, job, path] {
        job->Error = OpenKeptRun(path, {desktop_.Files, thread_.Yielder(), keptProgress_}, *job->Result);
        job->Result->KeptIn = PathToText(path);
      },
      [this, job, failed = std::move(failed)](const std::exception_ptr& thrown) {
        panels_.Status->ShowText({});
        if (thrown) std::rethrow_exception(thrown);
        if (Abandoned()) return;
        if (job->Error) return failed(*job->Error);
        hooks_.Counted({.Result = std::move(job->Result), .Filtered = false, .ToFile = false});
      });
  BeginKept(Tr("Opening the kept run . . ."));
}

void RunController::ShowKeptProgress() {
  const bool keeps = Doing() == RunActivity::KeepingRun;
  if ((!keeps && Doing() != RunActivity::OpeningRun) || !thread_.Working()) return;
  const uint64_t total = keptProgress_.Total;
  const uint64_t done = keptProgress_.Done;
  if (total == 0) return;
  // Behind the last byte comes work of which nobody can tell how far it is: checks, and what the disk does.
  panels_.Run->ShowProgress(done < total ? static_cast<int>(done * RunPanel::kWholeProgress / total) : -1);
}

}  // namespace korv
