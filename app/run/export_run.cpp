#include "app/run/export_run.h"

#include <utility>
#include <vector>

#include "app/run/is_source.h"
#include "app/settings/setting_values.h"
#include "app/texts/program_version.h"
#include "base/time_text.h"
#include "base/translation.h"
#include "report/columns/registry.h"
#include "report/describe_table.h"

namespace korv {

namespace {

TableDescription AboutRun(const ShownResult& result, const ExportRequest& request,
                          const ExportServices& services) {
  const RunSummary& facts = result.Run.Facts;
  std::vector<std::string> paths;
  for (const SourcePath& source : facts.Paths) paths.push_back(source.Path);
  if (paths.empty()) paths.push_back(facts.InputPath.empty() ? "-" : facts.InputPath);
  TableDescription about{.Version = std::string(ProgramVersion()),
                         .Created = FormatUtc(services.Clock.WallTime()),
                         .Paths = std::move(paths),
                         .ComparedBy = request.ComparedBy,
                         .SimpleMathsK = result.Run.Comparison.SimpleMathsK,
                         .Numbers = services.Numbers,
                         // Who chooses rows wants them all.
                         .AllRows = true};
  if (!result.Chosen) return about;
  Settings settings = result.Chosen->Chosen;
  // Of several sources none is the folder.
  if (!facts.Paths.empty()) settings.Folder.clear();
  // Those of single words and of comparisons are their own.
  settings.MinWords = facts.Options.MinWords;
  settings.MaxWords = facts.Options.MaxWords;
  settings.MinFrequency = facts.Options.MinFrequency;
  about.Settings = SettingValues(settings);
  return about;
}

}  // namespace

std::vector<const Column*> ColumnsOfExport(const RunSummary& facts) {
  return TableColumns(facts.SecondSide ? TableOf::TwoSides : TableOf::OneSide);
}

FileListResult ExportRun(ShownResult& result, const ExportRequest& request, const std::filesystem::path& path,
                         const ExportServices& services) {
  CountedRun& run = result.Run;
  FileListResult written;
  written.List.Outcome = ListOutcome::Stopped;
  if (IsSource(path, run.Table.Corpus(), services.Files)) {
    services.Dialogs.Show(
        {.Text = Tr("This file is one of those that were counted. Please choose another one."),
         .Title = Tr("Export"),
         .Icon = Icon::Exclamation,
         .Addition = PathToText(path)});
    written.List.Outcome = ListOutcome::SinkFull;
    return written;
  }
  // Filters of the report are no matter of the table.
  ReportOptions options = result.Listing.Options;
  options.FilterActive = false;
  if (!SetUpChainFor(run, options, services.Yielder)) return written;
  Report report{run.Table,
                run.Facts,
                options,
                services.Numbers,
                request.Parts,
                request.ComparedBy,
                run.Comparison.SimpleMathsK};
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
                 .Columns = request.Columns.empty() ? ColumnsOfExport(run.Facts) : request.Columns,
                 .About = AboutRun(result, request, services)},
       .DescribeTo = request.Described ? DescriptionPath(path, services.Files) : std::filesystem::path()},
      services.Yielder);
}

}  // namespace korv
