#include "report/writers/sqlite_writer.h"

#include <string>
#include <string_view>
#include <utility>

#include "engine/corpus/corpus.h"

namespace korv {

namespace {

const char* NameOf(ColumnType type) {
  switch (type) {
    case ColumnType::Integer:
      return "INTEGER";
    case ColumnType::Real:
      return "REAL";
    case ColumnType::Text:
      break;
  }
  return "TEXT";
}

/// Rows of the table "run".
class RunRows {
 public:
  explicit RunRows(SqliteFile& file) : rows_(file.RowsOf("run", 2)) {}

  void Put(std::string_view key, const Cell& value) {
    rows_.Bind(0, key);
    rows_.Bind(1, value);
    rows_.Put();
  }
  void Put(std::string_view key, std::string_view text) { Put(key, Cell(text)); }
  void Put(std::string_view key, uint64_t number) { Put(key, Cell(static_cast<int64_t>(number))); }
  void Put(std::string_view key, const TableDescription::Value& value) {
    if (const auto* text = std::get_if<std::string>(&value))
      Put(key, std::string_view(*text));
    else if (const auto* flag = std::get_if<bool>(&value))
      Put(key, uint64_t{*flag});
    else
      Put(key, Cell(std::get<int64_t>(value)));
  }

 private:
  SqliteFile::Rows rows_;
};

}  // namespace

SqliteWriter::SqliteWriter(ReportSink& sink, TableDescription about, FileSystem& files)
    : sink_(sink), about_(std::move(about)), file_(files) {
  if (!file_.Fault()) database_.emplace(file_.Path());
}

void SqliteWriter::Begin(std::span<const Column* const> columns, const ColumnSource& source) {
  if (!database_) return;
  WriteColumns(columns);
  WriteRun(source);
  WriteFiles(source);
  std::string made = "CREATE TABLE phrases (";
  for (size_t k = 0; k < columns.size(); ++k)
    made += (k == 0 ? "" : ", ") + SqliteName(columns[k]->Id) + " " + NameOf(columns[k]->Type);
  database_->Run(made + ")");
  rows_.emplace(database_->RowsOf("phrases", columns.size()));
}

bool SqliteWriter::Row(const RowCells& cells) {
  if (!database_) return false;
  for (size_t k = 0; k < cells.OfPhrase.size(); ++k) rows_->Bind(static_cast<int>(k), cells.OfPhrase[k]);
  rows_->Put();
  return !Fault();
}

bool SqliteWriter::End(bool stopped) {
  if (!database_) return false;
  rows_.reset();
  // A part must not pass for the whole.
  if (stopped) RunRows(*database_).Put("stopped", uint64_t{1});
  database_->Close();
  return !Fault() && file_.HandOver(sink_);
}

std::optional<FileError> SqliteWriter::Fault() const {
  return database_ && database_->Fault() ? database_->Fault() : file_.Fault();
}

void SqliteWriter::WriteColumns(std::span<const Column* const> columns) {
  database_->Run("CREATE TABLE columns (name TEXT, title TEXT, description TEXT, formula TEXT)");
  SqliteFile::Rows rows = database_->RowsOf("columns", 4);
  for (const Column* column : columns) {
    rows.Bind(0, column->Id);
    rows.Bind(1, column->Heading);
    rows.Bind(2, column->Definition);
    rows.Bind(3, column->Formula.empty() ? Cell() : Cell(column->Formula));
    rows.Put();
  }
}

void SqliteWriter::WriteRun(const ColumnSource& source) {
  database_->Run("CREATE TABLE run (\"key\" TEXT, value)");
  RunRows rows(*database_);
  rows.Put("version", std::string_view(about_.Version));
  rows.Put("created", std::string_view(about_.Created));
  if (!about_.Command.empty()) rows.Put("command", std::string_view(about_.Command));
  for (const std::string& path : about_.Paths) rows.Put("path", std::string_view(path));
  const RunSummary& facts = source.Facts;
  if (facts.SecondSide) {
    for (const SourcePath& path : facts.SecondSide->Paths)
      rows.Put("compared_with", std::string_view(path.Path));
    rows.Put("compared_by", NameOfBasis(about_.ComparedBy));
    rows.Put("simple_maths_k", Cell(about_.SimpleMathsK));
    for (const auto& [side, letter] : {std::pair{Side::A, "_a"}, std::pair{Side::B, "_b"}}) {
      const SideSize size = SizeOf(facts, side);
      rows.Put(std::string("files") + letter, size.Files);
      rows.Put(std::string("words") + letter, size.Words.Read());
      rows.Put(std::string("words_taken") + letter, size.Words.Taken);
    }
  } else if (facts.Counts) {
    rows.Put("counts", facts.Counts->Counts);
  } else {
    rows.Put("files", FilesRead(facts));
    rows.Put("words", facts.Words.Read());
    rows.Put("words_taken", facts.Words.Taken);
  }
  for (const SkippedFile& file : facts.SkippedFiles)
    rows.Put("skipped", std::string_view(file.Path + " " + file.Reason));
  for (const auto& [name, value] : about_.Settings) rows.Put(name, value);
}

void SqliteWriter::WriteFiles(const ColumnSource& source) {
  database_->Run("CREATE TABLE files (number INTEGER PRIMARY KEY, path TEXT, words INTEGER)");
  SqliteFile::Rows rows = database_->RowsOf("files", 3);
  const std::vector<CorpusSource>& sources = source.Table.Corpus().Sources;
  for (size_t s = 0; s < sources.size(); ++s) {
    const uint64_t end = s + 1 < sources.size() ? sources[s + 1].WordsBefore : source.Facts.Words.Taken;
    const std::string path = sources[s].Path.empty() ? "-" : PathToText(sources[s].Path);
    rows.Bind(0, Cell(static_cast<int64_t>(s) + 1));
    rows.Bind(1, std::string_view(path));
    rows.Bind(2, Cell(static_cast<int64_t>(end - sources[s].WordsBefore)));
    rows.Put();
  }
}

}  // namespace korv
