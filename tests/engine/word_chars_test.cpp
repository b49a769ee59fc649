#include "engine/word_chars.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "engine/unicode.h"

namespace korv {
namespace {

constexpr size_t kNowhere = std::string_view::npos;

TEST(IsWordChar, GoesByCodeBelow256) {
  for (char32_t c = 0; c < 0x100; ++c) {
    const bool isLetter = (c >= 65 && c <= 90) || (c >= 97 && c <= 122) || (c >= 192 && c <= 214) ||
                          (c >= 216 && c <= 246) || (c >= 248 && c <= 255);
    const bool isDigit = c >= 48 && c <= 57;
    EXPECT_EQ(IsWordCharCode(c, false, ""), isLetter) << static_cast<uint32_t>(c);
    EXPECT_EQ(IsWordCharCode(c, true, ""), isLetter || isDigit) << static_cast<uint32_t>(c);
  }
}

TEST(IsWordChar, GoesByCategoryFrom256On) {
  for (const std::string_view ch : {"Š", "Œ", "Ÿ", "я", "ω", "漢", "\u0301", "ʰ"}) {
    EXPECT_TRUE(IsWordChar(ch, false, "")) << ch;
  }
  for (const std::string_view ch : {"—", "’", "€", "\u0660", "Ⅷ", "\uFFFD", "\U0001F600"}) {
    EXPECT_FALSE(IsWordChar(ch, true, "")) << ch;
  }
}

TEST(IsWordChar, TheEmptyStringIsNone) {
  EXPECT_FALSE(IsWordChar("", true, "abc"));
}

TEST(IsWordChar, ExtraCharactersCount) {
  EXPECT_TRUE(IsWordChar("-", false, "'-_"));
  EXPECT_FALSE(IsWordChar(".", false, "'-_"));
  EXPECT_TRUE(IsWordChar("5", false, "0123456789"));
  EXPECT_TRUE(IsWordChar("×", false, "-×"));
  EXPECT_FALSE(IsWordChar("÷", false, "-×"));
}

struct StepRow {
  std::string_view Text;
  size_t Start;
  int Step;
  size_t Stop;
};

TEST(NumAlpha2, StopsAtTheFirstCharacterThatIsNone) {
  constexpr StepRow kTable[] = {
      {"word next", 0, 1, 4}, {"word", 0, 1, 4},  {"", 0, 1, 0},        {" a", 0, 1, 0},
      {"café×", 0, 1, 5},     {"wörd;", 1, 1, 5}, {"a word", 5, -1, 1}, {"word", 3, -1, kNowhere},
      {"a-b", 0, 1, 3},       {"×été", 5, -1, 0}, {"x ", 1, -1, 1},
  };
  for (const StepRow& row : kTable) {
    WordEnd end;
    EXPECT_EQ(NumAlpha2(row.Text, row.Start, row.Step, end, "-"), row.Stop) << row.Text;
  }
}

TEST(NumAlpha2, TellsWhatStandsAtTheStop) {
  const auto endOf = [](std::string_view text) {
    WordEnd end;
    end.EndedByComma = true;  // What was there before must go.
    NumAlpha2(text, 0, 1, end, "");
    std::string seen;
    if (end.EndedBySemicolon) seen += ';';
    if (end.EndedByPeriod) seen += '.';
    if (end.EndedByDoubleQuote) seen += '"';
    if (end.EndedByTab) seen += 't';
    if (end.EndedByComma) seen += ',';
    if (end.AtClosingTag) seen += '<';
    return seen;
  };
  EXPECT_EQ(endOf("a;"), ";");
  EXPECT_EQ(endOf("a."), ".");
  EXPECT_EQ(endOf("a\""), "\"");
  EXPECT_EQ(endOf("a\t"), "t");
  EXPECT_EQ(endOf("a,"), ",");
  EXPECT_EQ(endOf("a</b>"), "<");
  EXPECT_EQ(endOf("a<b>"), "");
  EXPECT_EQ(endOf("a ."), "");
  EXPECT_EQ(endOf("a"), "");
}

TEST(NumAlpha2, GivesUpAfter65000Characters) {
  for (const std::string letter : {"a", "é", "漢"}) {
    std::string text;
    for (int k = 0; k < 65001; ++k) text += letter;
    WordEnd end;
    EXPECT_EQ(NumAlpha2(text, 0, 1, end, ""), 65000 * letter.size());
    EXPECT_EQ(NumAlpha2(text, text.size() - letter.size(), -1, end, ""), 0U);
  }
}

}  // namespace
}  // namespace korv
