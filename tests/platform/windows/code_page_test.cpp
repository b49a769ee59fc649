#include "platform/code_page.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace korv {
namespace {

std::string Encoded(CodePage& page, std::string_view text) {
  std::string bytes;
  page.Encode(text, bytes);
  return bytes;
}

TEST(CodePage, WritesCharactersInItsEncodingAndAQuestionMarkForThoseThatItLacks) {
  struct Row {
    const char* Name;
    const char* Text;
    const char* Bytes;
  };
  for (const Row& row : {Row{"1252", "", ""}, Row{"1252", "plain\ttext\r\n", "plain\ttext\r\n"},
                         Row{"1252", "café € œ", "caf\xE9 \x80 \x9C"}, Row{"1252", "Ελλάς", "?????"},
                         Row{"1252", "a𝄞b", "a?b"}, Row{"1252", "𝄞😀", "??"}, Row{"1252", "a\xFFz", "a?z"},
                         // No letter that merely looks alike, and no letter without its accent.
                         Row{"1252", "Łódź", "?\xF3\x64?"}, Row{"1252", "e\xCC\x81", "e?"},
                         Row{"1252", "ａ∞", "??"}, Row{"1250", "Łódź", "\xA3\xF3\x64\x9F"},
                         Row{"1250", "ñ", "?"}, Row{"932", "日本語 é", "\x93\xFA\x96{\x8C\xEA ?"},
                         Row{"932", "ｱア", "\xB1\x83\x41"}, Row{"1253", "Ελλάς", "\xC5\xEB\xEB\xDC\xF2"}}) {
    const auto page = CodePageOfName(row.Name);
    ASSERT_NE(page, nullptr) << row.Name;
    EXPECT_EQ(Encoded(*page, row.Text), row.Bytes) << row.Name << ' ' << row.Text;
  }
}

TEST(CodePage, AppendsPieceByPiece) {
  const auto page = CodePageOfName("1252");
  ASSERT_NE(page, nullptr);
  std::string bytes = "before ";
  page->Encode("é", bytes);
  page->Encode("Ł", bytes);
  page->Encode("è", bytes);
  EXPECT_EQ(bytes, "before \xE9?\xE8");
}

TEST(CodePage, TakesAPieceOfAnySize) {
  const auto page = CodePageOfName("1252");
  ASSERT_NE(page, nullptr);
  std::string text;
  std::string bytes;
  for (int k = 0; k < 100000; ++k) {
    text += k % 7 == 0 ? "𝄞" : "é";
    bytes += k % 7 == 0 ? '?' : '\xE9';
  }
  EXPECT_EQ(Encoded(*page, text), bytes);
}

TEST(CodePage, Utf8AndWhatSaysNothingNeedNone) {
  // 20127 is plain ASCII.
  for (const char* name : {"65001", "20127", "", "UTF-8", "no such code page", "12520", "1252x", "-1252"})
    EXPECT_EQ(CodePageOfName(name), nullptr) << name;
}

TEST(CodePage, OneThatTheConverterDoesNotTakeAReplacementForIsNone) {
  EXPECT_EQ(CodePageOfName("65000"), nullptr);
  for (const char* name : {"50220", "54936"}) {
    const auto page = CodePageOfName(name);
    EXPECT_TRUE(!page || Encoded(*page, "a") == "a") << name;
  }
}

TEST(CodePage, TheSystemHasTheOneThatItsProgramsWrite) {
  const auto page = SystemCodePage();
  const auto named = CodePageOfName(std::to_string(GetACP()));
  ASSERT_EQ(page == nullptr, named == nullptr);
  if (page) {
    EXPECT_EQ(Encoded(*page, "aé日"), Encoded(*named, "aé日"));
  }
}

}  // namespace
}  // namespace korv
