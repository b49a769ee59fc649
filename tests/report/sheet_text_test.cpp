#include "report/writers/sheet_text.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

std::string Repeated(const std::string& text, size_t times) {
  std::string repeated;
  for (size_t k = 0; k < times; ++k) repeated += text;
  return repeated;
}

TEST(SheetText, StandsAsItIsButForWhatWouldBeReadOtherwise) {
  struct Case {
    std::string Text;
    const char* Written;
  };
  const Case cases[] = {
      {"", ""},
      {"the big cat", "the big cat"},
      {"=1+2", "=1+2"},
      {"a\tb\r\nc", "a\tb\r\nc"},
      {"\u05E9\u05DC\u05D5\u05DD \U0001F600", "\u05E9\u05DC\u05D5\u05DD \U0001F600"},
      {"_x0041_", "_x005F_x0041_"},
      {"a_xFfFf_b_x00e9_", "a_x005F_xFfFf_b_x005F_x00e9_"},
      {"_x0041", "_x0041"},
      {"_x041_", "_x041_"},
      {"_X0041_", "_X0041_"},
      {"_x00G1_", "_x00G1_"},
      {"_x_x0041_", "_x_x005F_x0041_"},
      {std::string("a\0b", 3), "a\uFFFDb"},
      {"a\xFF"
       "b\xE2\x82",
       "a\uFFFDb\uFFFD"},
      {"\xEF\xBF\xBE\xEF\xBF\xBF", "\uFFFD\uFFFD"},
  };
  for (const Case& c : cases) EXPECT_EQ(SheetText(c.Text), c.Written) << c.Text;
}

TEST(SheetText, ThatIsTooLongEndsWithAnEllipsis) {
  struct Case {
    std::string Text;
    size_t Most;
    std::string Written;
  };
  const std::string grin = "\U0001F600";  // Two units.
  const Case cases[] = {
      {"abcd", 4, "abcd"},
      {"abcde", 4, "abc\u2026"},
      {"\u00E9\u00E9\u00E9\u00E9", 4, "\u00E9\u00E9\u00E9\u00E9"},
      {grin + grin, 4, grin + grin},
      {grin + grin + "a", 4, grin + "\u2026"},
      {"a_x0041_", 14, "a_x005F_x0041_"},
      {"a_x0041_", 8, "a\u2026"},
      {std::string(kMostInCell, 'a'), kMostInCell, std::string(kMostInCell, 'a')},
      {std::string(kMostInCell + 1, 'a'), kMostInCell, std::string(kMostInCell - 1, 'a') + "\u2026"},
      {Repeated(grin, kMostInCell), kMostInCell, Repeated(grin, kMostInCell / 2) + "\u2026"},
  };
  for (const Case& c : cases) EXPECT_EQ(SheetText(c.Text, c.Most), c.Written) << c.Text.substr(0, 20);
}

TEST(SheetText, IsTakenPieceByPieceWithoutLoss) {
  std::string_view rest = "ab\U0001F600cde";
  EXPECT_EQ(TakeSheetText(rest, 3), "ab");
  EXPECT_EQ(TakeSheetText(rest, 3), "\U0001F600c");
  EXPECT_EQ(TakeSheetText(rest, 3), "de");
  EXPECT_EQ(rest, "");
  rest = "\U0001F600";
  EXPECT_EQ(TakeSheetText(rest, 1), "\U0001F600") << "goes on even where a character has no room";
}

}  // namespace
}  // namespace korv
