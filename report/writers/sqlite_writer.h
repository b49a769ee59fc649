#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "report/writers/list_writer.h"
#include "report/writers/sqlite_file.h"
#include "report/writers/table_description.h"
#include "report/writers/table_file.h"

namespace korv {

/// A database of SQLite with four tables: "phrases", a row each with the columns' Ids as names; "columns",
/// what they mean; "run", keys and values that say how the list came about, a key several times where there
/// is more than one; "files", those that were counted with the words that were taken of each. Values that are
/// not defined are NULL, numbers are not rounded.
///
/// It is made in a temporary file of its size and goes to the sink in End().
class SqliteWriter final : public ListWriter {
 public:
  /// `about` is copied; the others outlive this.
  SqliteWriter(ReportSink& sink, TableDescription about, FileSystem& files);

  void Begin(std::span<const Column* const> columns, const ColumnSource& source) override;
  bool Row(const RowCells& cells) override;
  bool End(bool stopped) override;
  std::optional<FileError> Fault() const override;

 private:
  void WriteColumns(std::span<const Column* const> columns);
  void WriteRun(const ColumnSource& source);
  void WriteFiles(const ColumnSource& source);

  ReportSink& sink_;
  TableDescription about_;
  TableFile file_;
  std::optional<SqliteFile> database_;  ///< Where there is a file for it.
  std::optional<SqliteFile::Rows> rows_;
};

}  // namespace korv
