#include "report/writers/sqlite_file.h"

#include <sqlite3.h>

#include "base/utf8.h"

namespace korv {

void SqliteFile::Shut::operator()(sqlite3* database) const {
  sqlite3_close_v2(database);
}

void SqliteFile::Rows::Free::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SqliteFile::SqliteFile(const std::filesystem::path& path) {
  // The system's own bytes; UTF-8 on Windows.
  const std::u8string name = path.u8string();
  sqlite3* database = nullptr;
  const int result = sqlite3_open_v2(reinterpret_cast<const char*>(name.c_str()), &database,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  database_.reset(database);
  Check(result);
  // Nobody else sees the file before it is complete, and a failure throws it away.
  Run("PRAGMA journal_mode = OFF");
  Run("PRAGMA synchronous = OFF");
  Run("BEGIN");
}

SqliteFile::~SqliteFile() = default;

void SqliteFile::Run(const std::string& statement) {
  if (!fault_) Check(sqlite3_exec(database_.get(), statement.c_str(), nullptr, nullptr, nullptr));
}

SqliteFile::Rows SqliteFile::RowsOf(const std::string& table, size_t columns) {
  std::string text = "INSERT INTO " + SqliteName(table) + " VALUES (";
  for (size_t k = 0; k < columns; ++k) text += k == 0 ? "?" : ", ?";
  text += ")";
  sqlite3_stmt* statement = nullptr;
  if (!fault_) Check(sqlite3_prepare_v2(database_.get(), text.c_str(), -1, &statement, nullptr));
  return {*this, statement};
}

void SqliteFile::Close() {
  Run("COMMIT");
  database_.reset();
}

void SqliteFile::Check(int result) {
  if (fault_ || result == SQLITE_OK || result == SQLITE_DONE) return;
  fault_ = FileError{result == SQLITE_FULL ? FileFault::NoSpace : FileFault::Other, sqlite3_errstr(result)};
}

void SqliteFile::Rows::Bind(int column, const Cell& cell) {
  if (file_.fault_) return;
  sqlite3_stmt* const statement = statement_.get();
  const int place = column + 1;
  if (const auto* text = std::get_if<std::string_view>(&cell)) {
    // A file's name need not be text.
    const std::string mended = MendedUtf8(*text);
    file_.Check(
        sqlite3_bind_text64(statement, place, mended.data(), mended.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
  } else if (const auto* whole = std::get_if<int64_t>(&cell)) {
    file_.Check(sqlite3_bind_int64(statement, place, *whole));
  } else if (const auto* real = std::get_if<double>(&cell)) {
    file_.Check(sqlite3_bind_double(statement, place, *real));
  } else {
    file_.Check(sqlite3_bind_null(statement, place));
  }
}

void SqliteFile::Rows::Put() {
  if (file_.fault_) return;
  file_.Check(sqlite3_step(statement_.get()));
  file_.Check(sqlite3_reset(statement_.get()));
}

std::string SqliteName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace korv
