#include "report/columns/row_filter.h"

#include <gtest/gtest.h>

#include <optional>

#include "report/columns/column_keys.h"
#include "report/columns/registry.h"
#include "report/list_source.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

RowFilter AtLeast(const char* column, std::optional<double> least, std::optional<double> most = {}) {
  return {{}, {{FindColumn(column), least, most}}};
}

TEST(RowFilter, PassesAllWithoutTextAndLimits) {
  EXPECT_TRUE(PassesAll({}));
  EXPECT_TRUE(PassesAll(AtLeast("frequency", {})));
  EXPECT_TRUE(PassesAll({{.Text = " - ", .Not = true}, {}}));
  EXPECT_FALSE(PassesAll(AtLeast("frequency", 0)));
  EXPECT_FALSE(PassesAll({{.Text = "a"}, {}}));
}

TEST(RowFilter, NarrowsWhereTextAndLimitsAreAsTight) {
  EXPECT_TRUE(Narrows(RowFilter{}, AtLeast("frequency", 3)));
  EXPECT_TRUE(Narrows(AtLeast("frequency", 3), AtLeast("frequency", 4)));
  EXPECT_TRUE(Narrows(AtLeast("frequency", 3, 9), AtLeast("frequency", 3, 8)));
  EXPECT_FALSE(Narrows(AtLeast("frequency", 3), AtLeast("frequency", 2)));
  EXPECT_FALSE(Narrows(AtLeast("frequency", 3), AtLeast("words", 3)));
  EXPECT_FALSE(Narrows(AtLeast("frequency", {}, 5), AtLeast("frequency", 3)));
  EXPECT_TRUE(Narrows(RowFilter{{.Text = "of"}, {}}, RowFilter{{.Text = "of t"}, {}}));
  EXPECT_FALSE(Narrows(RowFilter{{.Text = "-of"}, {}}, RowFilter{{.Text = "-of t"}, {}}));
}

TEST(RowFilter, UndefinedValuesPassNoLimitAndStandLast) {
  const ReportWorld world =
      ReportWorld::Of({{"a b", 2}, {"c d", 1}});  // No words are told: per million is undefined.
  const Column* columns[] = {FindColumn("per_million")};
  const Report report = world.View();
  NoYielder yielder;
  ListSource source(report, columns, {});
  source.Prepare(yielder);
  for (const RowFilter& filter : {AtLeast("per_million", 0), AtLeast("per_million", {}, 1e9)}) {
    const auto test = CompileFilter(filter, source.View(), yielder);
    const PhraseIndex entries[] = {PhraseIndex{1}, PhraseIndex{2}};
    EXPECT_EQ((*test)(entries, 3), 0u);
  }
  const SharedOrder order = OrderByColumn(*columns[0], SortDirection::Descending, source.View(), yielder);
  EXPECT_EQ(order->Undefined, 2u);
}

TEST(ColumnKeys, TextsAreOrderedAsTheirColumnSays) {
  EXPECT_TRUE(HasKeys(*FindColumn("phrase")));
  EXPECT_TRUE(HasKeys(*FindColumn("first_file")));
  EXPECT_FALSE(HasKeys(*FindColumn("file_path")));
  EXPECT_FALSE(HasKeys(*FindColumn("file_share")));
  EXPECT_EQ(UsualDirection(*FindColumn("phrase")), SortDirection::Ascending);
  EXPECT_EQ(UsualDirection(*FindColumn("rank")), SortDirection::Descending);
}

}  // namespace
}  // namespace korv
