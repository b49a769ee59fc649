#include "sources/detect/declared_encoding.h"

#include <gtest/gtest.h>

#include "sources/read/whole_text.h"

namespace korv {
namespace {

using namespace std::string_literals;

TEST(DeclaredEncoding, IsWhatTheTextSays) {
  struct Case {
    std::string Head;
    MarkupLanguage Language;
    const char* Encoding;
  };
  const Case cases[] = {
      {"plain", MarkupLanguage::None, ""},
      {"\xEF\xBB\xBFone", MarkupLanguage::None, "UTF-8"},
      {"\xFF\xFEo\0"s, MarkupLanguage::None, "UTF-16LE"},
      {"\xFE\xFF\0o"s, MarkupLanguage::Html, "UTF-16BE"},
      {"\xFF\xFE\0\0o\0\0\0"s, MarkupLanguage::None, "UTF-32LE"},
      {"\0\0\xFE\xFF\0\0\0o"s, MarkupLanguage::None, "UTF-32BE"},
      {"<meta charset=koi8-r>", MarkupLanguage::Html, "KOI8-R"},
      {"<meta charset=koi8-r>", MarkupLanguage::None, ""},
      {"<META CharSet = 'Shift_JIS'>", MarkupLanguage::Html, "CP932"},
      {"<meta http-equiv=x content=\"text/html; charset=iso-8859-1\">", MarkupLanguage::Php, "WINDOWS-1252"},
      {"<meta name=charset><meta charset=utf-8>", MarkupLanguage::Html, "UTF-8"},
      {"<meta charset=utf-16>", MarkupLanguage::Html, "UTF-8"},
      {"<?xml version='1.0' encoding='ISO-8859-2'?>", MarkupLanguage::Xml, "ISO-8859-2"},
      {"<?xml version='1.0'?>", MarkupLanguage::Xml, ""},
      {"<meta charset=", MarkupLanguage::Html, ""},
      {"<meta", MarkupLanguage::Html, ""},
  };
  for (const Case& c : cases) EXPECT_EQ(DeclaredEncoding(c.Head, c.Language), c.Encoding) << c.Head;
}

TEST(TextInUtf8, DecodesByName) {
  struct Case {
    std::string Bytes;
    const char* Encoding;
    std::string Text;
  };
  const Case cases[] = {
      {"\xEF\xBB\xBFone", "UTF-8", "one"},
      {"\xFF\xFEo\0\xE9\0"s, "UTF-16LE", "o\u00E9"},
      {"\xFE\xFF\0o\xD8\x3D\xDE\x00"s, "UTF-16BE", "o\U0001F600"},
      {"\xD8\x3D\0o\xDE\x00"s, "UTF-16BE", "\uFFFDo\uFFFD"},
      {"\0o\0"s, "UTF-16BE", "o\uFFFD"},
      {"\0\0\xFE\xFF\0\0\0o\0\x11\0\0"s, "UTF-32BE", "o\uFFFD"},
      {"o\0\0\0"s, "UTF-32LE", "o"},
      {"\x93 caf\xE9", "WINDOWS-1252", "\u201C caf\u00E9"},
      {"\xC1\xC2", "KOI8-R", "\u0430\u0431"},
      {"", "UTF-16LE", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(TextInUtf8(c.Bytes, c.Encoding), c.Text) << c.Encoding;
  EXPECT_EQ(TextInUtf8("one", "NO-SUCH"), std::nullopt);
}

}  // namespace
}  // namespace korv
