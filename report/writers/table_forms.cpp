#include "report/writers/table_forms.h"

#include <algorithm>

#include "base/translation.h"
#include "engine/text/unicode.h"
#include "platform/files.h"
#include "report/writers/csv_writer.h"
#include "report/writers/html_writer.h"
#include "report/writers/json_writer.h"
#include "report/writers/markdown_writer.h"
#ifdef KORV_SQLITE
#include "report/writers/sqlite_writer.h"
#endif
#include "report/writers/tsv_writer.h"
#ifdef KORV_XLSX
#include "report/writers/xlsx_writer.h"
#endif

namespace korv {

namespace {

template <typename Writer>
std::unique_ptr<ListWriter> Make(ReportSink& sink, const TableDescription&, FileSystem*) {
  return std::make_unique<Writer>(sink);
}

template <typename Writer>
std::unique_ptr<ListWriter> MakeDescribed(ReportSink& sink, const TableDescription& about, FileSystem*) {
  return std::make_unique<Writer>(sink, about);
}

template <typename Writer>
std::unique_ptr<ListWriter> MakeInFile(ReportSink& sink, const TableDescription& about, FileSystem* files) {
  return std::make_unique<Writer>(sink, about, *files);
}

#ifdef KORV_XLSX
constexpr auto kMakeWorkbook = MakeInFile<XlsxWriter>;
#else
constexpr auto kMakeWorkbook = nullptr;
#endif
#ifdef KORV_SQLITE
constexpr auto kMakeDatabase = MakeInFile<SqliteWriter>;
#else
constexpr auto kMakeDatabase = nullptr;
#endif

TableDialect DialectOfTsv(const TableDescription&) {
  return {.Delimiter = "\t", .LineEnd = "\n"};
}

TableDialect DialectOfCsv(const TableDescription&) {
  return {.Delimiter = ",", .LineEnd = "\r\n", .Quotes = true};
}

bool HasDecimalComma(const TableDescription& about) {
  return about.Numbers.DecimalPoint == ",";
}

TableDialect DialectOfSpreadsheetCsv(const TableDescription& about) {
  TableDialect dialect = DialectOfCsv(about);
  if (!HasDecimalComma(about)) return dialect;
  dialect.Delimiter = ";";
  dialect.DecimalPoint = ",";
  return dialect;
}

std::unique_ptr<ListWriter> MakeSpreadsheetCsv(ReportSink& sink, const TableDescription& about, FileSystem*) {
  const bool comma = HasDecimalComma(about);
  return std::make_unique<CsvWriter>(
      sink,
      CsvStyle{.Separator = comma ? ';' : ',', .DecimalPoint = comma ? ',' : '.', .ForSpreadsheets = true});
}

constexpr TableForm kTableForms[] = {
    {.Name = "tsv",
     .Extension = "tsv",
     .Title = TrLater("Tab-separated values"),
     .Make = Make<TsvWriter>,
     .MediaType = "text/tab-separated-values",
     .Tabular = true,
     .Dialect = DialectOfTsv},
    {.Name = "csv",
     .Extension = "csv",
     .Title = TrLater("Comma-separated values"),
     .Make = Make<CsvWriter>,
     .MediaType = "text/csv",
     .Tabular = true,
     .Dialect = DialectOfCsv},
    {.Name = "json",
     .Extension = "json",
     .Title = TrLater("JSON"),
     .Make = MakeDescribed<JsonWriter>,
     .MediaType = "application/json"},
    {.Name = "ndjson",
     .Extension = "ndjson",
     .OtherExtension = "jsonl",
     .Title = TrLater("JSON lines"),
     .Make = Make<NdjsonWriter>,
     .MediaType = "application/x-ndjson",
     .Tabular = true},
    {.Name = "xlsx",
     .Extension = "xlsx",
     .Title = TrLater("Excel workbook"),
     .Make = kMakeWorkbook,
     .Binary = true,
     .MediaType = "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet",
     .Tabular = true},
    {.Name = "html",
     .Extension = "html",
     .Title = TrLater("Web page"),
     .Make = MakeDescribed<HtmlWriter>,
     .MediaType = "text/html"},
    {.Name = "md",
     .Extension = "md",
     .Title = TrLater("Markdown"),
     .Make = MakeDescribed<MarkdownWriter>,
     .MediaType = "text/markdown"},
    {.Name = "sqlite",
     .Extension = "sqlite",
     .Title = TrLater("SQLite database"),
     .Make = kMakeDatabase,
     .Binary = true,
     .MediaType = "application/vnd.sqlite3"},
};

constexpr TableForm kSpreadsheetCsv = {.Name = "csv",
                                       .Extension = "csv",
                                       .Title = TrLater("CSV for spreadsheets"),
                                       .Make = MakeSpreadsheetCsv,
                                       .MediaType = "text/csv",
                                       .Tabular = true,
                                       .Dialect = DialectOfSpreadsheetCsv};

}  // namespace

std::span<const TableForm> TableForms() {
  return kTableForms;
}

const TableForm& TableFormOf(std::string_view name) {
  return *std::ranges::find(kTableForms, name, &TableForm::Name);
}

const TableForm* TableFormOfFile(const std::filesystem::path& path) {
  const std::string extension = PathToText(path.extension());
  if (extension.size() < 2) return nullptr;
  const std::string name = LowerText(extension.substr(1));
  const auto* const found = std::ranges::find_if(kTableForms, [&](const TableForm& form) {
    return form.Extension == name || form.OtherExtension == name;
  });
  return found == std::end(kTableForms) ? nullptr : found;
}

const TableForm& SpreadsheetCsv() {
  return kSpreadsheetCsv;
}

}  // namespace korv
