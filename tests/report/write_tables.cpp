// Writes one table in all forms, for programs that read them back:
//     korv_written_tables TEXTS FOLDER
// Each line of TEXTS is a cell, with \t, \r, \n and \\ in it. Further ones are as long as a cell of a
// workbook can be, and longer. The columns are rank, phrase, mi and first_file; rank counts from 1.
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "tests/platform/temporary_folder.h"
#include "tests/report/report_world.h"
#include "tests/report/written_table.h"
#ifdef KORV_XLSX
#include "report/writers/xlsx_writer.h"
#endif

namespace korv {
namespace {

std::string Unescaped(const std::string& line) {
  std::string text;
  for (size_t k = 0; k < line.size(); ++k) {
    if (line[k] != '\\') {
      text += line[k];
      continue;
    }
    const char c = line.at(++k);
    text += c == 't' ? '\t' : c == 'r' ? '\r' : c == 'n' ? '\n' : c;
  }
  return text;
}

std::vector<std::string> Texts(const char* path) {
  std::vector<std::string> texts;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) texts.push_back(Unescaped(line));
  texts.emplace_back(32767, 'a');
  texts.emplace_back(32768, 'b');
  return texts;
}

Rows RowsOf(const std::vector<std::string>& texts) {
  const Cell values[] = {1.0 / 3, 0.00001, Cell(), -0.5, 123456789.125, 1e300};
  Rows rows;
  for (size_t k = 0; k < texts.size(); ++k)
    rows.push_back({static_cast<int64_t>(k) + 1, std::string_view(texts[k]), values[k % std::size(values)],
                    std::string_view(texts[texts.size() - 1 - k])});
  return rows;
}

int WriteAll(const char* texts, const std::filesystem::path& folder) {
  const std::vector<std::string> cells = Texts(texts);
  const Rows rows = RowsOf(cells);
  const std::initializer_list<const char*> ids = {"rank", "phrase", "mi", "first_file"};
  const auto files = MakeSystemFiles();
  const TableDescription about{
      .Version = "1.2", .Created = "2026-11-22T09:30:00Z", .Paths = {"/t"}, .AllRows = true};
  const auto write = [&](const TableForm& form, const std::string& name, const TableDescription& told) {
    WriteTestFile(folder / (name + "." + std::string(form.Extension)),
                  WrittenTable(form, ids, rows, told, {}, false, files.get()));
  };
  for (const TableForm& form : TableForms())
    if (form.Make != nullptr) write(form, "table", about);
  write(SpreadsheetCsv(), "spreadsheet", about);
  TableDescription german = about;
  german.Numbers = {.DecimalPoint = ",", .GroupSeparator = "."};
  write(SpreadsheetCsv(), "german", german);
#ifdef KORV_XLSX
  StringSink sink;
  XlsxWriter writer(sink, about, *files, {.Rows = 5});
  WriteTable(writer, ids, rows, {}, false);
  WriteTestFile(folder / "sheets.xlsx", sink.Text);
#endif
  return testing::Test::HasFailure() ? 1 : 0;
}

}  // namespace
}  // namespace korv

int main(int count, char** arguments) {
  testing::InitGoogleTest();
  if (count != 3) {
    std::cerr << "korv_written_tables TEXTS FOLDER\n";
    return 2;
  }
  return korv::WriteAll(arguments[1], arguments[2]);
}
