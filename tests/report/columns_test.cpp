#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "report/columns/registry.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

TEST(Columns, HaveNamesOfTheirOwn) {
  std::set<std::string_view> ids;
  for (const Column* column : AllColumns()) {
    EXPECT_TRUE(ids.insert(column->Id).second) << column->Id;
    EXPECT_EQ(column->Id.find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string_view::npos)
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
  const char* column;
  const char* value;
};

TEST(Columns, ValuesOfAPhrase) {
  ReportWorld world = ReportWorld::Of({{"the cat", 5}, {"côté à d'or", 3}});
  world.facts.FilesScanned = 8;
  const ColumnSource source{world.table, world.facts};
  const FileTallies::Tally files[] = {{1, 2}, {4, 1}};
  const std::string text = world.table.Text(1);
  const ListedPhrase phrase(1, text, files);
  const ValueCase cases[] = {
      {"rank", "2"},         {"phrase", "côté à d'or"},
      {"words", "3"},        {"characters", "11"},
      {"frequency", "3"},    {"relative_frequency", "37.500000"},
      {"report_files", "2"}, {"file_frequency", "0.250000"},
  };
  for (const ValueCase& c : cases) {
    const Column* column = FindColumn(c.column);
    ASSERT_NE(column, nullptr) << c.column;
    EXPECT_EQ(Said(column->Value(source, phrase)), c.value) << c.column;
  }
}

TEST(Columns, ValuesInAFile) {
  ReportWorld world = ReportWorld::Of({{"the cat", 6}, {"a dog", 2}});
  const std::string paths[] = {"{Folder}/a.txt"};
  const ColumnSource source{world.table, world.facts, {}, paths};
  const ListedPhrase phrase(2, "the cat");
  const ValueCase cases[] = {
      {"file_share", "50.000000"}, {"file_relative_frequency", "37.500000"}, {"file_path", "{Folder}/a.txt"}};
  for (const ValueCase& c : cases) {
    const Column* column = FindColumn(c.column);
    ASSERT_NE(column, nullptr) << c.column;
    EXPECT_EQ(Said(column->ValueInFile(source, phrase, {.FileNumber = 1, .Count = 3})), c.value) << c.column;
  }
  EXPECT_EQ(Said(FindColumn("file_path")->ValueInFile(source, phrase, {.FileNumber = 2, .Count = 1})), "");
}

}  // namespace
}  // namespace korv
