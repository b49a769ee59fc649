#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "report/writers/list_writer.h"
#include "report/writers/sheet_text.h"
#include "report/writers/table_description.h"
#include "report/writers/table_facts.h"
#include "report/writers/table_file.h"
#include "report/writers/xlsx_book.h"

namespace korv {

/// What a sheet of a workbook holds at most.
struct SheetLimits {
  uint32_t Rows = 1048576;  ///< With the heading.
  size_t Characters = kMostInCell;
};

/// A workbook for spreadsheets: the phrases in the sheet "Phrases", and "Phrases 2" and so on where one is
/// full, each with a heading that stays in sight and filters; the sheet "About" says how the list came about
/// and what the columns mean. Texts are texts whatever they look like; a value that is not defined is an
/// empty cell, and a text that is longer than a cell can be ends with "…".
///
/// It is made in temporary files, of some 450 MB for a million phrases with all usual columns, and goes to
/// the sink in End(), which takes most of the time, some seconds for a million, and cannot be stopped. After
/// a stop there is no workbook.
class XlsxWriter final : public ListWriter {
 public:
  /// `about` is copied; the others outlive this.
  XlsxWriter(ReportSink& sink, TableDescription about, FileSystem& files, const SheetLimits& limits = {});

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  bool End(bool stopped) override;
  std::optional<FileError> Fault() const override;

 private:
  void BeginSheet();
  void EndSheet();
  void Put(int column, const Cell& cell);
  /// The next row of the sheet "About"; a long value goes on in rows without a name.
  void Tell(const std::string& name, std::string_view value);
  void WriteAbout();

  ReportSink& sink_;
  TableDescription about_;
  SheetLimits limits_;
  FileSystem& files_;
  TableFile file_;
  std::optional<XlsxBook> book_;  ///< Where there is a file for it.
  std::vector<const Column*> columns_;
  std::vector<TableFact> facts_;
  int sheets_ = 0;
  uint32_t row_ = 0;  ///< The next one of the sheet.
};

}  // namespace korv
