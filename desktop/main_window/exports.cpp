#include "desktop/main_window/exports.h"

#include "app/run/export_run.h"
#include "app/run/result_notes.h"
#include "base/size_text.h"
#include "base/translation.h"
#include "desktop/main_window/result_controller.h"
#include "desktop/main_window/run_controller.h"
#include "desktop/main_window/status_line.h"
#include "desktop/questions.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

/// Of how many phrases (%1), where (%2) and how large it is (%3).
const char* PatternOfExported(const FileListResult& written) {
  const uint32_t phrases = written.List.Phrases;
  if (phrases == 0)
    return written.Described
               ? Tr("A report without a phrase was written to %2 (%3), with a description beside it.")
               : Tr("A report without a phrase was written to %2 (%3).");
  return written.Described
             ? TrCount("%1 phrase was written to %2 (%3), with a description beside it.",
                       "%1 phrases were written to %2 (%3), with a description beside it.", phrases)
             : TrCount("%1 phrase was written to %2 (%3).", "%1 phrases were written to %2 (%3).", phrases);
}

}  // namespace

Exports::Exports(const Desktop& desktop, const MainPanels& panels, RunController& run,
                 ResultController& result)
    : desktop_(desktop),
      panels_(panels),
      run_(run),
      result_(result),
      window_(new frmExport(desktop, panels.Frame->window())) {
  window_->Extent = [this] { return Extent(); };
  window_->Chosen = [this](const ExportChoice& choice) { return Begin(choice); };
}

void Exports::Export() {
  if (result_.InFront() == nullptr || !run_.Idle()) return;
  window_->Offer(FileNameOfRun(result_.InFront()->Run.Facts));
}

ExportExtent Exports::Extent() const {
  const PhraseTablePanel& table = *panels_.Frame->Table;
  const TableInSight shown = table.InSight();
  return {.Rows = shown.Rows.Rows(),
          .Phrases = shown.Rows.Phrases(),
          .Columns = shown.Columns.size(),
          .AllColumns = ColumnsOfExport(result_.InFront()->Run.Facts).size(),
          .Whole = table.Idle()};
}

bool Exports::Begin(const ExportChoice& choice) {
  const std::filesystem::path path = desktop_.Files.AbsolutePath(PathFromText(choice.Path));
  if (!MayWrite(path) || !run_.Idle()) return false;
  const TableInSight shown = panels_.Frame->Table->InSight();
  ExportRequest request{.Form = choice.Form,
                        .Columns = {},
                        .Rows = {},
                        .Described = choice.Described,
                        .Parts = shown.Values.Parts,
                        .ComparedBy = shown.Values.ComparedBy};
  if (!choice.Everything) {
    request.Columns = shown.Columns;
    request.Rows = shown.Rows;
  }
  const uint32_t rows = choice.Everything ? shown.Rows.Phrases() : shown.Rows.Rows();
  run_.Export(result_.InFront(), std::move(request), path, rows,
              [this, path](const FileListResult& written) { Tell(written, path); });
  return true;
}

bool Exports::MayWrite(const std::filesystem::path& path) const {
  const auto refuse = [&](const char* why) {
    desktop_.Messages.Show(
        {.Text = why, .Title = Tr("Export"), .Icon = Icon::Exclamation, .Addition = PathToText(path)});
    return false;
  };
  if (!desktop_.Files.FolderExists(path.parent_path())) return refuse(Tr("Folder does not exist."));
  if (desktop_.Files.FolderExists(path)) return refuse(Tr("This is a folder. Please name a file."));
  if (!desktop_.Files.FileExists(path)) return true;
  return desktop_.Messages.Show({.Text = Tr("The file exists. Do you wish to replace it?"),
                                 .Title = Tr("Export"),
                                 .Icon = Icon::Question,
                                 .Buttons = Buttons::YesNo,
                                 .DefaultAnswer = Answer::No,
                                 .Question = questions::kReplaceExport,
                                 .Addition = PathToText(path),
                                 .YesButton = Tr("Replace")}) == Answer::Yes;
}

void Exports::Tell(const FileListResult& written, const std::filesystem::path& path) const {
  std::string text;
  if (written.List.Outcome == ListOutcome::Stopped) {
    text = Fill(Tr("Stopped. %1"), {StoppedFileText(written, desktop_.Numbers)});
  } else if (written.Written) {
    text = Fill(PatternOfExported(written), {desktop_.Numbers.Grouped(written.List.Phrases), PathToText(path),
                                             FormatSize(written.Bytes, desktop_.Numbers)});
  }
  panels_.Status->ShowText(ToQt(text));
}

}  // namespace korv
