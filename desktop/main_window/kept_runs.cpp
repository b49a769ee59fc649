#include "desktop/main_window/kept_runs.h"

#include "app/run/result_notes.h"
#include "base/size_text.h"
#include "base/translation.h"
#include "desktop/main_window/result_controller.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/status_line.h"
#include "desktop/toolkit/file_filter.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

constexpr const char* kExtension = "korvrun";

std::string KeptRunFilter() {
  return FileFilter(Tr("Kept runs"), "*.korvrun");
}

}  // namespace

void KeptRuns::KeepRun() {
  const std::shared_ptr<ShownResult> result = result_.InFront();
  if (result == nullptr || !result->Chosen || !run_.Idle()) return;
  const auto chosen = desktop_.Dialogs.ChooseFileToSave(
      {.Title = Tr("Keep run"),
       .Filter = KeptRunFilter(),
       .InitialPath = PathToText(folder_ / PathFromText(FileNameOfRun(result->Run.Facts) + "." + kExtension)),
       .Extension = kExtension,
       .AsksBeforeReplacing = true});
  if (!chosen || !run_.Idle()) return;
  const std::filesystem::path path = PathFromText(*chosen);
  run_.Keep(result, path, [this, path](const Expected<uint64_t, KeepError>& kept) {
    if (!kept) return TellFault(TextOf(kept.Error()), Tr("Keep run"), path);
    folder_ = path.parent_path();
    panels_.Status->ShowText(ToQt(
        Fill(Tr("The run was kept in %1 (%2)."), {PathToText(path), FormatSize(*kept, desktop_.Numbers)})));
  });
}

void KeptRuns::OpenKeptRun() {
  if (!run_.Idle()) return;
  const auto chosen = desktop_.Dialogs.ChooseFileToOpen(
      {.Title = Tr("Open kept run"), .Filter = KeptRunFilter(), .InitialPath = PathToText(folder_)});
  if (chosen) Open(PathFromText(*chosen));
}

void KeptRuns::Open(const std::filesystem::path& path) {
  if (!run_.Idle()) return;
  folder_ = path.parent_path();
  run_.OpenKept(
      path, [this, path](const OpenError& error) { TellFault(TextOf(error), Tr("Open kept run"), path); });
}

void KeptRuns::TellFault(const std::string& text, const char* title, const std::filesystem::path& path) {
  if (run_.Abandoned()) return;
  if (text.empty()) return panels_.Status->ShowText(Tr("Stopped"));
  desktop_.Messages.Show(
      {.Text = text, .Title = title, .Icon = Icon::Exclamation, .Addition = PathToText(path)});
}

}  // namespace korv
