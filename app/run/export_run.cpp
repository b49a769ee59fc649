#include "app/run/export_run.h"

#include "app/run/is_source.h"
#include "app/settings/setting_values.h"
#include "app/texts/program_version.h"
#include "base/time_text.h"
#include "report/columns/registry.h"
#include "report/describe_table.h"

namespace korv {

namespace {

TableDescription AboutRun(const ShownResult& result, const ExportServices& services) {
  const std::string& path = result.Run.Facts.InputPath;
  TableDescription about{.Version = std::string(ProgramVersion()),
                         .Created = FormatUtc(services.Clock.WallTime()),
                         .Paths = {path.empty() ? "-" : path},
                         .Numbers = services.Numbers,
                         // Who chooses rows wants them all.
                         .AllRows = true};
  if (result.Chosen) about.Settings = SettingValues(result.Chosen->Chosen);
  return about;
}

}  // namespace

FileListResult ExportRun(ShownResult& result, const ExportRequest& request, const std::filesystem::path& path,
                         const ExportServices& services) {
  CountedRun& run = result.Run;
  FileListResult written;
  written.List.Outcome = ListOutcome::Stopped;
  if (IsSource(path, run.Table.Corpus(), services.Files)) {
    services.Dialogs.Show({.Text = "This file is one of those that were counted. Please choose another one.",
                           .Title = "Export",
                           .Icon = Icon::Exclamation,
                           .Addition = PathToText(path)});
    written.List.Outcome = ListOutcome::SinkFull;
    return written;
  }
  // Filters of the report are no matter of the table.
  ReportOptions options = result.Listing.Options;
  options.FilterActive = false;
  if (!SetUpChainFor(run, options, services.Yielder)) return written;
  Report report{run.Table, run.Facts, options, services.Numbers, request.Parts};
  report.Rows.OrderBy = FindColumn("rank");
  report.Rows.Direction = SortDirection::Ascending;
  if (request.Rows) report.Rows.Given = &*request.Rows;
  report.Progress = &services.Exported;
  return ListWordsToFile(
      report, path,
      {.Files = services.Files,
       .Dialogs = services.Dialogs,
       .Texts = services.Texts,
       .Table = {.Form = request.Form,
                 .Columns = request.Columns.empty() ? TableColumns() : request.Columns,
                 .About = AboutRun(result, services)},
       .DescribeTo = request.Described ? DescriptionPath(path, services.Files) : std::filesystem::path()},
      services.Yielder);
}

}  // namespace korv
