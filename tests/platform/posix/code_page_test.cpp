#include "platform/code_page.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <optional>

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
  for (const Row& row :
       {Row{"ISO-8859-1", "", ""}, Row{"ISO-8859-1", "plain\ttext\r\n", "plain\ttext\r\n"},
        Row{"ISO-8859-1", "café", "caf\xE9"}, Row{"ISO-8859-1", "€ ÿ", "? \xFF"},
        Row{"ISO-8859-1", "Ελλάς", "?????"}, Row{"ISO-8859-1", "a𝄞b", "a?b"},
        Row{"ISO-8859-1", "œuvre œ", "?uvre ?"}, Row{"ISO-8859-1", "e\xCC\x81", "e?"},
        Row{"ISO-8859-1", "a\xFF\xFE z", "a?? z"}, Row{"ISO-8859-7", "Ελλάς", "\xC5\xEB\xEB\xDC\xF2"},
        Row{"WINDOWS-1252", "€ œ", "\x80 \x9C"},
        Row{"ISO-2022-JP", "日é本", "\x1B$BF|\x1B(B?\x1B$BK\\\x1B(B"}}) {
    const auto page = CodePageOfName(row.Name);
    ASSERT_NE(page, nullptr) << row.Name;
    EXPECT_EQ(Encoded(*page, row.Text), row.Bytes) << row.Name << ' ' << row.Text;
  }
}

TEST(CodePage, AppendsPieceByPiece) {
  const auto page = CodePageOfName("ISO-8859-1");
  ASSERT_NE(page, nullptr);
  std::string bytes = "before ";
  page->Encode("é", bytes);
  page->Encode("€", bytes);
  page->Encode("è", bytes);
  EXPECT_EQ(bytes, "before \xE9?\xE8");
}

TEST(CodePage, TakesAPieceOfAnySize) {
  const auto page = CodePageOfName("ISO-8859-1");
  ASSERT_NE(page, nullptr);
  std::string text;
  std::string bytes;
  for (int k = 0; k < 100000; ++k) {
    text += k % 7 == 0 ? "€" : "é";
    bytes += k % 7 == 0 ? '?' : '\xE9';
  }
  EXPECT_EQ(Encoded(*page, text), bytes);
}

TEST(CodePage, Utf8AndWhatSaysNothingNeedNone) {
  for (const char* name : {"UTF-8", "utf8", "ANSI_X3.4-1968", "US-ASCII", "", "no such code page"})
    EXPECT_EQ(CodePageOfName(name), nullptr) << name;
}

/// Sets a variable of the environment for as long as it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* before = ::getenv(name)) before_ = before;
    ::setenv(name, value, 1);
  }
  ~Variable() {
    if (before_)
      ::setenv(name_, before_->c_str(), 1);
    else
      ::unsetenv(name_);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(CodePage, TheSystemIsUtf8UnlessItsLocaleSaysOtherwise) {
  for (const char* locale : {"C", "POSIX", "C.UTF-8", "xx_YY.ISO-8859-1"}) {
    const Variable all("LC_ALL", locale);
    EXPECT_EQ(SystemCodePage(), nullptr) << locale;
  }
}

}  // namespace
}  // namespace korv
