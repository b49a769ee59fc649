#include "platform/locale_numbers.h"
#include "base/number_format.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korv {
namespace {

TEST(NumberFormatOfLocale, IsTheOneOfTheSystem) {
  struct Row {
    const char* Name;
    const char* Grouped;
    const char* Decimals;
  };
  constexpr int64_t kValue = 123456789;
  for (const Row& row : {
           Row{"en-US", "123,456,789", "1234.5"},
           Row{"de-DE", "123.456.789", "1234,5"},
           Row{"de_DE.UTF-8", "123.456.789", "1234,5"},
           Row{"hi-IN", "12,34,56,789", "1234.5"},
           Row{"C", "123456789", "1234.5"},
           Row{"POSIX", "123456789", "1234.5"},
       }) {
    bool known = false;
    const NumberFormat format = NumberFormatOfLocale(row.Name, known);
    EXPECT_TRUE(known) << row.Name;
    EXPECT_EQ(format.Grouped(kValue), row.Grouped) << row.Name;
    EXPECT_EQ(format.Decimals(1234.5, 1), row.Decimals) << row.Name;
  }
}

TEST(NumberFormatOfLocale, ASeparatorMayBeABlankOfItsOwnKind) {
  bool known = false;
  const NumberFormat format = NumberFormatOfLocale("fr-FR", known);
  EXPECT_TRUE(known);
  // A narrow one that allows no line break; in older systems one as wide as others.
  EXPECT_THAT(format.GroupSeparator, testing::AnyOf("\u202F", "\u00A0"));
  EXPECT_EQ(format.GroupedDecimals(1234567.5, 1),
            "1" + format.GroupSeparator + "234" + format.GroupSeparator + "567,5");
}

TEST(NumberFormatOfLocale, TheUserHasOne) {
  bool known = false;
  const NumberFormat format = NumberFormatOfLocale("", known);
  EXPECT_TRUE(known);
  EXPECT_FALSE(format.DecimalPoint.empty());
}

TEST(NumberFormatOfLocale, NamesThatAreNoneAreUnknown) {
  for (const char* name : {"xx-NOWHERE", "no such locale", "de-DE-", "123"}) {
    bool known = true;
    EXPECT_EQ(NumberFormatOfLocale(name, known).Grouped(1234567), "1,234,567") << name;
    EXPECT_FALSE(known) << name;
  }
}

}  // namespace
}  // namespace korv
