#include "base/number_format.h"
#include "platform/locale_numbers.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace korv {
namespace {

struct GroupedCase {
  int64_t Value;
  std::string Grouping;
  std::string Text;
};

TEST(NumberFormat, GroupsDigitsFromTheRight) {
  const GroupedCase cases[] = {
      {0, "\3", "0"},
      {999, "\3", "999"},
      {1000, "\3", "1,000"},
      {2500, "\3", "2,500"},
      {123456, "\3", "123,456"},
      {1234567, "\3", "1,234,567"},
      {-1, "\3", "-1"},
      {-999, "\3", "-999"},
      {-123456, "\3", "-123,456"},
      {1234567, "", "1234567"},
      {123456789, "\3\2", "12,34,56,789"},
      {123456789, std::string("\3\0", 2), "123456,789"},
      {123456789, std::string("\3") + static_cast<char>(CHAR_MAX), "123456,789"},
      {std::numeric_limits<int64_t>::max(), "\3", "9,223,372,036,854,775,807"},
      {std::numeric_limits<int64_t>::min(), "\3", "-9,223,372,036,854,775,808"},
  };
  for (const GroupedCase& c : cases) {
    NumberFormat format;
    format.Grouping = c.Grouping;
    EXPECT_EQ(format.Grouped(c.Value), c.Text) << c.Value;
  }
}

TEST(NumberFormat, SeparatorsMayHaveSeveralBytes) {
  const NumberFormat format{.DecimalPoint = "\u066B", .GroupSeparator = "\u202F"};
  EXPECT_EQ(format.Grouped(1234567), "1\u202F234\u202F567");
  EXPECT_EQ(format.Decimals(1234.5, 1), "1234\u066B5");
  EXPECT_EQ(format.GroupedDecimals(1234.567, 2), "1\u202F234\u066B57");
}

struct DecimalsCase {
  double Value;
  int Decimals;
  std::string Text;
};

TEST(NumberFormat, RoundsTheExactBinaryValueToNearestTiesToEven) {
  const DecimalsCase cases[] = {
      {100.0 / 3, 2, "33.33"},  // One of three.
      {0.125, 2, "0.12"},       // A tie, down to even.
      {0.375, 2, "0.38"},       // A tie, up to even.
      {2.675, 2, "2.67"},       // Below the tie in binary.
      {1.005, 2, "1.00"},       // Likewise.
      {0.5, 0, "0"},           {1.5, 0, "2"},        {100, 2, "100.00"},
      {0, 3, "0.000"},         {0.0625, 3, "0.062"}, {static_cast<double>(1.0f / 3.0f), 3, "0.333"},
  };
  for (const DecimalsCase& c : cases) EXPECT_EQ(NumberFormat().Decimals(c.Value, c.Decimals), c.Text);
}

TEST(NumberFormat, DecimalsAreThoseOfTheCLibrary) {
  std::srand(7);
  for (int i = 0; i < 20000; ++i) {
    const double value = std::rand() * 100.0 / (1 + std::rand() % 100000);
    for (const int decimals : {2, 3}) {
      char expected[64];
      std::snprintf(expected, sizeof expected, "%.*f", decimals, value);
      EXPECT_EQ(NumberFormat().Decimals(value, decimals), expected);
    }
  }
}

TEST(NumberFormat, LeadingZeroIsWrittenWhereTheLocaleHasIt) {
  const NumberFormat without{.LeadingZero = false};
  EXPECT_EQ(without.Decimals(0.25, 2), ".25");
  EXPECT_EQ(without.Decimals(-0.25, 2), "-.25");
  EXPECT_EQ(without.Decimals(-12.5, 1), "-12.5");
  EXPECT_EQ(NumberFormat().Decimals(-0.25, 2), "-0.25");
  EXPECT_EQ(without.Decimals(10.25, 2), "10.25");
  EXPECT_EQ(without.Decimals(0, 0), "0");
  EXPECT_EQ(NumberFormat().Decimals(0.25, 2), "0.25");
}

TEST(NumberFormat, HugeValuesHaveAllTheirDigits) {
  const std::string text = NumberFormat().Decimals(std::numeric_limits<double>::max(), 2);
  EXPECT_EQ(text.size(), 309u + 3u);
}

TEST(NumberFormatOfLocale, CHasAPointAndNoGroups) {
  bool known = false;
  const NumberFormat format = NumberFormatOfLocale("C", known);
  EXPECT_TRUE(known);
  EXPECT_EQ(format.DecimalPoint, ".");
  EXPECT_EQ(format.Grouped(1234567), "1234567");
}

TEST(NumberFormatOfLocale, UnknownNameGivesTheDefaultFormat) {
  bool known = true;
  const NumberFormat format = NumberFormatOfLocale("xx_NOWHERE.utf8", known);
  EXPECT_FALSE(known);
  EXPECT_EQ(format.Grouped(1234567), "1,234,567");
}

TEST(NumberFormatOfLocale, GermanHasACommaWhereItIsInstalled) {
  bool known = false;
  const NumberFormat format = NumberFormatOfLocale("de_DE.UTF-8", known);
  if (!known) GTEST_SKIP() << "this system has no German locale";
  EXPECT_EQ(format.Decimals(33.333, 2), "33,33");
  EXPECT_EQ(format.Grouped(1234567), "1.234.567");
}

}  // namespace
}  // namespace korv
