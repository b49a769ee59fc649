#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "report/columns/cell.h"

struct sqlite3;
struct sqlite3_stmt;

namespace korv {

/// A database in a file, written in one transaction. After a fault nothing more is written.
class SqliteFile {
 public:
  /// A statement that puts rows into one table. Each row has every value bound, by the numbers of the table's
  /// columns, counted from 0.
  class Rows {
   public:
    void Bind(int column, const Cell& cell);
    /// Puts the row that was bound.
    void Put();

   private:
    friend class SqliteFile;
    struct Free {
      void operator()(sqlite3_stmt* statement) const;
    };
    Rows(SqliteFile& file, sqlite3_stmt* statement) : file_(file), statement_(statement) {}

    SqliteFile& file_;
    std::unique_ptr<sqlite3_stmt, Free> statement_;
  };

  /// `path`: of an empty file or none.
  explicit SqliteFile(const std::filesystem::path& path);
  ~SqliteFile();
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;

  void Run(const std::string& statement);
  /// Into a table of so many columns. The file outlives it, and is closed after it.
  Rows RowsOf(const std::string& table, size_t columns);

  const std::optional<FileError>& Fault() const { return fault_; }
  /// Ends the transaction and closes the file. There are no Rows any more.
  void Close();

 private:
  struct Shut {
    void operator()(sqlite3* database) const;
  };

  void Check(int result);

  std::unique_ptr<sqlite3, Shut> database_;
  std::optional<FileError> fault_;
};

/// A name as a part of statements.
std::string SqliteName(std::string_view name);

}  // namespace korv
