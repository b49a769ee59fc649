// A comparison: one run over two sources.

#include "desktop/results/run_tabs.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

const char* const kWhales = "The white whale swam. The white whale swam. The old man wept.\n";
const char* const kMen = "The old man wept. The old man wept.\n";

class Comparison : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }

  const CountedRun& Run() const { return main->Result().InFront()->Run; }
};

TEST_F(Comparison, CountsBothSidesInOneRunNamedAfterBoth) {
  CountCompared(kWhales, kMen);
  ASSERT_TRUE(main->Result().HasResult());
  ASSERT_TRUE(Run().Facts.SecondSide.has_value());
  EXPECT_EQ(SizeOf(Run().Facts, Side::A).Words.Read(), 12U);
  EXPECT_EQ(SizeOf(Run().Facts, Side::B).Words.Read(), 8U);
  EXPECT_EQ(Find<RunTabs>("tabRuns")->tabText(0).toStdString(), "a.txt - b.txt");
}

TEST_F(Comparison, KeepsHowItComparesWithTheRun) {
  EXPECT_EQ(ComparisonChoice(), (ComparisonChoice{ComparisonBasis::Words, 1, false}));
  const ComparisonChoice how{ComparisonBasis::Files, 10, true};
  CountCompared(kWhales, kMen, how);
  ASSERT_TRUE(main->Result().HasResult());
  EXPECT_EQ(Run().Comparison, how);
}

}  // namespace
}  // namespace korv
