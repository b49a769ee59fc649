#include "engine/text/unicode.h"

#include <gtest/gtest.h>
#include <utf8proc.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace korv {
namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;

bool IsSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

std::string Utf8(std::u32string_view characters) {
  std::string text;
  for (const char32_t c : characters) AppendCharacter(c, text);
  return text;
}

/// The library's own composition, for texts too short to make it slow.
std::string Composed(const std::string& text) {
  utf8proc_uint8_t* bytes = nullptr;
  const utf8proc_ssize_t size = utf8proc_map(
      reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
      &bytes, static_cast<utf8proc_option_t>(UTF8PROC_COMPOSE | UTF8PROC_STABLE));
  std::string composed(reinterpret_cast<const char*>(bytes), size < 0 ? 0 : static_cast<size_t>(size));
  std::free(bytes);
  return composed;
}

TEST(Unicode, EveryCharacterComesBack) {
  for (char32_t c = 0; c <= kLastCharacter; ++c) {
    if (IsSurrogate(c)) continue;
    const std::string text = Utf8({&c, 1});
    size_t at = 0;
    ASSERT_EQ(NextCharacter(text, at), c);
    ASSERT_EQ(at, text.size());
    ASSERT_EQ(CharacterCount(text), 1U);
  }
}

TEST(Unicode, IllFormedSequencesAdvanceByTheirLongestBeginning) {
  struct Row {
    std::string_view Bytes;
    size_t Advance;
  };
  constexpr Row kTable[] = {
      {"\x80", 1},         {"\xC0\x80", 1},     {"\xC1\xBF", 1},     {"\xC3", 1},
      {"\xC3z", 1},        {"\xE0\x9F\x80", 1}, {"\xE0\xA0", 2},     {"\xE2\x80z", 2},
      {"\xED\xA0\x80", 1}, {"\xED\x9F", 2},     {"\xF0\x8F\x80", 1}, {"\xF0\x90\x80z", 3},
      {"\xF4\x90\x80", 1}, {"\xF4\x8F\xBF", 3}, {"\xF5\x80", 1},     {"\xFF", 1}};
  for (const Row& row : kTable) {
    size_t at = 0;
    EXPECT_EQ(NextCharacter(row.Bytes, at), kReplacementCharacter);
    EXPECT_EQ(at, row.Advance) << testing::PrintToString(row.Bytes);
  }
}

TEST(Unicode, AsciiIsSeenAtEveryPlaceAndLength) {
  for (size_t length = 0; length < 80; ++length) {
    std::string text(length, 'a');
    EXPECT_TRUE(IsAscii(text));
    for (size_t at = 0; at < length; ++at) {
      text[at] = '\x80';
      EXPECT_FALSE(IsAscii(text));
      text[at] = 'a';
    }
  }
}

TEST(Unicode, EveryCharacterComposesAsTheLibraryDoes) {
  for (char32_t c = 0; c <= kLastCharacter; ++c) {
    if (IsSurrogate(c)) continue;
    // After a letter that takes many marks, and before one.
    for (const std::u32string& text : {std::u32string{U'e', c}, std::u32string{c, U'\u0323', U'\u0301'}}) {
      const std::string bytes = Utf8(text);
      ASSERT_EQ(ToNfc(bytes), Composed(bytes)) << std::hex << static_cast<uint32_t>(c);
    }
  }
}

TEST(Unicode, OrdersMarksBeforeItComposes) {
  const std::u32string_view kMarks = U"\u0301\u0302\u0323\u0327\u0345e\u05B0\u3099か";
  for (const char32_t a : kMarks)
    for (const char32_t b : kMarks)
      for (const char32_t c : kMarks) {
        const std::string text = Utf8(std::u32string{U'a', a, b, c, U'z', c, a});
        ASSERT_EQ(ToNfc(text), Composed(text)) << text;
      }
}

TEST(Unicode, ComposesLongTextsAsTheLibraryDoes) {
  // Words with and without marks in every order, with and without ASCII between them, at every distance.
  const std::u32string_view kWords[] = {
      U"plain",    U"e\u0301",        U" ",    U"\u0301", U"na\u00EFve",           U"\u1112\u1161\u11AB",
      U"か\u3099", U"x\u0323\u0302y", U"漢字", U"\u0323", U"longer words of ASCII"};
  constexpr size_t kCount = std::size(kWords);
  for (size_t n = 0; n < kCount * kCount * kCount * kCount; ++n) {
    std::u32string text;
    for (size_t rest = n, k = 0; k < 4; ++k, rest /= kCount) text += kWords[rest % kCount];
    ASSERT_EQ(ToNfc(Utf8(text)), Composed(Utf8(text))) << Utf8(text);
  }
}

TEST(Unicode, FindsWhereAsciiEnds) {
  for (size_t length = 0; length < 40; ++length) {
    for (size_t at = 0; at <= length; ++at) {
      std::string text(length, 'a');
      EXPECT_EQ(PastAscii(text, at), length);
      for (size_t foreign = at; foreign < length; ++foreign) {
        text.assign(length, 'a');
        text[foreign] = '\x80';
        EXPECT_EQ(PastAscii(text, at), foreign);
      }
    }
  }
}

TEST(Unicode, WhatIsCertainlyComposedIs) {
  for (char32_t c = 0; c <= kLastCharacter; ++c) {
    if (IsSurrogate(c)) continue;
    const std::string text = Utf8(std::u32string{U'e', c, U'か', c});
    if (IsCertainlyNfc(text)) {
      ASSERT_EQ(Composed(text), text) << std::hex << static_cast<uint32_t>(c);
    }
  }
  for (const std::string_view text :
       {"", "plain", "naïve", "кошка", "οδός", "tiếng Việt", "漢字 かな", "한국"}) {
    EXPECT_TRUE(IsCertainlyNfc(text)) << text;
  }
}

TEST(Unicode, StacksOfMarksTakeNoLongerThanTheirLength) {
  std::string text = "e";
  for (int k = 0; k < 500'000; ++k) text += Utf8(U"\u0301\u0323");
  const std::string composed = ToNfc(text);
  EXPECT_EQ(composed.substr(0, 3), Utf8(U"\u1EB9"));
  EXPECT_EQ(CharacterCount(composed), 1'000'000U);
}

TEST(Unicode, LowersCharacterByCharacter) {
  EXPECT_EQ(LowerText("ÀÉÞŸ ŠŒ ΟΔΌΣ ТОМ ẞ İ ǅ A1_z"), "àéþÿ šœ οδόσ том ß i ǆ a1_z");
  for (char32_t c = 0; c < 0x80; ++c) {
    EXPECT_EQ(LowerCharacter(c), c >= 'A' && c <= 'Z' ? c + 32 : c);
  }
}

TEST(Unicode, FoldsCaseIntoNfc) {
  struct Row {
    std::string_view From;
    std::string_view To;
  };
  constexpr Row kTable[] = {{"", ""},
                            {"Cat ÉTÉ", "cat été"},
                            // These have no composed form as capitals.
                            {"T\u0308", "\u1E97"},
                            {"\u0397\u0342", "\u1FC6"},
                            {"J\u030C", "\u01F0"},
                            {"aT\u0308bT\u0308", "a\u1E97b\u1E97"},
                            {"\u1E97", "\u1E97"}};
  for (const Row& row : kTable) {
    EXPECT_EQ(FoldCase(row.From), row.To);
    EXPECT_EQ(FoldCase(row.To), row.To);
  }
}

TEST(Unicode, KnowsLettersAndMarks) {
  constexpr std::u32string_view kLetters = U"aZéßŁяω漢한\u02B0\U00010400";
  constexpr std::u32string_view kMarks = U"\u0301\u20DD\u0903\uFE0F\U0001D165";
  constexpr std::u32string_view kOthers = U"1 _-×\u00A0\u2014\u0660\u2160\uFFFD€\u200C\u200D\U0001F600";
  for (const char32_t c : kLetters)
    EXPECT_TRUE(IsUnicodeLetter(c) && !IsUnicodeMark(c)) << static_cast<uint32_t>(c);
  for (const char32_t c : kMarks)
    EXPECT_TRUE(IsUnicodeMark(c) && !IsUnicodeLetter(c)) << static_cast<uint32_t>(c);
  for (const char32_t c : kOthers)
    EXPECT_FALSE(IsUnicodeLetter(c) || IsUnicodeMark(c)) << static_cast<uint32_t>(c);
}

}  // namespace
}  // namespace korv
