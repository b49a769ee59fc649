#include "sources/detect/classification.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/fake_files.h"

namespace korv {
namespace {

using Code = TextFileCode;
using Signature = EncodingSignature;
using namespace std::string_literals;

std::string Plain(size_t bytes) {
  return std::string(bytes, 'a');
}

std::string WithByteAt(size_t bytes, size_t position, char byte) {
  std::string text = Plain(bytes);
  text[position - 1] = byte;
  return text;
}

struct Case {
  std::string About;
  std::string Path;
  std::string Content;
  double Threshold;
  TextFileCode Code;
  bool IsUtf8 = false;
};

class Classification : public testing::TestWithParam<Case> {};

TEST_P(Classification, IsAsTabled) {
  const Case& c = GetParam();
  SCOPED_TRACE(c.About);
  FakeFiles files;
  files.Add(c.Path, c.Content);
  uint8_t first = 0;
  int32_t position = 0;
  double percent = -1;
  bool isUtf8 = true;
  EXPECT_EQ(
      ClassifyTextFile(files, c.Path, kScannedBytes, first, position, c.Threshold, percent, isUtf8, true),
      c.Code);
  EXPECT_EQ(isUtf8, c.IsUtf8);
  const OpenedText source = OpenTextSource(files, c.Path, c.Threshold);
  EXPECT_EQ(source.Facts.Code, c.Code);
  EXPECT_EQ(source.Facts.IsUtf8, c.IsUtf8);
  ASSERT_TRUE(source.File);
  EXPECT_EQ(source.Head, c.Content.substr(0, kScannedBytes));
}

const std::string kBlankLines = "\n \r\n\t\n\r";

std::vector<Case> Cases() {
  return {
      {"an empty file", "/a.txt", "", 1, Code::ZeroLength},
      {"one byte", "/a.txt", "a", 1, Code::TooShort},
      {"three bytes of text are too short", "/a.txt", "abc", 1, Code::TooShort},
      {"a signature alone is too short", "/a.txt", "\xEF\xBB\xBFz", 1, Code::TooShort},
      {"five bytes are enough", "/a.txt", "abcde", 1, Code::WindowsText},
      {"CR LF", "/a.txt", "one\r\ntwo\r\n", 1, Code::WindowsText},
      {"no line end at all", "/a.txt", "one two", 1, Code::WindowsText},
      {"LF only", "/a.txt", "one\ntwo\n", 1, Code::UnixText},
      {"CR only", "/a.txt", "one\rtwo\r", 1, Code::MacText},
      {"LF here and CR there", "/a.txt", "one\ntwo\rthree", 1, Code::WindowsText},
      {"RTF", "/a.txt", "{\\rtf1 text}", 1, Code::Rtf},
      {"RTF needs all five bytes", "/a.txt", "{\\rt 1 text", 1, Code::WindowsText},
      {"UTF-16 little-endian", "/a.txt", "\xFF\xFE" + "a\0b\0"s, 1, Code::UnicodeNotUtf8},
      {"UTF-32 little-endian begins as UTF-16 does", "/a.txt", "\xFF\xFE\0\0a\0\0\0"s, 1,
       Code::UnicodeNotUtf8},
      {"UTF-16 big-endian", "/a.txt", "\xFE\xFF\0a\0b"s, 1, Code::UnicodeNotUtf8},
      {"UTF-32 big-endian", "/a.txt", "\0\0\xFE\xFF\0\0\0a"s, 1, Code::UnicodeNotUtf8},
      {"a UTF-8 signature hides LF line ends", "/a.txt", "\xEF\xBB\xBFone\ntwo\n", 1, Code::WindowsText,
       true},
      {"a UTF-8 signature hides control bytes", "/a.txt", "\xEF\xBB\xBF\0\0\0\0\0"s, 1, Code::WindowsText,
       true},
      {"XML is UTF-8 without a signature", "/a.XML", "<?xml version='1.0'?>\n", 1, Code::WindowsText, true},
      {"the same in a .txt is ANSI", "/a.txt", "<?xml version='1.0'?>\n", 1, Code::UnixText},
      {"XML in UTF-16 little-endian", "/a.xml", "<\0?\0x\0m\0"s, 1, Code::UnicodeNotUtf8},
      {"XML in UTF-16 big-endian", "/a.xml", "\0<\0?\0x\0m"s, 1, Code::UnicodeNotUtf8},
      {"XML that does not begin with a tag", "/a.xml", "text\n<a/>", 1, Code::UnixText},
      {"charset=UTF-8", "/a.html", "<meta charset=UTF-8>\n", 1, Code::WindowsText, true},
      {"charset=\"UTF-8\"", "/a.htm", "<meta charset=\"UTF-8\">\n", 1, Code::WindowsText, true},
      {"charset='UTF-8' is no declaration", "/a.htm", "<meta charset='UTF-8'>\n", 1, Code::UnixText},
      {"charset=utf-8 is no declaration", "/a.html", "<meta charset=utf-8>\nx", 1, Code::UnixText},
      {"charset=utf-8 with general punctuation", "/a.html", "<meta charset=utf-8>\n\xE2\x80\x9Cx", 1,
       Code::WindowsText, true},
      {"general punctuation alone", "/a.txt", "a \xE2\x80\x93 b", 1, Code::WindowsText, true},
      {"other UTF-8 does not count", "/a.txt", "caf\xC3\xA9 \xE2\x82\xAC", 1, Code::WindowsText},
      {"no declaration counts in other files", "/a.md", "charset=UTF-8 \xE2\x80\x93", 1, Code::WindowsText},
      {"a file without extension", "/txt", "charset=UTF-8\n", 1, Code::UnixText},
      {"line 10 counts", "/a.txt", "1\n2\n3\n4\n5\n6\n7\n8\n9\ncharset=UTF-8", 1, Code::WindowsText, true},
      {"line 11 does not", "/a.txt", "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\ncharset=UTF-8", 1, Code::UnixText},
      {"blank lines do not count as lines", "/a.txt",
       kBlankLines + "1\n2\n3\n4\n5\n" + kBlankLines + "6\n7\n8\n9\ncharset=UTF-8", 1, Code::WindowsText,
       true},
      {"a declaration is not put together from two lines", "/a.txt", "charset=\nUTF-8", 1, Code::UnixText},
      {"a declaration beyond the head, in the first line", "/a.txt", Plain(70000) + "charset=UTF-8", 1,
       Code::WindowsText, true},
      {"a declaration across the end of the head", "/a.txt", Plain(kScannedBytes - 5) + "charset=\"UTF-8\"",
       1, Code::WindowsText, true},
      {"a declaration across the end of a piece", "/a.txt",
       Plain(kScannedBytes + 65536 - 9) + "charset=\"UTF-8\"", 1, Code::WindowsText, true},
      {"a late declaration after ten long lines", "/a.txt",
       [] {
         std::string text;
         for (int k = 0; k < 10; ++k) text += Plain(3000) + "\n";
         return text + "charset=UTF-8";
       }(),
       1, Code::UnixText},
      {"one NUL at 4000 of 5000 is text for a run", "/a.txt", WithByteAt(5000, 4000, '\0'), 1,
       Code::WindowsText},
      {"one NUL at 4000 of 5000 is no text for word lists", "/a.txt", WithByteAt(5000, 4000, '\0'), 0,
       Code::NotText},
      {"a NUL beyond the scan is not seen", "/a.txt", WithByteAt(20000, 16385, '\0'), 0, Code::WindowsText},
      {"the last scanned byte is seen", "/a.txt", WithByteAt(20000, 16384, '\0'), 0, Code::NotText},
      {"exactly 1 % is text", "/a.txt", std::string(10, '\x01') + Plain(990), 1, Code::WindowsText},
      {"more than 1 % is none", "/a.txt", std::string(11, '\x01') + Plain(989), 1, Code::NotText},
      {"form feed, tab and backspace are no anomalies", "/a.txt", "\f\t\b\r\n", 0, Code::WindowsText},
      {"bytes from 127 on are no anomalies", "/a.txt", "\x7F\x80\x81\xFF\xFE", 0, Code::WindowsText},
      {"vertical tab, escape and unit separator are", "/a.txt", "\x0B\x1B\x1F" + Plain(9), 0, Code::NotText},
      {"the share can recover before the early stop", "/a.txt", std::string(300, '\x01') + Plain(16084), 2,
       Code::WindowsText},
      {"the early stop: over 10 % at byte 3277", "/a.txt", std::string(328, '\x01') + Plain(16056), 1,
       Code::NotText},
  };
}

INSTANTIATE_TEST_SUITE_P(Files, Classification, testing::ValuesIn(Cases()),
                         [](const auto& row) { return "case_" + std::to_string(row.index); });

TEST(ClassifyTextFile, TellsTheFirstAnomalyAndTheShare) {
  FakeFiles files;
  std::string text = Plain(200);
  text[6] = '\x02';
  text[9] = '\x01';
  files.Add("/a.txt", text);
  uint8_t first = 0;
  int32_t position = 0;
  double percent = -1;
  bool isUtf8 = false;
  EXPECT_EQ(ClassifyTextFile(files, "/a.txt", kScannedBytes, first, position, 1.0, percent, isUtf8, true),
            Code::WindowsText);
  EXPECT_EQ(first, 2);
  EXPECT_EQ(position, 7);
  EXPECT_DOUBLE_EQ(percent, 1.0);
}

TEST(ClassifyTextFile, WithoutAnomalySaysBlankAndZero) {
  FakeFiles files;
  files.Add("/a.txt", Plain(10));
  const OpenedText source = OpenTextSource(files, "/a.txt", 1.0);
  EXPECT_EQ(source.Facts.FirstAnomalousByte, 32);
  EXPECT_EQ(source.Facts.AnomalyPercent, 0);
}

TEST(ClassifyTextFile, StopsEarlyWithTheShareOfThatPlace) {
  FakeFiles files;
  // 10.01 % at byte 3277, where the scan may stop for the first time.
  files.Add("/a.txt", std::string(328, '\x01') + Plain(20000));
  EXPECT_DOUBLE_EQ(OpenTextSource(files, "/a.txt", 1.0).Facts.AnomalyPercent, 328 * 100.0 / 3277);
  // 10 % there is not yet more than 10 %; the whole scan then says 2.0 %.
  files.Add("/b.txt", std::string(327, '\x01') + Plain(20000));
  EXPECT_DOUBLE_EQ(OpenTextSource(files, "/b.txt", 1.0).Facts.AnomalyPercent, 327 * 100.0 / 16384);
}

TEST(ClassifyTextFile, WithoutTheDeclaredCharsetLooksAtTheSignatureOnly) {
  FakeFiles files;
  files.Add("/a.htm", "charset=UTF-8\n");
  EXPECT_EQ(ProbeTextEncoding(files, "/a.htm", false), Signature::None);
  EXPECT_EQ(ProbeTextEncoding(files, "/a.htm"), Signature::Utf8);
}

TEST(ProbeTextEncoding, TellsEverySignature) {
  struct Row {
    std::string Content;
    EncodingSignature Signature;
  };
  const std::vector<Row> rows = {
      {"", Signature::ZeroLength},
      {"abcd", Signature::TooShort},
      {"{\\rtf", Signature::Rtf},
      {"\xFF\xFE\0\0\0"s, Signature::Utf16LittleEndian},
      {"\xFE\xFF\0\0\0"s, Signature::Utf16BigEndian},
      {"\xEF\xBB\xBF..", Signature::Utf8},
      {"\0\0\xFE\xFF."s, Signature::Utf32BigEndian},
      {"abcde", Signature::None},
  };
  for (const Row& row : rows) {
    FakeFiles files;
    files.Add("/a.bin", row.Content);
    EXPECT_EQ(ProbeTextEncoding(files, "/a.bin"), row.Signature) << testing::PrintToString(row.Content);
  }
}

TEST(ProbeTextEncoding, TellsWhyAFileCannotBeOpened) {
  FakeFiles files;
  files.AddFolder("/folder");
  files.Add("/denied.txt", "text text");
  files.Refuse("/denied.txt", FileFault::PermissionDenied);
  files.Add("/broken.txt", "text text");
  files.Refuse("/broken.txt", FileFault::Other);
  EXPECT_EQ(ProbeTextEncoding(files, ""), Signature::NoPath);
  EXPECT_EQ(ProbeTextEncoding(files, "/missing.txt"), Signature::NotFound);
  EXPECT_EQ(ProbeTextEncoding(files, "/folder"), Signature::NotFound);
  EXPECT_EQ(ProbeTextEncoding(files, "/denied.txt"), Signature::PermissionDenied);
  EXPECT_EQ(ProbeTextEncoding(files, "/broken.txt"), Signature::CannotOpen);
  EXPECT_EQ(OpenTextSource(files, "/denied.txt", 1).Facts.Code, Code::PermissionDenied);
}

TEST(OpenTextSource, OpensTheFileOnceAndStandsAfterTheHead) {
  FakeFiles files;
  const std::string text = Plain(30000) + "the end";
  files.Add("/a.txt", text);
  files.ReadInPiecesOf(1000);
  OpenedText source = OpenTextSource(files, "/a.txt", kRunThreshold);
  EXPECT_EQ(files.Openings(), 1);
  std::string all = source.Head;
  char buffer[777];
  for (;;) {
    const auto got = source.File->Read(buffer);
    ASSERT_TRUE(got);
    if (*got == 0) break;
    all.append(buffer, *got);
  }
  EXPECT_EQ(all, text);
}

TEST(OpenTextSource, AnyFailingReadGivesACodeAndNoCrash) {
  for (int call = 1;; ++call) {
    FakeFiles files;
    files.Add("/a.txt", Plain(100000));
    files.ReadInPiecesOf(9000);
    files.FailCall(call);
    const OpenedText source = OpenTextSource(files, "/a.txt", kRunThreshold);
    if (!files.FailureHappened()) break;
    // Where only the search for a declaration fails, the file is read as if there were none.
    EXPECT_TRUE(source.Facts.Code == Code::CannotOpen || source.Facts.Code == Code::WindowsText) << call;
    EXPECT_FALSE(source.Facts.IsUtf8);
    ASSERT_LT(call, 100);
  }
}

TEST(ReadFirstLines, JoinsTheLinesWithCrLf) {
  struct Row {
    std::string Content;
    int MaxLines;
    bool SkipBlank;
    std::string Expected;
  };
  const std::vector<Row> rows = {
      {"", 10, true, ""},
      {"one", 10, true, "one"},
      {"one\ntwo\rthree\r\nfour", 10, true, "one\r\ntwo\r\nthree\r\nfour"},
      {"one\ntwo\nthree", 2, true, "one\r\ntwo"},
      {"\n\n one\n \t\n\ntwo\n", 2, true, " one\r\ntwo"},
      {"\n\none\n", 2, false, "\r\n"},
      {"\none\n", 2, false, "\r\none"},
      {"one\n   ", 10, true, "one"},
      {"\r\n\r\none", 10, true, "one"},
      {"one\n", 0, true, ""},
  };
  for (const Row& row : rows) {
    for (const size_t piece : {size_t{1}, size_t{2}, SIZE_MAX}) {
      FakeFiles files;
      files.Add("/a", row.Content);
      files.ReadInPiecesOf(piece);
      const auto lines = ReadFirstLines(files, "/a", row.MaxLines, row.SkipBlank);
      ASSERT_TRUE(lines);
      EXPECT_EQ(*lines, row.Expected) << testing::PrintToString(row.Content) << " in pieces of " << piece;
    }
  }
  FakeFiles files;
  EXPECT_EQ(ReadFirstLines(files, "/a", 1, true).Error().Fault, FileFault::NotFound);
}

TEST(FileExtension, IsWhatFollowsTheLastDotOfTheName) {
  EXPECT_EQ(FileExtension("a.TXT", false), "TXT");
  EXPECT_EQ(FileExtension("a.TXT", true), "txt");
  EXPECT_EQ(FileExtension("C:\\x.y\\name", true), "");
  EXPECT_EQ(FileExtension("/x.y/name", true), "");
  EXPECT_EQ(FileExtension("/x.y\\a.tar.gz", true), "gz");
  EXPECT_EQ(FileExtension("name.", true), "");
  EXPECT_EQ(FileExtension(".profile", true), "profile");
  EXPECT_EQ(FileExtension("", true), "");
}

TEST(IsPlainTextExtension, KnowsElevenExtensionsInAnyCase) {
  for (const char* name :
       {"prn", "csv", "xhtml", "xhtm", "shtml", "shtm", "html", "htm", "xml", "log", "txt"}) {
    EXPECT_TRUE(IsPlainTextExtension(std::string("a.") + name)) << name;
  }
  EXPECT_TRUE(IsPlainTextExtension("A.HTML"));
  for (const char* name : {"a.md", "a.php", "a.c", "txt", "a.docx", ""}) {
    EXPECT_FALSE(IsPlainTextExtension(name)) << name;
  }
}

}  // namespace
}  // namespace korv
