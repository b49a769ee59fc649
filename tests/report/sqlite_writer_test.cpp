#include "report/writers/sqlite_writer.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "tests/fakes/fake_files.h"
#include "tests/report/read_book.h"
#include "tests/report/written_table.h"

namespace korv {
namespace {

/// A database read back: each row in one line, "|" between its values, NULL for what is not there.
class Database {
 public:
  explicit Database(const std::string& bytes) {
    sqlite3_open(":memory:", &database_);
    auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(bytes.size()));
    std::copy(bytes.begin(), bytes.end(), copy);
    const auto size = static_cast<sqlite3_int64>(bytes.size());
    EXPECT_EQ(sqlite3_deserialize(database_, "main", copy, size, size, SQLITE_DESERIALIZE_FREEONCLOSE),
              SQLITE_OK);
  }
  ~Database() { sqlite3_close(database_); }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  std::string Ask(const std::string& query) const {
    std::string lines;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database_, query.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database_);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (int k = 0; k < sqlite3_column_count(statement); ++k) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, k));
        lines += (k == 0 ? "" : "|") + (text == nullptr ? std::string("NULL") : std::string(text));
      }
      lines += '\n';
    }
    sqlite3_finalize(statement);
    return lines;
  }

 private:
  sqlite3* database_ = nullptr;
};

class SqliteWriterTest : public testing::Test {
 protected:
  std::string Written(std::initializer_list<const char*> ids, const Rows& rows, const RunSummary& facts = {},
                      bool stopped = false) {
    return WrittenTable(TableFormOf("sqlite"), ids, rows, about, facts, stopped, files.get());
  }

  const std::unique_ptr<FileSystem> files = MakeSystemFiles();
  TableDescription about{
      .Version = "1.2",
      .Created = "2026-11-22T09:30:00Z",
      .Command = "korv-count /t",
      .Settings = {{"MinWords", int64_t{2}}, {"CaseSignificant", true}, {"Filter", "a \"b\""}},
      .Paths = {"/t", "/u"}};
};

TEST_F(SqliteWriterTest, PhrasesHaveTheirColumnsWithTheirTypes) {
  const Database database(
      Written({"rank", "phrase", "mi"}, {{int64_t{1}, std::string_view("it's \"=1+2\""), 1.0 / 3},
                                         {int64_t{2}, std::string_view(""), Cell()},
                                         {Cell(), std::string_view("a\xFF"), -1e300}}));
  EXPECT_EQ(database.Ask("SELECT * FROM phrases"),
            "1|it's \"=1+2\"|0.333333333333333\n2||NULL\nNULL|a\uFFFD|-1.0e+300\n");
  EXPECT_EQ(database.Ask("SELECT typeof(rank), typeof(phrase), typeof(mi) FROM phrases LIMIT 1"),
            "integer|text|real\n");
  EXPECT_EQ(database.Ask("SELECT mi = 1.0 / 3 FROM phrases LIMIT 1"), "1\n") << "numbers are not rounded";
  EXPECT_EQ(database.Ask("SELECT name, type FROM pragma_table_info('phrases')"),
            "rank|INTEGER\nphrase|TEXT\nmi|REAL\n");
  EXPECT_EQ(database.Ask("PRAGMA integrity_check"), "ok\n");
}

TEST_F(SqliteWriterTest, ColumnsSayWhatTheyMean) {
  const Database database(Written({"frequency", "phrase"}, {}));
  EXPECT_EQ(database.Ask("SELECT name, title, description, formula FROM columns WHERE name = 'frequency'"),
            "frequency|Freq|f, the number of times that the phrase occurs.|f\n");
  EXPECT_EQ(database.Ask("SELECT formula FROM columns WHERE name = 'phrase'"), "NULL\n");
  EXPECT_EQ(database.Ask("SELECT count(*) FROM phrases"), "0\n");
}

TEST_F(SqliteWriterTest, TheRunTellsWhatItWasOf) {
  RunSummary facts;
  facts.Options.SourceKind = TextSource::Folder;
  facts.FilesScanned = 2;
  facts.Words.Taken = 90;
  facts.Words.DroppedBy[0] = 10;
  facts.SkippedFiles = {{"/t/x.bin", "is binary"}};
  const std::string run =
      "version|1.2\ncreated|2026-11-22T09:30:00Z\ncommand|korv-count "
      "/t\npath|/t\npath|/u\nfiles|2\nwords|100\n"
      "words_taken|90\nskipped|/t/x.bin is binary\nMinWords|2\nCaseSignificant|1\nFilter|a \"b\"\n";
  EXPECT_EQ(Database(Written({"rank"}, {}, facts)).Ask("SELECT * FROM run"), run);
  EXPECT_EQ(Database(Written({"rank"}, {}, facts, true)).Ask("SELECT * FROM run"), run + "stopped|1\n");
  about.Command.clear();
  EXPECT_EQ(Database(Written({"rank"}, {}, facts)).Ask("SELECT * FROM run WHERE \"key\" = 'command'"), "");
}

TEST_F(SqliteWriterTest, FilesHaveTheWordsThatWereTaken) {
  ReportWorld world;
  world.BeginFile("/t/a.txt");
  world.Say("the cat", 3);
  world.BeginFile("/t/b.txt");
  world.BeginFile({});
  world.Say("a dog now");
  world.Finish();
  world.Facts.Words.Taken = 9;
  StringSink sink;
  NoYielder yielder;
  const ListResult result = ListWords(
      world.View(),
      {.Table = {.Form = &TableFormOf("sqlite"), .Columns = {FindColumn("phrase")}}, .Files = files.get()},
      sink, yielder);
  EXPECT_EQ(result.Outcome, ListOutcome::Listed);
  EXPECT_FALSE(result.Fault);
  const Database database(sink.Text);
  EXPECT_EQ(database.Ask("SELECT * FROM files"), "1|/t/a.txt|6\n2|/t/b.txt|0\n3|-|3\n");
  EXPECT_EQ(database.Ask("SELECT phrase FROM phrases"), "the cat\na dog now\n");
}

TEST_F(SqliteWriterTest, WhatCannotBeWrittenIsAFault) {
  FakeFiles nowhere;  // Its folders are none that the library could write to.
  ExpectFault(TableFormOf("sqlite"), nowhere, FileFault::Other);
  nowhere.Refuse("/tmp", FileFault::PermissionDenied);
  ExpectFault(TableFormOf("sqlite"), nowhere, FileFault::PermissionDenied);
}

}  // namespace
}  // namespace korv
