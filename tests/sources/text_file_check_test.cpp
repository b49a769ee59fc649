#include "sources/detect/text_file_check.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/detect/file_size_text.h"
#include "sources/questions.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

using namespace std::string_literals;

const std::string kCopyAdvice =
    "You could try reading it using its associated application, then copying the text and pasting it into "
    "the "
    "textbox (then copy it to the clipboard and select 'Clipboard' as the source).";

class IsTextFileTest : public testing::Test {
 protected:
  bool Check(const std::string& path, bool silent = false, bool ask = true) {
    return IsTextFile(check, path, silent, ask, opened);
  }
  void ExpectOnly(const std::string& text, const std::string& title) {
    ASSERT_EQ(messages.Shown.size(), 1U);
    EXPECT_EQ(messages.Shown[0].Text, text);
    EXPECT_EQ(messages.Shown[0].Title, title);
    EXPECT_EQ(messages.Shown[0].Icon, Icon::Information);
    EXPECT_EQ(messages.Shown[0].Buttons, Buttons::Ok);
  }

  FakeFiles files;
  FakeMessages messages;
  NumberFormat format;
  int cleared = 0;
  TextFileCheck check{files, messages, format, [this] { ++cleared; }};
  OpenedText opened;
};

TEST_F(IsTextFileTest, FatalCodesAreShownEvenWhenSilent) {
  files.Add("/empty", "");
  files.Add("/denied", "some text");
  files.Refuse("/denied", FileFault::PermissionDenied);
  files.Add("/short", "abc");
  files.Add("/broken", "some text");
  files.Refuse("/broken", FileFault::Other);
  files.Add("/a.rtf", "{\\rtf1}");
  files.Add("/wide", "\xFF\xFE" + "a\0b\0"s);
  struct Row {
    const char* Path;
    TextFileCode Code;
    const char* Text;
  };
  const std::vector<Row> rows = {
      {"/missing", TextFileCode::NotFound, "File /missing not found."},
      {"/empty", TextFileCode::ZeroLength, "File /empty is zero-length."},
      {"/denied", TextFileCode::PermissionDenied, "File /denied\n cannot be opened (permission denied)."},
      {"/short", TextFileCode::TooShort, "File /short\ncontains only from 1 to 4 bytes."},
      {"/broken", TextFileCode::CannotOpen, "File /broken\ncannot be opened."},
      {"/a.rtf", TextFileCode::Rtf, "File /a.rtf\nis an RTF file."},
      {"/wide", TextFileCode::UnicodeNotUtf8, "File /wide\nis a Unicode file but not UTF-8 encoded."},
  };
  for (const Row& row : rows) {
    for (const bool silent : {false, true}) {
      messages.Forget();
      EXPECT_FALSE(Check(row.Path, silent));
      EXPECT_EQ(opened.Facts.Code, row.Code);
      ExpectOnly(row.Text, "Fatal error");
    }
  }
}

TEST_F(IsTextFileTest, NoPathIsRefusedWithoutAWord) {
  EXPECT_FALSE(Check(""));
  EXPECT_EQ(opened.Facts.Code, TextFileCode::NoPath);
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(IsTextFileTest, EmptiesTheOutputBoxFirst) {
  files.Add("/a", "plain words");
  EXPECT_TRUE(Check("/a", true));
  EXPECT_EQ(cleared, 1);
  check.ClearOutput = nullptr;
  EXPECT_TRUE(Check("/a", true));
}

TEST_F(IsTextFileTest, OneControlByteIsOneTooMany) {
  files.Add("/a", std::string(4999, 'a') + '\0');
  EXPECT_FALSE(Check("/a", true));
  EXPECT_EQ(opened.Facts.Code, TextFileCode::NotText);
  ExpectOnly(
      "/a\nis not an ANSI or UTF-8 encoded text file.\nIt appears to be a binary file.\n\n" + kCopyAdvice,
      "Not a text file");
}

TEST_F(IsTextFileTest, CopyingIsProposedForSmallFilesThatAreMostlyText) {
  const std::string refusal =
      "/a\nis not an ANSI or UTF-8 encoded text file.\nIt appears to be a binary file.";
  struct Row {
    size_t Controls;
    size_t Size;
    bool Advice;
  };
  for (const Row& row :
       {Row{89, 1000, true}, Row{90, 1000, false}, Row{1, 102399, true}, Row{1, 102400, false}}) {
    messages.Forget();
    files.Add("/a", std::string(row.Controls, '\x01') + std::string(row.Size - row.Controls, 'a'));
    EXPECT_FALSE(Check("/a"));
    ExpectOnly(row.Advice ? refusal + "\n\n" + kCopyAdvice : refusal, "Not a text file");
  }
}

TEST_F(IsTextFileTest, TheMacNoticeComesOncePerProgram) {
  files.Add("/a", "one\rtwo\r");
  EXPECT_TRUE(Check("/a", true));
  EXPECT_TRUE(messages.Shown.empty());
  EXPECT_TRUE(Check("/a"));
  EXPECT_EQ(opened.Facts.Code, TextFileCode::MacText);
  ExpectOnly(
      "File /a\nhas Macintosh-type line endings (CR).\n\n"
      "You might wish to use a program such as Notepad++\n"
      "to convert the line endings to Windows-type (CR+LF).",
      "This is a Mac-style text file");
  EXPECT_TRUE(Check("/a"));
  EXPECT_EQ(messages.Shown.size(), 1U);
}

std::string UnixLines(size_t bytes) {
  std::string text(bytes, 'a');
  text[10] = '\n';
  return text;
}

const std::string kSlow =
    "File /a\nhas Unix-type line endings (LF).\n\nThe size of this file is 250.00 Kb\n"
    "so processing of this file might be rather slow.\n\n"
    "It is advisable to use a program such as Notepad++\n"
    "to convert the line endings to Windows-type (CR+LF).";

TEST_F(IsTextFileTest, UnixLineEndsAreFineUpTo256000Bytes) {
  files.Add("/a", UnixLines(256000));
  EXPECT_TRUE(Check("/a"));
  EXPECT_EQ(opened.Facts.Code, TextFileCode::UnixText);
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(IsTextFileTest, LargerUnixFilesAreAskedAbout) {
  files.Add("/a", UnixLines(256001));
  messages.WillAnswer(questions::kLargeWordList, Answer::Yes);
  EXPECT_TRUE(Check("/a"));
  ASSERT_EQ(messages.Shown.size(), 1U);
  EXPECT_EQ(messages.Shown[0].Text, kSlow + "\n\nDo you wish to continue processing this file?");
  EXPECT_EQ(messages.Shown[0].Title, "This is a Unix-style text file");
  EXPECT_EQ(messages.Shown[0].Buttons, Buttons::YesNo);
  EXPECT_EQ(messages.Shown[0].DefaultAnswer, Answer::No);
}

TEST_F(IsTextFileTest, NoToALargerUnixFileCancels) {
  files.Add("/a", UnixLines(512000));
  EXPECT_FALSE(Check("/a"));
  EXPECT_EQ(opened.Facts.Code, TextFileCode::NotText);
  ASSERT_EQ(messages.Shown.size(), 2U);
  EXPECT_EQ(messages.Shown[1].Text, "Operation canceled.");
  EXPECT_EQ(messages.Shown[1].Title, "This is a Unix-style text file");
  EXPECT_EQ(messages.Shown[1].Icon, Icon::None);
}

TEST_F(IsTextFileTest, WithoutAskingLargerUnixFilesAreRemarkedOn) {
  files.Add("/a", UnixLines(256001));
  EXPECT_TRUE(Check("/a", false, false));
  ExpectOnly(kSlow, "This is a Unix-style file");
}

TEST_F(IsTextFileTest, UnixFilesAbove512000BytesAreRefused) {
  files.Add("/a", UnixLines(512001));
  EXPECT_FALSE(Check("/a"));
  EXPECT_EQ(opened.Facts.Code, TextFileCode::NotText);
  ExpectOnly(
      "File /a\nhas Unix-type line endings (LF).\n\nThe size of this file is 500.00 Kb\n"
      "so processing of this file would take a long time.\n\n"
      "You can process this file by first using a program such as Notepad++\n"
      "to convert the line endings to Windows-type (CR+LF).",
      "Cannot process this file");
}

TEST_F(IsTextFileTest, SilentAsksNothingOfAnySize) {
  files.Add("/a", UnixLines(600000));
  EXPECT_TRUE(Check("/a", true));
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(IsTextFileTest, AUtf8SignatureGetsNoNoticeOfLineEnds) {
  files.Add("/a", "\xEF\xBB\xBF" + UnixLines(600000));
  EXPECT_TRUE(Check("/a"));
  EXPECT_TRUE(opened.Facts.IsUtf8);
  EXPECT_EQ(opened.Facts.Code, TextFileCode::WindowsText);
  EXPECT_TRUE(messages.Shown.empty());
}

struct RefusalCase {
  TextFacts Facts;
  uint64_t Size;
  std::string Title;
  std::string Text;
};

TEST(SingleFileRefusal, SaysWhatIsWrong) {
  using enum TextFileCode;
  const std::string notText = "/a is not a text file.\n\n";
  const auto byteAt = [](const std::string& share) {
    return "This file contains a byte 7 at position 12, indicating that it does not consist solely of text.  "
           "The percentage of such anomalous bytes in the first 16384 bytes is " +
           share + "%.\n\n";
  };
  const std::vector<RefusalCase> cases = {
      {{.Code = ZeroLength}, 0, "Invalid input file", "This is a zero-length file."},
      {{.Code = TooShort}, 3, "Invalid input file", "File /a\ncontains only from 1 to 4 bytes."},
      {{.Code = CannotOpen}, 9, "Invalid input file", "This file cannot be opened."},
      {{.Code = PermissionDenied}, 9, "Invalid input file", "This file cannot be opened."},
      {{.Code = Rtf}, 9, "Not a text file", "File /a\nis an RTF file."},
      {{.Code = UnicodeNotUtf8}, 9, "Not a text file", "File /a\nis a Unicode file but not UTF-8 encoded."},
      {{NotText, 7, 12, 1.5}, 5000, "Not a text file", notText + byteAt("1.50") + kCopyAdvice},
      {{NotText, 7, 12, 8.999}, 102399, "Not a text file", notText + byteAt("9.00") + kCopyAdvice},
      {{NotText, 7, 12, 9.0}, 5000, "Not a text file", notText + byteAt("9.00")},
      {{NotText, 7, 12, 1.5}, 102400, "Not a text file", notText + byteAt("1.50")},
      {{NotText, 7, 12, 0.61}, 5000, "Not a text file", notText + kCopyAdvice},
  };
  for (const RefusalCase& c : cases) {
    const Message message = SingleFileRefusal("/a", c.Facts, "%PDF-1.7", c.Size, NumberFormat());
    EXPECT_EQ(message.Text, c.Text);
    EXPECT_EQ(message.Title, c.Title);
    EXPECT_EQ(message.Icon, Icon::Information);
    EXPECT_EQ(message.Addition.starts_with("It is a PDF document."), message.Title == "Not a text file");
  }
}

TEST(SingleFileRefusal, SaysHowWideTextCanBeRead) {
  const Message message = SingleFileRefusal("/a", {.Code = TextFileCode::UnicodeNotUtf8},
                                            std::string_view("\xFF\xFEo\0", 4), 9, NumberFormat());
  EXPECT_EQ(message.Text, "File /a\nis a Unicode file but not UTF-8 encoded.");
  EXPECT_TRUE(message.Addition.ends_with(
      "\nKorv reads it where texts are read as a reader sees them (korv-count: --reading reader)."))
      << message.Addition;
}

TEST(SkipReason, HasAWordForEveryRefusal) {
  using enum TextFileCode;
  EXPECT_EQ(SkipReason(ZeroLength), "is zero-length");
  EXPECT_EQ(SkipReason(TooShort), "contains only from 1 to 4 bytes");
  EXPECT_EQ(SkipReason(PermissionDenied), "cannot be opened (permission denied)");
  EXPECT_EQ(SkipReason(CannotOpen), "cannot be opened");
  EXPECT_EQ(SkipReason(NotFound), "cannot be opened");
  EXPECT_EQ(SkipReason(NotText), "is not a text file");
  EXPECT_EQ(SkipReason(Rtf), "is an RTF file");
  EXPECT_EQ(SkipReason(UnicodeNotUtf8), "is a Unicode file but not UTF-8 encoded");
}

TEST(FormatFileSize, IsEmptyWithoutAFile) {
  FakeFiles files;
  files.Add("/a", "12345");
  EXPECT_EQ(FormatFileSize(files, "/a", NumberFormat()), "5 bytes");
  EXPECT_EQ(FormatFileSize(files, "/b", NumberFormat()), "");
  EXPECT_EQ(FormatFileSize(files, "", NumberFormat()), "");
}

}  // namespace
}  // namespace korv
