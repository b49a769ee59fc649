#include "engine/text/word_chars.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "engine/text/unicode.h"

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

TEST(KindOf, TellsLettersMarksAndJoiners) {
  for (const char32_t c : std::u32string_view(U"aZéÿŠя漢\U00010400")) EXPECT_EQ(KindOf(c), CharKind::Letter);
  for (const char32_t c : std::u32string_view(U"\u0301\u0483\u0903\u20DD\uFE0F"))
    EXPECT_EQ(KindOf(c), CharKind::Mark);
  for (const char32_t c : std::u32string_view(U"\u200C\u200D")) EXPECT_EQ(KindOf(c), CharKind::Joiner);
  for (const char32_t c : std::u32string_view(U"0-'\u00AA\u00B5\u00BA×÷\u200B\u200E\uFFFD\U0001F600"))
    EXPECT_EQ(KindOf(c), CharKind::Other) << static_cast<uint32_t>(c);
  for (char32_t c = 0; c < kShortCodes; ++c) EXPECT_EQ(KindsOfShortCodes()[c], KindOf(c));
}

/// The characters of `text` that belong to words, and "|" for each that does not.
std::string Words(std::string_view text, std::string_view extra) {
  std::string words;
  WordCharReader reader(extra);
  for (size_t at = 0; at < text.size();) {
    const size_t begin = at;
    words += reader.Next(text, at) ? text.substr(begin, at - begin) : "|";
  }
  return words;
}

TEST(WordCharReader, TakesMarksAndJoinersWhereTheyBelong) {
  struct Row {
    std::string_view Text;
    std::string_view Words;
  };
  constexpr Row kTable[] = {
      {"a b", "a|b"},
      {"x\u0323\u0302y", "x\u0323\u0302y"},
      {"\u0301a", "|a"},
      {" \u0301\u0302a", "|||a"},
      {"-\u0301a", "-|a"},  // Behind no letter, though behind a character of words.
      {"7\u0301a", "||a"},
      {"\u2764\uFE0F a", "|||a"},
      {"\u0645\u06CC\u200C\u062E", "\u0645\u06CC\u200C\u062E"},
      {"\u0915\u094D\u200D\u0937", "\u0915\u094D\u200D\u0937"},  // Behind the mark of a letter.
      {"\u0645\u200C", "\u0645|"},
      {"\u0645\u200C-a", "\u0645|-a"},
      {"\u0645\u200C\u0301a", "\u0645||a"},
      {"a\u200C\u200Db", "a||b"},
      {"\u200Da", "|a"},
      {"-\u200Da", "-|a"},
      {"a\u200Db\u0301\u200Cc", "a\u200Db\u0301\u200Cc"},
  };
  for (const Row& row : kTable) EXPECT_EQ(Words(row.Text, "-"), row.Words) << row.Text;
}

struct StepRow {
  std::string_view Text;
  size_t Start;
  int Step;
  size_t Stop;
};

TEST(NumAlpha2, StopsAtTheFirstCharacterThatIsNone) {
  constexpr StepRow kTable[] = {
      {"word next", 0, 1, 4}, {"word", 0, 1, 4},       {"", 0, 1, 0},        {" a", 0, 1, 0},
      {"café×", 0, 1, 5},     {"wörd;", 1, 1, 5},      {"a word", 5, -1, 1}, {"word", 3, -1, kNowhere},
      {"a-b", 0, 1, 3},       {"×été", 5, -1, 0},      {"x ", 1, -1, 1},     {"a\u0301 b", 0, 1, 3},
      {" \u0301b", 1, 1, 1},  {"a\u200Db", 0, 1, 5},   {"a\u200D", 0, 1, 1}, {"a\u0301", 1, 1, 3},
      {" \u0301b", 3, -1, 1}, {" a\u200Db", 5, -1, 0},
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
