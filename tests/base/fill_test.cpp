#include <gtest/gtest.h>

#include "base/translation.h"

namespace korv {
namespace {

TEST(Fill, PutsEachValueWhereItsNumberStands) {
  struct Row {
    const char* Pattern;
    const char* Text;
  };
  for (const Row& row : {Row{"%1 of %2", "one of two"}, Row{"%2, %1", "two, one"}, Row{"%1%1", "oneone"},
                         Row{"", ""}, Row{"none", "none"}, Row{"100 %", "100 %"}, Row{"%", "%"},
                         Row{"%%1", "%one"}, Row{"%0 %a", "%0 %a"}, Row{"%12", "one2"}}) {
    EXPECT_EQ(Fill(row.Pattern, {"one", "two"}), row.Text);
  }
}

TEST(Fill, LeavesAPlaceWithoutAValue) {
  EXPECT_EQ(Fill("%1 %2", {"one"}), "one %2");
  EXPECT_EQ(Fill("%1", {}), "%1");
  EXPECT_EQ(Fill("%9", {"1", "2", "3", "4", "5", "6", "7", "8", "9"}), "9");
}

TEST(Fill, DoesNotLookIntoValues) {
  EXPECT_EQ(Fill("%1 %2", {"%2", "%1"}), "%2 %1");
}

}  // namespace
}  // namespace korv
