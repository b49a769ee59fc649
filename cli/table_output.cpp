#include "cli/table_output.h"

#include "app/settings/setting_values.h"
#include "app/texts/program_version.h"
#include "base/time_text.h"

namespace korv {

const TableForm* FormOf(const CountOptions& options, const std::string& outputPath) {
  if (options.Output.empty() && !outputPath.empty()) return nullptr;
  if (options.ForSpreadsheets) return &SpreadsheetCsv();
  if (options.OutputFormat) return *options.OutputFormat;
  const TableForm* const form = TableFormOfFile(PathFromText(outputPath));
  return form == nullptr && options.AsksForTable() ? &TableFormOf("tsv") : form;
}

namespace {

std::vector<std::string> SourcesOf(const Settings& settings, std::span<const SourcePath> together) {
  std::vector<std::string> paths;
  for (const SourcePath& source : together) paths.push_back(source.Path);
  if (!paths.empty()) return paths;
  switch (settings.SourceKind) {
    case TextSource::SingleFile:
      return {settings.InputFile};
    case TextSource::Folder:
      return {settings.Folder};
    case TextSource::Clipboard:
      break;
  }
  return {"-"};
}

}  // namespace

TableOutput TableOutputOf(const CountOptions& options, const Settings& settings,
                          std::span<const SourcePath> together, const std::string& outputPath,
                          const Clock& clock) {
  return {.Form = FormOf(options, outputPath),
          .Columns = options.Columns,
          .About = {.Version = std::string(ProgramVersion()),
                    .Created = FormatUtc(clock.WallTime()),
                    .Command = options.Command,
                    .Settings = SettingValues(settings),
                    .Paths = SourcesOf(settings, together),
                    .ComparedBy = options.Comparison.By.value_or(ComparisonBasis::Words),
                    .SimpleMathsK = options.Comparison.SimpleMathsK.value_or(1),
                    .Numbers = options.Numbers,
                    .AllRows = options.Top.has_value()}};
}

}  // namespace korv
