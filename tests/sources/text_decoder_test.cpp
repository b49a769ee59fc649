#include "sources/read/text_decoder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korv {
namespace {

struct Row {
  std::string_view Bytes;
  std::string_view Text;
};

std::string Decoded(std::string_view bytes, TextEncoding encoding) {
  std::string buffer;
  return std::string(DecodeText(bytes, encoding, buffer));
}

TEST(DecodeText, TakesAnsiByteByCode) {
  constexpr Row kTable[] = {
      {"", ""},
      {"plain", "plain"},
      {"caf\xE9", "caf\u00E9"},
      {"\x80\x8A\x9F", "\u0080\u008A\u009F"},  // No letters, whatever some code page says.
      {"\xA0\xFF", "\u00A0\u00FF"},
      {"a\x91z\x92"
       "b",
       "a'z'b"},
      {"\x93quoted\x94", "\u0093quoted\""},
      {"\xC3\xA9", "\u00C3\u00A9"},  // Not taken for UTF-8.
      {"co\xADop", "coop"},
      {"\xAD", ""},
  };
  for (const Row& row : kTable) EXPECT_EQ(Decoded(row.Bytes, TextEncoding::Ansi), row.Text);
}

TEST(DecodeText, KnowsEveryAnsiByte) {
  for (int code = 0x80; code < 0x100; ++code) {
    if (code == 0x91 || code == 0x92 || code == 0x94 || code == 0xAD) continue;
    const std::string expected = {static_cast<char>(0xC0 | (code >> 6)),
                                  static_cast<char>(0x80 | (code & 0x3F))};
    EXPECT_EQ(Decoded(std::string(1, static_cast<char>(code)), TextEncoding::Ansi), expected);
  }
}

TEST(DecodeText, ReplacesThreeQuotesOnly) {
  EXPECT_EQ(Decoded("\u2018a\u2019s \u201Cb\u201D \u201Ec\u201F \u2026", TextEncoding::Utf8),
            "'a's \u201Cb\" \u201Ec\u201F \u2026");
}

TEST(DecodeText, DropsWhatIsInvisibleWithinWords) {
  constexpr Row kTable[] = {
      {"co\u00ADop\u00ADer", "cooper"},
      {"\uFEFFa\u2060b\uFEFF", "ab"},
      {"\u00AD", ""},
      // Only then are marks composed.
      {"e\u00AD\u0301", "\u00E9"},
      // Joiners matter to words.
      {"a\u200Cb\u200Dc\u200B", "a\u200Cb\u200Dc\u200B"},
      {"\u00AC\u00AE\u2061\uFEFE", "\u00AC\u00AE\u2061\uFEFE"},
  };
  for (const Row& row : kTable) EXPECT_EQ(Decoded(row.Bytes, TextEncoding::Utf8), row.Text);
}

TEST(DecodeText, KnowsTwoHyphensFromDashes) {
  EXPECT_EQ(Decoded("a\u2010b \u2011c\u2012d\u2013e\u2014", TextEncoding::Utf8),
            "a-b -c\u2012d\u2013e\u2014");
}

TEST(DecodeText, CountsIllFormedSequences) {
  struct Case {
    std::string_view Bytes;
    uint64_t IllFormed;
  };
  std::string buffer;
  for (const Case& c : {Case{"plain", 0}, Case{"caf\u00E9", 0}, Case{"\uFFFD", 0}, Case{"a\xFFz", 1},
                        Case{"\uFFFD\xE2\x80 \xC0\xAF", 3}, Case{"z\xC3", 1}}) {
    uint64_t count = 5;
    DecodeText(c.Bytes, TextEncoding::Utf8, buffer, &count);
    EXPECT_EQ(count, 5 + c.IllFormed) << c.Bytes;
    DecodeText(c.Bytes, TextEncoding::Ansi, buffer, &count);
    EXPECT_EQ(count, 5 + c.IllFormed) << c.Bytes;
  }
}

TEST(DecodeText, ReplacesTheLongestBeginningOfAnIllFormedSequence) {
  constexpr Row kTable[] = {
      {"a\xFFz", "a\uFFFDz"},
      {"a\x80\x80z", "a\uFFFD\uFFFDz"},                  // Nothing begins with these.
      {"\xC0\xAF", "\uFFFD\uFFFD"},                      // Overlong.
      {"\xE0\x80\xAF", "\uFFFD\uFFFD\uFFFD"},            // Overlong.
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},            // Surrogate.
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"},  // Beyond the last code.
      {"\xE2\x80z", "\uFFFDz"},
      {"\xF0\x9F\x98z", "\uFFFDz"},
      {"z\xE2\x80", "z\uFFFD"},  // Cut by the end.
      {"z\xC3", "z\uFFFD"},
      {"\xC3\xC3\xA9", "\uFFFD\u00E9"},
      {"\uFFFD", "\uFFFD"},
      {"\xFF\u2019", "\uFFFD'"},
  };
  for (const Row& row : kTable) EXPECT_EQ(Decoded(row.Bytes, TextEncoding::Utf8), row.Text);
}

TEST(DecodeText, Composes) {
  constexpr Row kTable[] = {
      {"cafe\u0301", "caf\u00E9"},
      {"e\u0301\u2019", "\u00E9'"},
      {"e\u0323\u0302", "\u1EC7"},
      {"e\u0302\u0323", "\u1EC7"},
      {"\u212B", "\u00C5"},
      {"\u1100\u1161\u11A8", "\uAC01"},
      {"\u0439\u00E9\u4E2D", "\u0439\u00E9\u4E2D"},
  };
  for (const Row& row : kTable) EXPECT_EQ(Decoded(row.Bytes, TextEncoding::Utf8), row.Text);
}

TEST(DecodeText, HandsOutTheBytesThemselvesWhereNothingChanges) {
  std::string buffer;
  for (const std::string_view text : {"plain", "caf\u00E9", "\u043A\u043E\u0448\u043A\u0430", "\u6F22"}) {
    EXPECT_EQ(DecodeText(text, TextEncoding::Utf8, buffer).data(), text.data());
  }
}

TEST(BeginsPart, IsWhereNothingBeforeCanChange) {
  struct Case {
    std::string_view Text;
    bool Begins;
  };
  for (const Case& c : {Case{"a", true},
                        {"\x7F", true},
                        {"\u00E9", true},
                        {"\u4E2D", true},
                        {"\u0301", false},  // A mark joins what stands before it.
                        {"\u00AD", false},  // What is dropped begins nothing.
                        {"\xE2\x82", false},
                        {"\xC3", false}})
    EXPECT_EQ(BeginsPart(c.Text, TextEncoding::Utf8), c.Begins) << testing::PrintToString(c.Text);
  for (const char* text : {"a", "\xCC\x81", "\xFF"})
    EXPECT_TRUE(BeginsPart(text, TextEncoding::Ansi)) << text;
}

}  // namespace
}  // namespace korv
