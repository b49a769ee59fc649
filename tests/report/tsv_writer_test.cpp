#include "report/writers/tsv_writer.h"

#include <gtest/gtest.h>

#include "report/columns/registry.h"
#include "report/writers/table_forms.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

std::string Table(std::initializer_list<const char*> ids, std::initializer_list<std::vector<Cell>> rows) {
  std::vector<const Column*> columns;
  for (const char* id : ids) columns.push_back(FindColumn(id));
  const PhraseTable table;
  const RunSummary facts;
  StringSink sink;
  sink.Piece = 1 << 20;
  TsvWriter writer(sink);
  writer.Begin(columns, ColumnSource{table, facts});
  for (const std::vector<Cell>& row : rows) EXPECT_TRUE(writer.Row({row, {}}));
  EXPECT_TRUE(writer.End(false));
  return sink.Text;
}

TEST(TsvWriter, HeadingIsTheNamesForMachinesAndStandsAlone) {
  EXPECT_EQ(Table({"rank", "phrase", "per_million"}, {}), "rank\tphrase\tper_million\n");
}

struct CellCase {
  korv::Cell Cell;
  const char* Text;
};

TEST(TsvWriter, CellsAreWrittenForMachines) {
  const CellCase cases[] = {
      {Cell(), ""},
      {std::string_view("côté d'or"), "côté d'or"},
      {std::string_view("say \"a, b\""), "say \"a, b\""},
      {std::string_view("a\tb\rc\nd\r\ne\n\nf"), "a b c d e  f"},
      {std::string_view("\t"), " "},
      {int64_t{0}, "0"},
      {int64_t{1234567}, "1234567"},
      {100.0, "100"},
      {0.5, "0.5"},
      {100.0 / 3, "33.3333333"},
      {1e6 * 2 / 3, "666666.667"},
      {1234567890.123, "1.23456789e+09"},
      {0.00001234, "1.234e-05"},
  };
  for (const CellCase& c : cases)
    EXPECT_EQ(Table({"rank", "words"}, {{int64_t{1}, c.Cell}}),
              std::string("rank\twords\n1\t") + c.Text + "\n");
}

TEST(TsvWriter, ARefusedPieceIsTold) {
  StringSink sink;
  sink.Takes = 0;
  TsvWriter writer(sink);
  const PhraseTable table;
  const RunSummary facts;
  const Column* columns[] = {FindColumn("rank")};
  writer.Begin(columns, ColumnSource{table, facts});
  const Cell cells[] = {int64_t{1}};
  EXPECT_FALSE(writer.Row({cells, {}}));
}

ReportWorld World() {
  ReportWorld world = ReportWorld::Of({{"the cat", 3}, {"a dog now", 1}});
  world.Facts.Words.Taken = 8;
  return world;
}

std::string Listed(const ReportWorld& world) {
  return TextOf(world.View(), {.LineLayout = Layout::Tabs, .File = true, .Table = &TableForms().front()});
}

TEST(Tables, AreTheDefaultColumnsWhateverTheFormat) {
  ReportWorld world = World();
  world.Options = {.DisplayFormat = 9, .RelativeFrequency = true};
  EXPECT_EQ(Listed(world),
            "rank\tphrase\tfrequency\tper_million\twords\tcharacters\tfiles\tfirst_file\n"
            "1\tthe cat\t3\t375000\t2\t7\t1\t-\n"
            "2\ta dog now\t1\t125000\t3\t9\t1\t-\n");
}

TEST(Tables, FollowOrderAndFilterWithoutANotice) {
  ReportWorld world = World();
  world.Options.WordOrder = kAlphabetical;
  EXPECT_NE(Listed(world).find("first_file\n2\ta dog now"), std::string::npos);
  world.Options.FilterActive = true;
  world.Options.FilterText = "cat";
  EXPECT_NE(Listed(world).find("first_file\n1\tthe cat"), std::string::npos);
  EXPECT_EQ(Listed(world).find("dog"), std::string::npos);
  world.Options.FilterText = "mouse";
  EXPECT_TRUE(Listed(world).ends_with("\tfirst_file\n"));
}

TEST(Tables, OfNothingAreTheHeading) {
  EXPECT_EQ(Listed(ReportWorld()),
            "rank\tphrase\tfrequency\tper_million\twords\tcharacters\tfiles\tfirst_file\n");
}

TEST(TableForms, AreFoundByExtension) {
  const TableForm& tsv = TableForms().front();
  ASSERT_EQ(tsv.Name, "tsv");
  for (const char* path : {"a.tsv", "/b.c/a.TSV", "a.txt.tsv"})
    EXPECT_EQ(TableFormOfFile(path), &tsv) << path;
  for (const char* path : {"a.txt", "tsv", "a.tsv/b", "a.tsv.bak", ".tsv", ""})
    EXPECT_EQ(TableFormOfFile(path), nullptr) << path;
}

}  // namespace
}  // namespace korv
