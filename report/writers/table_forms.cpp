#include "report/writers/table_forms.h"

#include <algorithm>

#include "engine/text/unicode.h"
#include "platform/files.h"
#include "report/writers/csv_writer.h"
#include "report/writers/html_writer.h"
#include "report/writers/json_writer.h"
#include "report/writers/markdown_writer.h"
#include "report/writers/tsv_writer.h"

namespace korv {

namespace {

template <typename Writer>
std::unique_ptr<ListWriter> Make(ReportSink& sink, const TableDescription&) {
  return std::make_unique<Writer>(sink);
}

template <typename Writer>
std::unique_ptr<ListWriter> MakeDescribed(ReportSink& sink, const TableDescription& about) {
  return std::make_unique<Writer>(sink, about);
}

std::unique_ptr<ListWriter> MakeSpreadsheetCsv(ReportSink& sink, const TableDescription& about) {
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
    {"html", "html", {}, "Web page", MakeDescribed<HtmlWriter>},
    {"md", "md", {}, "Markdown", MakeDescribed<MarkdownWriter>},
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
