#include "report/writers/table_forms.h"

#include <algorithm>

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

std::unique_ptr<ListWriter> MakeSpreadsheetCsv(ReportSink& sink, const TableDescription& about, FileSystem*) {
  const bool comma = about.Numbers.DecimalPoint == ",";
  return std::make_unique<CsvWriter>(
      sink,
      CsvStyle{.Separator = comma ? ';' : ',', .DecimalPoint = comma ? ',' : '.', .ForSpreadsheets = true});
}

constexpr TableForm kTableForms[] = {
    {"tsv", "tsv", {}, "Tab-separated values", Make<TsvWriter>},
    {"csv", "csv", {}, "Comma-separated values", Make<CsvWriter>},
    {"json", "json", {}, "JSON", MakeDescribed<JsonWriter>},
    {"ndjson", "ndjson", "jsonl", "JSON lines", Make<NdjsonWriter>},
    {"xlsx", "xlsx", {}, "Excel workbook", kMakeWorkbook, true},
    {"html", "html", {}, "Web page", MakeDescribed<HtmlWriter>},
    {"md", "md", {}, "Markdown", MakeDescribed<MarkdownWriter>},
    {"sqlite", "sqlite", {}, "SQLite database", kMakeDatabase, true},
};

constexpr TableForm kSpreadsheetCsv = {"csv", "csv", {}, "CSV for spreadsheets", MakeSpreadsheetCsv};

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
