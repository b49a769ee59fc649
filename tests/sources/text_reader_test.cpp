#include "sources/text_reader.h"

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

TEST(TextReader, RemovesTheSignatureOfUtf8AtTheBeginningOnly) {
  for (size_t head = 0; head <= 4; ++head) {
    const std::string_view text =
        "\xEF\xBB\xBF"
        "a\n\xEF\xBB\xBF"
        "b";
    BittenFile rest(text.substr(head), 1);
    TextReader reader(std::string(text.substr(0, head)), &rest, TextEncoding::Utf8);
    EXPECT_EQ(LinesOf(reader), (Lines{"a",
                                      "\uFEFF"
                                      "b"}));
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

TEST(TextReader, HandsOutLongLinesWhole) {
  const std::string line(3'000'000, ' ');
  const std::string text = "a\n" + line + "\nb";
  BittenFile rest(text);
  TextReader reader("", &rest, TextEncoding::Utf8);
  EXPECT_EQ(LinesOf(reader), (Lines{"a", line, "b"}));
}

TEST(TextReader, PartsLongLinesAfterBlanksAndTabsBeforeAscii) {
  std::string text;
  while (text.size() < 5'000'000) text += "caf\u00E9 \u0301na\u00EFve\tb";
  const std::string all = text + "\nnext";
  BittenFile rest(all);
  TextReader reader("", &rest, TextEncoding::Utf8, LongLines::InPieces);
  std::string joined;
  int pieces = 0;
  while (reader.NextLine() && reader.Line() != "next") {
    EXPECT_EQ(reader.StartsLine(), pieces == 0);
    EXPECT_LT(reader.Line().size(), 2'000'000U);
    if (pieces > 0) {
      EXPECT_TRUE(joined.back() == ' ' || joined.back() == '\t');
      EXPECT_LT(static_cast<unsigned char>(reader.Line().front()), 0x80);
    }
    joined += reader.Line();
    ++pieces;
  }
  EXPECT_GT(pieces, 2);
  EXPECT_EQ(joined, text);
  EXPECT_TRUE(reader.StartsLine());
  EXPECT_FALSE(reader.NextLine());
}

TEST(TextReader, PartsNoLineThatHoldsNoBlank) {
  const std::string text(4'000'000, 'a');
  BittenFile rest(text);
  TextReader reader("", &rest, TextEncoding::Utf8, LongLines::InPieces);
  EXPECT_EQ(LinesOf(reader), (Lines{text}));
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
    EXPECT_EQ(reader.Error()->description, "worn out");
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
