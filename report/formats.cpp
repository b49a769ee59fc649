#include "report/formats.h"

#include <algorithm>
#include <iterator>

#include "report/columns/registry.h"

namespace korv {

namespace {

constexpr Format kFormats[] = {
    {.Columns = {"report_rank", "frequency", "phrase"}, .TellsLongest = true},  // 0
    {.Columns = {"phrase", "report_rank", "frequency"}},
    {.Columns = {"report_rank", "frequency"}},
    {.Columns = {"report_rank", "phrase"}, .TellsLongest = true},
    {.Columns = {"frequency", "report_rank"}},
    {.Columns = {"frequency", "phrase"}, .TellsLongest = true},  // 5
    {.Columns = {"phrase", "report_rank"}},
    {.Columns = {"phrase", "frequency"}},
    {.Columns = {"phrase"}, .TellsLongest = true, .FlushLeft = true},
    {.Columns = {"phrase"}, .TellsLongest = true, .OneLine = true},
    {.Columns = {"phrase", "report_files", "file_frequency", "frequency"}, .NeedsFolder = true},  // 10
    {.Columns = {"phrase", "file_path"}, .NeedsFolder = true},
    {.Columns = {"phrase", "file_share", "file_path"},
     .NeedsFolder = true,
     .LinePerFile = true,
     .SortsByFiles = true},
};
static_assert(std::size(kFormats) == kDisplayFormats);

constexpr std::string_view kTableColumns[] = {"rank",          "phrase",     "frequency", "per_million",
                                              "words",         "characters", "files",     "dispersion",
                                              "net_frequency", "first_file", "first_line"};

/// What takes the place of a column where relative frequencies are asked for.
constexpr struct {
  std::string_view Absolute, Relative;
} kRelativeColumns[] = {{"frequency", "relative_frequency"}, {"file_share", "file_relative_frequency"}};

constexpr std::string_view kPaths = "file_path";
constexpr std::string_view kWhenSortedByFiles = "file_frequency";

std::string_view RelativeOf(std::string_view id) {
  for (const auto& column : kRelativeColumns)
    if (column.Absolute == id) return column.Relative;
  return id;
}

}  // namespace

const Format& FormatOf(int displayFormat) {
  return kFormats[std::clamp(displayFormat, 0, kDisplayFormats - 1)];
}

std::vector<const Column*> ColumnsOfFormat(const Format& format, const ReportOptions& options) {
  std::vector<const Column*> columns;
  for (const std::string_view id : format.Columns) {
    if (id.empty() || (id == kWhenSortedByFiles && !options.SortByNumberOfFiles)) continue;
    columns.push_back(FindColumn(options.RelativeFrequency ? RelativeOf(id) : id));
  }
  return columns;
}

std::vector<const Column*> ColumnsOf(const TableOutput& table) {
  if (!table.Columns.empty()) return table.Columns;
  std::vector<const Column*> columns;
  for (const std::string_view id : kTableColumns) columns.push_back(FindColumn(id));
  return columns;
}

bool ShowsFrequencies(const Format& format) {
  return std::ranges::any_of(format.Columns, [](std::string_view id) { return RelativeOf(id) != id; });
}

bool ShowsPaths(const Format& format) {
  return std::ranges::find(format.Columns, kPaths) != format.Columns.end();
}

}  // namespace korv
