#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "report/columns/registry.h"
#include "report/list_source.h"
#include "report/row_builder.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

TEST(Columns, HaveNamesOfTheirOwn) {
  std::set<std::string_view> ids;
  for (const Column* column : AllColumns()) {
    EXPECT_TRUE(ids.insert(column->Id).second) << column->Id;
    EXPECT_EQ(column->Id.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789_"), std::string_view::npos)
        << column->Id;
    EXPECT_EQ(FindColumn(column->Id), column) << column->Id;
  }
  EXPECT_EQ(FindColumn("no_such_column"), nullptr);
  EXPECT_EQ(FindColumn(""), nullptr);
}

TEST(Columns, SayWhatTheyMean) {
  for (const Column* column : AllColumns()) {
    EXPECT_FALSE(column->Heading.empty()) << column->Id;
    EXPECT_TRUE(column->Definition.ends_with('.')) << column->Id;
    EXPECT_NE((column->Value == nullptr), (column->ValueInFile == nullptr)) << column->Id;
    EXPECT_EQ(column->Align == Alignment::Left, column->Type == ColumnType::Text) << column->Id;
    EXPECT_EQ(column->Decimals > 0, column->Type == ColumnType::Real) << column->Id;
  }
}

/// The cell as text, whatever is in it.
std::string Said(const Cell& cell) {
  if (const auto* text = std::get_if<std::string_view>(&cell)) return std::string(*text);
  if (const auto* whole = std::get_if<int64_t>(&cell)) return std::to_string(*whole);
  if (const auto* real = std::get_if<double>(&cell)) return std::to_string(*real);
  return "undefined";
}

struct ValueCase {
  const char* Column;
  const char* Value;
};

TEST(Columns, ValuesOfAPhrase) {
  ReportWorld world = ReportWorld::Of({{"the cat", 5}, {"côté d'or", 3}});
  world.Facts.FilesScanned = 8;
  world.Facts.Words.Taken = 60;
  world.Facts.Words.DroppedBy[0] = 40;
  ColumnSource source{world.Table, world.Facts};
  source.FilesWithWords = 8;
  const DocumentCounts::Item files[] = {{DocumentNumber{1}, 2}, {DocumentNumber{4}, 1}};
  const std::string text = world.Table.Text(PhraseIndex{1});
  const ListedPhrase phrase(PhraseIndex{1}, text, files, 7);
  const ValueCase cases[] = {
      {"rank", "2"},
      {"phrase", "côté d'or"},
      {"report_rank", "2"},
      {"per_million", "30000.000000"},
      {"files", "7"},
      {"files_percent", "87.500000"},
      {"percent", "3.000000"},
      {"words", "2"},
      {"characters", "9"},
      {"frequency", "3"},
      {"relative_frequency", "37.500000"},
      {"report_files", "2"},
      {"file_frequency", "0.250000"},
  };
  for (const ValueCase& c : cases) {
    const Column* column = FindColumn(c.Column);
    ASSERT_NE(column, nullptr) << c.Column;
    EXPECT_EQ(Said(column->Value(source, phrase)), c.Value) << c.Column;
  }
}

TEST(Columns, NothingIsDividedByZero) {
  ReportWorld world = ReportWorld::Of({{"the cat", 5}});
  const ColumnSource source{world.Table, world.Facts};
  const ListedPhrase phrase(PhraseIndex{1}, "the cat");
  for (const char* id : {"per_million", "percent", "files_percent", "first_file"})
    EXPECT_EQ(Said(FindColumn(id)->Value(source, phrase)), "undefined") << id;
  EXPECT_EQ(Said(FindColumn("file_frequency")->Value(source, phrase)), "0.000000");
}

TEST(Columns, RankIsByFrequencyWhateverTheChainGoesBy) {
  ReportWorld world = ReportWorld::Of({{"the cat", 5}});
  const PhraseRank ranks[] = {kNoRank, PhraseRank{42}};
  ColumnSource source{world.Table, world.Facts};
  source.FrequencyRanks = ranks;
  const ListedPhrase phrase(PhraseIndex{1}, "the cat");
  EXPECT_EQ(Said(FindColumn("rank")->Value(source, phrase)), "42");
  EXPECT_EQ(Said(FindColumn("report_rank")->Value(source, phrase)), "1");
}

TEST(Columns, FirstFileOfATextWithoutPathIsADash) {
  ReportWorld world = ReportWorld::Of({{"one two", 1}});
  ColumnSource source{world.Table, world.Facts};
  const std::string noPath[] = {""}, path[] = {"a.txt"};
  const Column& firstFile = *FindColumn("first_file");
  const ListedPhrase phrase(PhraseIndex{1}, "one two");
  source.SourcePaths = noPath;
  EXPECT_EQ(Said(firstFile.Value(source, phrase)), "-");
  source.SourcePaths = path;
  EXPECT_EQ(Said(firstFile.Value(source, phrase)), "a.txt");
}

/// A folder with a phrase in more files than DocumentCounts takes note of, and files without words.
TEST(Columns, FilesHaveNoLimit) {
  constexpr uint32_t kFiles = DocumentCounts::kMostFiles + 5;
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  for (uint32_t file = 0; file < kFiles; ++file) {
    world.BeginFile(std::to_string(file));
    world.Say("one two");
  }
  world.Finish();
  for (const char* id : {"files", "report_files"}) {
    const Column* columns[] = {FindColumn(id)};
    const ListSource source(world.View(), columns, {});
    RowBuilder rows(columns, source.View());
    const bool limited = columns[0]->Id == "report_files";
    EXPECT_EQ(Said(rows.Cells(PhraseIndex{1}, "one two").OfPhrase[0]),
              std::to_string(limited ? DocumentCounts::kMostFiles : kFiles));
  }
}

TEST(Columns, ValuesInAFile) {
  ReportWorld world = ReportWorld::Of({{"the cat", 6}, {"a dog", 2}});
  const std::string paths[] = {"{Folder}/a.txt"};
  const ColumnSource source{world.Table, world.Facts, {}, paths};
  const ListedPhrase phrase(PhraseIndex{2}, "the cat");
  const ValueCase cases[] = {
      {"file_share", "50.000000"}, {"file_relative_frequency", "37.500000"}, {"file_path", "{Folder}/a.txt"}};
  for (const ValueCase& c : cases) {
    const Column* column = FindColumn(c.Column);
    ASSERT_NE(column, nullptr) << c.Column;
    EXPECT_EQ(Said(column->ValueInFile(source, phrase, {.Document = DocumentNumber{1}, .Count = 3})), c.Value)
        << c.Column;
  }
  EXPECT_EQ(
      Said(FindColumn("file_path")->ValueInFile(source, phrase, {.Document = DocumentNumber{2}, .Count = 1})),
      "");
}

}  // namespace
}  // namespace korv
