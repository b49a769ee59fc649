#include "base/translation.h"
#include "engine/corpus/corpus.h"
#include "report/columns/registry.h"

// In how many of the files a phrase occurs, and where. A single file and the clipboard are one file.

namespace korv {

namespace {

constexpr Column kFileColumns[] = {
    {.Id = "files",
     .Heading = TrLater("Files"),
     .Type = ColumnType::Integer,
     .Unit = "files",
     .Definition = TrLater("The number of files in which the phrase occurs at least once."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       if (source.Facts.Counts) return {};
       return int64_t{phrase.FileCount};
     },
     .NeedsFileCount = true},
    {.Id = "files_percent",
     .Heading = TrLater("Files %"),
     .Type = ColumnType::Real,
     .Unit = kPercentUnit,
     .Definition =
         TrLater("100 * the number of files in which the phrase occurs / the number of files with at least "
                 "one word that went into phrases."),
     .Formula = TrLater("100 * files / files with words"),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       if (source.FilesWithWords == 0) return {};
       return 100.0 * phrase.FileCount / static_cast<double>(source.FilesWithWords);
     },
     .NeedsFileCount = true,
     .Decimals = 2},
    {.Id = "first_file",
     .Heading = TrLater("First file"),
     .Type = ColumnType::Text,
     .Align = Alignment::Left,
     .Definition =
         TrLater("The path of the file with the earliest occurrence, files in the order in which they were "
                 "read; \"-\" for a text that came from no file."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       if (source.SourcePaths.empty()) return {};
       const std::string& path =
           source.SourcePaths[source.Table.Corpus().SourceAt(source.Table.First(phrase.Entry))];
       return path.empty() ? std::string_view("-") : std::string_view(path);
     },
     // In reading order.
     .OrderKey = [](const ColumnSource& source, PhraseIndex entry) -> double {
       return ValueOf(source.Table.First(entry));
     },
     .NeedsSourcePaths = true},
    {.Id = "first_line",
     .Heading = TrLater("First line"),
     .Type = ColumnType::Integer,
     .Definition =
         TrLater("The number of the line of the earliest occurrence in its file, the first line being 1; in "
                 "a document, in the text that was extracted from it."),
     .Value = [](const ColumnSource& source, const ListedPhrase& phrase) -> Cell {
       const uint32_t line = source.Table.Corpus().Lines.LineNumber(source.Table.First(phrase.Entry));
       return line == 0 ? Cell() : Cell(int64_t{line});
     },
     .NeedsPlaces = true},
};

}  // namespace

std::span<const Column> FileColumns() {
  return kFileColumns;
}

}  // namespace korv
