#include "report/columns/registry.h"

#include "base/translation.h"

// Columns that only the thirteen formats of the report have. Their numbers of files stop at
// DocumentCounts::kMostFiles. Their percentages have other denominators than those of the columns for tables.

namespace korv {

namespace {

/// In doubles, count first: the order of the operations decides the last digit of a tie.
double Percentage(uint64_t count, uint64_t whole) {
  return whole == 0 ? 0.0 : static_cast<double>(count) * 100.0 / static_cast<double>(whole);
}

constexpr Column kReportColumns[] = {
    {.Id = "report_rank",
     .Heading = TrLater("Rank"),
     .Type = ColumnType::Integer,
     .Definition =
         TrLater("The place of the phrase in the order that the ranks of the report go by: by frequency, or "
                 "by number of files where the report is sorted so."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return int64_t{ValueOf(source.Table.ChainPosition(phrase.Entry))};
     },
     .Greatest = [](const ColumnSource& source) -> Cell { return int64_t{source.Extent.Phrases}; }},
    {.Id = "relative_frequency",
     .Heading = TrLater("Rel freq"),
     .Type = ColumnType::Real,
     .Unit = kPercentUnit,
     .Definition =
         TrLater("100 * f / T, where T is the number of occurrences of all phrases that were counted, "
                 "listed or not."),
     .Formula = "100 * f / T",
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       return Percentage(source.Table.Count(phrase.Entry), source.Table.Occurrences());
     },
     .Greatest = [](const ColumnSource& source) -> Cell {
       return Percentage(source.Extent.HighestCount, source.Table.Occurrences());
     },
     .Decimals = 2},
    {.Id = "report_files",
     .Heading = TrLater(" Files"),
     .Type = ColumnType::Integer,
     .Unit = "files",
     .Definition = TrLater("The number of files in which the phrase occurs, at most 10,000."),
     .Value = [](const ColumnSource&, const ListedPhrase& phrase) -> Cell {
       return static_cast<int64_t>(phrase.Files.size());
     },
     .NeedsFiles = true,
     .Width = 5},
    {.Id = "file_frequency",
     .Heading = TrLater("File freq"),
     .Type = ColumnType::Real,
     .Definition =
         TrLater("The number of files in which the phrase occurs (at most 10,000) / the number of files "
                 "scanned."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       if (source.Facts.FilesScanned == 0) return 0.0;
       // Single precision is part of the number's definition: it decides the third decimal of a tie.
       return static_cast<double>(static_cast<float>(phrase.Files.size()) /
                                  static_cast<float>(source.Facts.FilesScanned));
     },
     .NeedsFiles = true,
     .Decimals = 3,
     .Width = 14,
     .SharesCell = true},
    {.Id = "file_share",
     .Heading = TrLater("Share"),
     .Type = ColumnType::Real,
     .Unit = kPercentUnit,
     .Definition = TrLater("100 * the occurrences of the phrase in the file / f."),
     .ValueInFile = [](const ColumnSource& source, const ListedPhrase& phrase,
                       const DocumentCounts::Item& file) -> Cell {
       return Percentage(file.Count, source.Table.Count(phrase.Entry));
     },
     .NeedsFiles = true,
     .Decimals = 2,
     .Width = 7},
    {.Id = "file_relative_frequency",
     .Heading = TrLater("Rel freq"),
     .Type = ColumnType::Real,
     .Unit = kPercentUnit,
     .Definition =
         TrLater("100 * the occurrences of the phrase in the file / T, where T is the number of occurrences "
                 "of all phrases that were counted, listed or not."),
     .ValueInFile = [](const ColumnSource& source, const ListedPhrase&, const DocumentCounts::Item& file)
         -> Cell { return Percentage(file.Count, source.Table.Occurrences()); },
     .NeedsFiles = true,
     .Decimals = 2,
     .Width = 7},
    {.Id = "file_path",
     .Heading = TrLater("Files"),
     .Type = ColumnType::Text,
     .Align = Alignment::Left,
     .Definition = TrLater("The path of each file in which the phrase occurs, of the first 10,000."),
     .ValueInFile = [](const ColumnSource& source, const ListedPhrase&,
                       const DocumentCounts::Item& file) -> Cell {
       const size_t index = size_t{ValueOf(file.Document)} - 1;
       return index < source.FilePaths.size() ? std::string_view(source.FilePaths[index]) : "";
     },
     .NeedsFiles = true},
};

}  // namespace

std::span<const Column> ReportColumns() {
  return kReportColumns;
}

}  // namespace korv
