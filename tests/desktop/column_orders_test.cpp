// Which orders of columns are kept.

#include "desktop/results/table/column_orders.h"

#include <gtest/gtest.h>

#include "report/columns/registry.h"
#include "tests/fakes/fake_yielder.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

class ColumnOrdersTest : public testing::Test {
 protected:
  ColumnOrdersTest() {
    world.Facts.Options.SourceKind = TextSource::Folder;
    world.Facts.Options.KeepPlaces = true;
    world.BeginFile("a.txt");
    world.Say("old ship", 3);
    world.Say("red sea", 2);
    world.BeginFile("b.txt");
    world.Say("red sea", 2);
    world.Finish();
    analysis.emplace(world.Table, PartChoice{});
    EXPECT_TRUE(analysis->Prepare({.Positions = true, .Parts = true, .FreeOccurrences = true}, none));
    source.Analysis = &*analysis;
  }
  SharedOrder Of(const char* column) { return orders.Ascending(*FindColumn(column), source, none); }

  NoYielder none;
  ReportWorld world;
  std::optional<PhraseAnalysis> analysis;
  ColumnSource source{world.Table, world.Facts};
  ColumnOrders orders;
};

TEST_F(ColumnOrdersTest, KeepsThoseThatWereAskedForLast) {
  const SharedOrder files = Of("files");
  const SharedOrder range = Of("range");
  const SharedOrder alone = Of("net_frequency");
  EXPECT_EQ(Of("files"), files);
  const SharedOrder dispersion = Of("dispersion");
  EXPECT_EQ(Of("files"), files);
  EXPECT_EQ(Of("net_frequency"), alone);
  EXPECT_EQ(Of("dispersion"), dispersion);
  EXPECT_NE(Of("range"), range);
}

TEST_F(ColumnOrdersTest, ForgetsOnlyThoseThatGoByParts) {
  const SharedOrder files = Of("files");
  const SharedOrder range = Of("range");
  orders.Forget([](const Column& column) { return column.Needs.Parts; });
  EXPECT_EQ(Of("files"), files);
  EXPECT_NE(Of("range"), range);
}

TEST_F(ColumnOrdersTest, LimitsWithoutAnOrderWhereNoneIsToBeMade) {
  RowFilter filter;
  filter.Limits.push_back({FindColumn("files"), 2, {}});
  for (const bool make : {false, true}) {
    const auto passes = orders.Compile(filter, source, make, none);
    ASSERT_TRUE(passes);
    const std::vector<PhraseIndex> entries = {PhraseIndex{1}, PhraseIndex{2}};
    ASSERT_EQ(world.Table.Text(entries[1]), "red sea");
    EXPECT_EQ((*passes)(entries, 0b11), 0b10);
    EXPECT_EQ((*passes)(entries, 0b01), 0);
  }
}

}  // namespace
}  // namespace korv
