#include "sources/read/text_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/sources/bitten_file.h"

namespace korv {
namespace {

using Lines = std::vector<std::string>;

Lines LinesOf(TextReader& reader) {
  Lines lines;
  while (reader.NextLine()) lines.emplace_back(reader.Line());
  return lines;
}

struct Row {
  std::string_view Text;
  Lines Expected;
};

const std::vector<Row> kLineEnds = {
    {"", {}},
    {"a", {"a"}},
    {"a\n", {"a"}},
    {"a\nb", {"a", "b"}},
    {"a\r\nb\r\n", {"a", "b"}},
    {"a\rb\r", {"a", "b"}},
    {"\n", {""}},
    {"\r\n\r\n", {"", ""}},
    {"\n\r", {"", ""}},
    {"a\n\nb", {"a", "", "b"}},
    {"a\r\rb\r\n\nc", {"a", "", "b", "", "c"}},
    {std::string_view("a\0b\n", 4), {std::string("a\0b", 3)}},
    {"a\vb\fc\u2028d\u0085", {"a\vb\fc\u2028d\u0085"}},
};

TEST(TextReader, KnowsThreeLineEndsWhereverTheBlocksEnd) {
  for (const Row& row : kLineEnds) {
    for (size_t bite = 1; bite <= 4; ++bite) {
      for (size_t head = 0; head <= row.Text.size(); ++head) {
        BittenFile rest(row.Text.substr(head), bite);
        TextReader reader(std::string(row.Text.substr(0, head)), &rest, TextEncoding::Utf8);
        EXPECT_EQ(LinesOf(reader), row.Expected) << testing::PrintToString(row.Text) << bite << head;
        EXPECT_EQ(reader.BytesRead(), row.Text.size());
        EXPECT_FALSE(reader.Error());
      }
    }
  }
}

TEST(TextReader, NeedsNoFile) {
  TextReader reader("a\nb", nullptr, TextEncoding::Ansi);
  EXPECT_EQ(LinesOf(reader), (Lines{"a", "b"}));
  EXPECT_FALSE(reader.NextLine());
}

TEST(TextReader, RemovesTheSignatureOfUtf8) {
  for (size_t head = 0; head <= 4; ++head) {
    const std::string_view text =
        "\xEF\xBB\xBF"
        "a\nb";
    BittenFile rest(text.substr(head), 1);
    TextReader reader(std::string(text.substr(0, head)), &rest, TextEncoding::Utf8);
    EXPECT_EQ(LinesOf(reader), (Lines{"a", "b"}));
  }
  TextReader onlySignature("\xEF\xBB\xBF", nullptr, TextEncoding::Utf8);
  EXPECT_FALSE(onlySignature.NextLine());
  TextReader ansi(
      "\xEF\xBB\xBF"
      "a",
      nullptr, TextEncoding::Ansi);
  EXPECT_EQ(LinesOf(ansi), (Lines{"\u00EF\u00BB\u00BF"
                                  "a"}));
}

TEST(TextReader, KeepsCharactersWholeAcrossBlocks) {
  const std::string_view text = "caf\u00E9 \u2019\n\U0001F600";
  for (size_t bite = 1; bite <= 5; ++bite) {
    BittenFile rest(text, bite);
    TextReader reader("", &rest, TextEncoding::Utf8);
    EXPECT_EQ(LinesOf(reader), (Lines{"caf\u00E9 '", "\U0001F600"}));
  }
}

TEST(TextReader, ReadsATextOfManyBlocks) {
  for (const std::string_view lineEnd : {"\n", "\r\n", "\r"}) {
    std::string text;
    Lines expected;
    for (size_t k = 0; k < 50000; ++k) {
      expected.push_back(std::string(k % 97, static_cast<char>('a' + k % 26)));
      text += expected.back();
      text += lineEnd;
    }
    BittenFile rest(text);
    TextReader reader("", &rest, TextEncoding::Utf8);
    EXPECT_EQ(LinesOf(reader), expected);
  }
}

TEST(TextReader, ReadsToTheEndWhateverSizeTheFileClaims) {
  const std::string line(99, 'a');
  std::string text;
  for (int k = 0; k < 10000; ++k) text += line + '\n';
  for (const uint64_t claimed : {uint64_t{0}, uint64_t{1}, uint64_t{500'000}, uint64_t{1} << 40}) {
    BittenFile rest(text);
    rest.ClaimSize(claimed);
    TextReader reader("", &rest, TextEncoding::Utf8);
    EXPECT_EQ(LinesOf(reader), Lines(10000, line));
  }
}

// What the reader makes of a text of which nothing tells the encoding.
struct UnknownCase {
  const char* About;
  std::string Text;
  bool Answer;
  ReadAs Read;
  int Asked;
  uint64_t IllFormed;
  std::string LastLine;
};

TEST(TextReader, DecidesAtTheFirstByteAbove127) {
  const std::string late = std::string(300000, 'w') + "\n" + std::string(300000, ' ') + "\n";
  std::string russian;
  for (int k = 0; k < 100; ++k) russian += "\u0436\n";
  const UnknownCase kCases[] = {
      {"ASCII only", late + "end", true, ReadAs::Ascii, 0, 0, "end"},
      {"well-formed", late + "caf\xC3\xA9", true, ReadAs::Utf8, 1, 0, "caf\u00E9"},
      {"well-formed, not wanted", late + "caf\xC3\xA9", false, ReadAs::Ansi, 1, 0, "caf\u00C3\u00A9"},
      {"ANSI", late + "caf\xE9", true, ReadAs::Ansi, 0, 0, "caf\u00E9"},
      {"one stray byte", "\xFF\n" + russian + "\u0436", true, ReadAs::Utf8, 1, 1, "\u0436"},
      {"ill-formed behind the sample", "\u0436" + std::string(16382, ' ') + "\n\xE9", true, ReadAs::Utf8, 1,
       1, "\uFFFD"},
      {"well-formed behind the sample", "\xE9" + std::string(16382, ' ') + "\n\u0436", true, ReadAs::Ansi, 0,
       0, "\u00D0\u00B6"},
      {"the sample cuts the only sequence", "\xE2" + std::string(16382, ' ') + "\n\u0436", true, ReadAs::Ansi,
       0, 0, "\u00D0\u00B6"},
      {"the end cuts the only sequence", "caf\xC3", true, ReadAs::Ansi, 0, 0, "caf\u00C3"},
  };
  for (const UnknownCase& c : kCases) {
    for (const size_t head : {size_t{0}, size_t{3}, c.Text.size()}) {
      BittenFile rest(std::string_view(c.Text).substr(std::min(head, c.Text.size())), 1000);
      int asked = 0;
      TextReader reader(c.Text.substr(0, head), &rest, EncodingPlan([&] {
                          ++asked;
                          return c.Answer;
                        }));
      std::string last;
      while (reader.NextLine()) last = reader.Line();
      EXPECT_EQ(last, c.LastLine) << c.About << head;
      EXPECT_EQ(reader.ReadAs(), c.Read) << c.About << head;
      EXPECT_EQ(reader.IllFormed(), c.IllFormed) << c.About << head;
      EXPECT_EQ(asked, c.Asked) << c.About << head;
      EXPECT_EQ(reader.BytesRead(), c.Text.size());
    }
  }
}

TEST(TextReader, AsksNotBeforeItHandsOutTheByte) {
  int asked = 0;
  TextReader reader("one\ntwo\ncaf\xC3\xA9\n", nullptr, EncodingPlan([&] {
                      ++asked;
                      return true;
                    }));
  reader.NextLine();
  reader.NextLine();
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(reader.ReadAs(), ReadAs::Ascii);
  reader.NextLine();
  EXPECT_EQ(asked, 1);
}

TEST(TextReader, TakesWhatLooksLikeUtf8ForItWhereNobodyIsToBeAsked) {
  TextReader reader("caf\xC3\xA9", nullptr, EncodingPlan(nullptr));
  EXPECT_EQ(LinesOf(reader), Lines{"caf\u00E9"});
}

TEST(TextReader, DecidesOnALongLineByItsFirstPiece) {
  std::string text = "caf\xC3\xA9 ";
  while (text.size() < 3'000'000) text += "words and more ";
  BittenFile rest(text);
  TextReader reader("", &rest, EncodingPlan(nullptr), LongLines::AtBlanks);
  ASSERT_TRUE(reader.NextLine());
  EXPECT_EQ(reader.ReadAs(), ReadAs::Utf8);
  EXPECT_LT(reader.BytesRead(), 2'000'000U);
}

TEST(TextReader, SaysHowAForcedEncodingWasNeeded) {
  TextReader ascii("plain", nullptr, TextEncoding::Ansi);
  LinesOf(ascii);
  EXPECT_EQ(ascii.ReadAs(), ReadAs::Ascii);
  TextReader ansi("plain\n\xAD\nplain", nullptr, TextEncoding::Ansi);
  LinesOf(ansi);
  EXPECT_EQ(ansi.ReadAs(), ReadAs::Ansi);
  TextReader utf8("plain \xFF", nullptr, TextEncoding::Utf8);
  EXPECT_EQ(utf8.ReadAs(), ReadAs::Utf8);
  LinesOf(utf8);
  EXPECT_EQ(utf8.IllFormed(), 1U);
}

TEST(TextReader, HandsOutLongLinesWhole) {
  const std::string line(3'000'000, ' ');
  const std::string text = "a\n" + line + "\nb";
  BittenFile rest(text);
  TextReader reader("", &rest, TextEncoding::Utf8);
  EXPECT_EQ(LinesOf(reader), (Lines{"a", line, "b"}));
}

TEST(TextReader, PartsLongLinesAfterBlanksAndTabsBehindAscii) {
  std::string text;
  while (text.size() < 5'000'000) text += "caf\u00E9 \u0301na\u00EFve\t\u00E9b& &nbsp;";
  const std::string all = text + "\nnext";
  BittenFile rest(all);
  TextReader reader("", &rest, TextEncoding::Utf8, LongLines::AtBlanks);
  std::string joined;
  int pieces = 0;
  while (reader.NextLine() && reader.Line() != "next") {
    EXPECT_EQ(reader.StartsLine(), pieces == 0);
    EXPECT_EQ(reader.EndsLine(), joined.size() + reader.Line().size() == text.size());
    EXPECT_LT(reader.Line().size(), 2'000'000U);
    if (pieces > 0) {
      EXPECT_TRUE(joined.ends_with("e\t"));
    }
    joined += reader.Line();
    ++pieces;
  }
  EXPECT_GT(pieces, 2);
  EXPECT_EQ(joined, text);
  EXPECT_TRUE(reader.StartsLine());
  EXPECT_FALSE(reader.NextLine());
}

TEST(TextReader, EndsALineWhoseLastPieceEndsWithIt) {
  // The piece takes all that there is, so that the end of the line is all that is left.
  const std::string text = std::string(1'100'000, 'a') + " ";
  for (const char* end : {"", "\n", "\r\n"}) {
    const std::string all = text + end;
    BittenFile rest(all, text.size());
    TextReader reader("", &rest, TextEncoding::Ansi, LongLines::AtBlanks);
    std::string joined;
    bool ended = false;
    while (reader.NextLine()) {
      joined += reader.Line();
      ended = reader.EndsLine();
    }
    EXPECT_EQ(joined, text);
    EXPECT_TRUE(ended);
  }
}

TEST(TextReader, PartsALineWithoutBlanksOnlyWhereItMayBePartedAnywhere) {
  const std::string text(4'000'000, 'a');
  BittenFile rest(text);
  TextReader reader("", &rest, TextEncoding::Utf8, LongLines::AtBlanks);
  EXPECT_EQ(LinesOf(reader), (Lines{text}));
}

/// What a reader hands out of one line of a text, and how long its longest piece is.
struct Parted {
  std::string Joined;
  size_t Longest = 0;
};

Parted PartedAnywhere(std::string_view text, EncodingPlan encoding) {
  BittenFile rest(text);
  TextReader reader("", &rest, std::move(encoding), LongLines::Anywhere);
  Parted parted;
  while (reader.NextLine()) {
    EXPECT_EQ(reader.StartsLine(), parted.Joined.empty());
    parted.Joined += reader.Line();
    parted.Longest = std::max(parted.Longest, reader.Line().size());
  }
  return parted;
}

TEST(TextReader, HandsOutNoMoreThanAboutAMegabyteWhateverTheLineHolds) {
  struct Unit {
    const char* Name;
    std::string_view Text;
    std::string_view Decoded;  ///< Of the unit.
  };
  for (const Unit& row :
       {Unit{"letters", "a", "a"},
        {"a table", "one,two;", "one,two;"},
        {"ideographs", "\u6F22\u5B57", "\u6F22\u5B57"},
        {"letters with marks", "e\u0301x", "\u00E9x"},
        {"soft hyphens", "\u00ADab", "ab"},
        {"ill-formed bytes", "\x80", "\uFFFD"},
        {"ill-formed and other bytes", "\x80\x80\x80\xC3\xA9", "\uFFFD\uFFFD\uFFFD\u00E9"}}) {
    std::string text;
    std::string expected;
    while (text.size() < 3'000'000) {
      text += row.Text;
      expected += row.Decoded;
    }
    const Parted parted = PartedAnywhere(text, TextEncoding::Utf8);
    EXPECT_TRUE(parted.Joined == expected) << row.Name;
    EXPECT_LT(parted.Longest, 4'000'000U) << row.Name;  // Ill-formed bytes become three.
  }
}

TEST(TextReader, PartsEvenALineInWhichEveryCharacterJoinsTheOneBefore) {
  std::string text = "e";
  while (text.size() < 2'500'000) text += "\u0301";
  EXPECT_LT(PartedAnywhere(text, TextEncoding::Utf8).Longest, 2'000'000U);
}

TEST(TextReader, SettlesTheEncodingBeforeItPartsALineWithoutBlanks) {
  std::string text(1'500'000, 'a');
  text += "\u00E9";
  text.resize(3'000'000, 'b');
  int asked = 0;
  const Parted parted = PartedAnywhere(text, EncodingPlan([&] {
                                         ++asked;
                                         return true;
                                       }));
  EXPECT_TRUE(parted.Joined == text);
  EXPECT_EQ(asked, 1);
}

TEST(TextReader, TellsAFailureAfterWhatWasRead) {
  const std::string_view text = "one\ntwo\nthree";
  for (int failsAt = 0; failsAt <= 4; ++failsAt) {
    BittenFile rest(text, 4, failsAt);
    TextReader reader("", &rest, TextEncoding::Utf8);
    std::string joined;
    while (reader.NextLine()) {
      joined += reader.Line();
      joined += '\n';
    }
    ASSERT_TRUE(reader.Error());
    EXPECT_EQ(reader.Error()->Description, "worn out");
    EXPECT_EQ(reader.BytesRead(), std::min<uint64_t>(static_cast<uint64_t>(failsAt) * 4, text.size()));
    std::string expected(text.substr(0, reader.BytesRead()));
    if (!expected.empty() && expected.back() != '\n') expected += '\n';
    EXPECT_EQ(joined, expected);
    EXPECT_FALSE(reader.NextLine());
  }
}

TEST(TextReader, DoesNotReadAgainAfterTheEnd) {
  BittenFile rest("a");
  TextReader reader("", &rest, TextEncoding::Utf8);
  LinesOf(reader);
  const int reads = rest.Reads();
  EXPECT_FALSE(reader.NextLine());
  EXPECT_EQ(rest.Reads(), reads);
}

}  // namespace
}  // namespace korv
