#include "sources/detect/source_checks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "sources/questions.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"

namespace korv {
namespace {

using Code = InputFileCode;

struct InputCase {
  const char* Input;
  const char* Output;
  InputFileCode Code;
};

TEST(ValidateInputFile, ChecksInTheGivenOrder) {
  FakeFiles files;
  files.Add("/texts/A.TXT", "some words");
  files.Add("/texts/empty.txt", "");
  files.AddAlias("/other/link.txt", "/texts/A.TXT");
  files.AddFolder("/texts/sub");
  const std::vector<InputCase> cases = {
      {"", "", Code::NotSpecifiedOrEmpty},
      {"   ", "", Code::NotSpecifiedOrEmpty},
      {"C:\\texts\\", "", Code::InvalidSpecification},
      {"/texts/", "", Code::InvalidSpecification},
      {" /missing/ ", "", Code::InvalidSpecification},
      {"/texts/missing.txt", "", Code::NotFound},
      {"/texts/sub", "", Code::NotFound},
      {"/texts/empty.txt", "/texts/empty.txt", Code::NotSpecifiedOrEmpty},
      {"/texts/A.TXT", "", Code::Valid},
      {"  /texts/A.TXT ", "  ", Code::Valid},
      {"/texts/A.TXT", "/texts/b.txt", Code::Valid},
      {"/texts/A.TXT", "/texts/A.TXT", Code::SameAsOutput},
      {"/texts/A.TXT", " /texts/a.txt ", Code::SameAsOutput},
      {"/texts/A.TXT", "/texts/sub/.././a.txt", Code::SameAsOutput},
      {"/texts/A.TXT", "/other/link.txt", Code::SameAsOutput},
  };
  for (const InputCase& c : cases) {
    EXPECT_EQ(ValidateInputFile(files, c.Input, c.Output), c.Code) << c.Input << " to " << c.Output;
  }
}

TEST(ValidateInputFile, TakesAFileWhoseSizeIsNotKnown) {
  FakeFiles files;
  files.Add("/pipe", "");
  files.Refuse("/pipe", FileFault::Other);
  EXPECT_EQ(ValidateInputFile(files, "/pipe", ""), Code::Valid);
}

TEST(ShowInputFileError, HasTheWordsOfEachCode) {
  struct Row {
    InputFileCode Code;
    const char* Input;
    const char* Title;
    const char* Text;
  };
  for (const Row& row :
       {Row{Code::InvalidSpecification, "C:\\", "Invalid input", "Invalid input file specification."},
        Row{Code::NotFound, "x", "File not found", "Input file does not exist."},
        Row{Code::NotSpecifiedOrEmpty, "  ", "Error", "Input file not specified."},
        Row{Code::NotSpecifiedOrEmpty, "x", "Error", "Input file is zero-length."},
        Row{Code::SameAsOutput, "x", "Error", "The output file cannot be the same as the input file."}}) {
    FakeMessages messages;
    ShowInputFileError(messages, row.Code, row.Input);
    EXPECT_EQ(messages.Only().Text, row.Text);
    EXPECT_EQ(messages.Only().Title, row.Title);
    EXPECT_EQ(messages.Only().Icon, Icon::Exclamation);
  }
  FakeMessages messages;
  ShowInputFileError(messages, Code::Valid, "x");
  EXPECT_TRUE(messages.Shown.empty());
}

class ValidateFolderTest : public testing::Test {
 protected:
  ValidateFolderTest() {
    files.Add("/data/a.txt", "some words");
    files.Add("/data/sub/b.txt", "some words");
    files.Add("/nested/sub/b.txt", "some words");
    files.AddFolder("/elsewhere");
    files.AddFolderLink("/link", "/data");
  }
  void ExpectRefused(const std::string& folder, const std::string& output, bool subfolders,
                     const std::string& text, const std::string& title, Icon icon) {
    messages.Forget();
    EXPECT_FALSE(ValidateFolder(files, messages, folder, output, subfolders)) << folder << " to " << output;
    EXPECT_EQ(messages.Only().Text, text);
    EXPECT_EQ(messages.Only().Title, title);
    EXPECT_EQ(messages.Only().Icon, icon);
  }

  FakeFiles files;
  FakeMessages messages;
};

TEST_F(ValidateFolderTest, ChecksInTheGivenOrder) {
  ExpectRefused("  ", "", false, "Folder not specified.", "Error", Icon::Exclamation);
  ExpectRefused("/missing", "", false, "Folder does not exist", "Invalid input", Icon::Exclamation);
  ExpectRefused("/data/a.txt", "", false, "Folder does not exist", "Invalid input", Icon::Exclamation);
  ExpectRefused("/elsewhere", "", false, "Folder contains no files.", "Nothing to do", Icon::Information);
  EXPECT_TRUE(ValidateFolder(files, messages, " /data/ ", "", false));
  EXPECT_TRUE(ValidateFolder(files, messages, "/data", " /elsewhere/out.txt ", true));
}

TEST_F(ValidateFolderTest, FilesInSubfoldersAloneDoNotCount) {
  ExpectRefused("/nested", "", true, "Folder contains no files.", "Nothing to do", Icon::Information);
}

TEST_F(ValidateFolderTest, AFolderThatCannotBeReadIsRefused) {
  files.Refuse("/data", FileFault::PermissionDenied);
  ExpectRefused("/data", "", false, "Folder cannot be read (Permission denied).", "Invalid input",
                Icon::Exclamation);
}

TEST_F(ValidateFolderTest, TheOutputFileMayNotLieWhereTheRunReads) {
  struct Row {
    const char* Output;
    bool Subfolders;
    bool Refused;
  };
  for (const Row& row :
       {Row{"/data/out.txt", false, true}, Row{"/DATA/out.txt", false, true},
        Row{"/data/sub/out.txt", false, false}, Row{"/data/sub/out.txt", true, true},
        Row{"/elsewhere/../data/out.txt", false, true}, Row{"/link/out.txt", false, true},
        Row{"/link/sub/out.txt", true, true}, Row{"/link/sub/out.txt", false, false},
        Row{"/data2/out.txt", true, true},  // begins like the folder, although it lies beside it
        Row{"/data2/out.txt", false, false}, Row{"/elsewhere/out.txt", true, false}}) {
    if (row.Refused) {
      ExpectRefused("/data", row.Output, row.Subfolders,
                    "The output file cannot be in the folder or a subfolder.", "Invalid output file",
                    Icon::Information);
    } else {
      EXPECT_TRUE(ValidateFolder(files, messages, "/data", row.Output, row.Subfolders)) << row.Output;
    }
  }
}

TEST(TrimmedFolderPath, DropsSeparatorsAtTheEndButNotTheRoot) {
  EXPECT_EQ(TrimmedFolderPath(" a/b// "), "a/b");
  EXPECT_EQ(TrimmedFolderPath("a\\b\\"), "a\\b");
  EXPECT_EQ(TrimmedFolderPath("/"), "/");
  EXPECT_EQ(TrimmedFolderPath("C:\\"), "C:\\");
  EXPECT_EQ(TrimmedFolderPath("C:\\\\"), "C:\\");
  EXPECT_EQ(TrimmedFolderPath(""), "");
  EXPECT_EQ(TrimmedPath("  a b  "), "a b");
}

TEST(CheckClipboardText, RefusesMoreCharactersThanTheLimit) {
  FakeMessages messages;
  const NumberFormat format;
  EXPECT_TRUE(CheckClipboardText("", messages, format));
  EXPECT_TRUE(CheckClipboardText(std::string(100000, 'a'), messages, format));
  std::string accents;
  for (int k = 0; k < 100000; ++k) accents += "\xC3\xA9";
  EXPECT_TRUE(CheckClipboardText(accents, messages, format)) << "characters count, not bytes";
  EXPECT_TRUE(messages.Shown.empty());
  EXPECT_FALSE(CheckClipboardText(std::string(100001, 'a'), messages, format));
  EXPECT_EQ(messages.Only().Text,
            "There are 100,001 characters in the text on the clipboard.\n"
            "The maximum permitted is 100,000.  If possible,\n"
            "count word frequencies for this text using an input file.");
  EXPECT_EQ(messages.Only().Title, "Too much clipboard text");
  EXPECT_EQ(messages.Only().Icon, Icon::None);
}

TEST(CheckNaturalLanguage, WantsLettersAndFewControls) {
  struct Row {
    const char* About;
    std::string Text;
    bool Words;
  };
  const std::vector<Row> rows = {
      {"words", "some words", true},
      {"one letter", "1 2 3 a", true},
      {"no letter", "1 2 3 - 4", false},
      {"blanks", "   \n", false},
      {"a Greek letter", "\xCE\xB1", true},
      {"an accented letter", "\xC3\xA9", true},
      {"the multiplication sign is no letter", "\xC3\x97", false},
      {"exactly 1 % controls", std::string(99, 'a') + '\x01', true},
      {"more than 1 % controls", std::string(98, 'a') + '\x01', false},
      {"line ends and tabs are no controls", "\t\n\f\ba", true},
      {"1 % of characters, not of bytes",
       "\x01" + std::string(49, 'a') + std::string("\xC3\xA9") + std::string(48, 'a'), false},
  };
  for (const Row& row : rows) {
    FakeMessages messages;
    EXPECT_EQ(CheckNaturalLanguage(row.Text, messages), row.Words) << row.About;
    if (row.Words) {
      EXPECT_TRUE(messages.Shown.empty());
    } else {
      EXPECT_EQ(messages.Only().Text,
                "The text on the clipboard does not consist\nsolely of natural language words.");
      EXPECT_EQ(messages.Only().Title, "Invalid input");
    }
  }
}

TEST(CheckNaturalLanguage, SaysWhenThereIsNoText) {
  FakeMessages messages;
  EXPECT_FALSE(CheckNaturalLanguage("", messages));
  EXPECT_EQ(messages.Only().Text, "There is no text on the clipboard.");
  EXPECT_EQ(messages.Only().Title, "Invalid input");
}

TEST(CheckNaturalLanguage, LooksNoFurtherThanItIsTold) {
  FakeMessages messages;
  const std::string text = std::string(kLookedAtCharacters, 'a') + std::string(1000, '\x01');
  EXPECT_TRUE(CheckNaturalLanguage(text, messages, kLookedAtCharacters));
  EXPECT_FALSE(
      CheckNaturalLanguage(std::string(kLookedAtCharacters, '1') + "a", messages, kLookedAtCharacters));
}

TEST(AskLargeInput, OffersYesNoAndCancel) {
  FakeMessages messages;
  messages.WillAnswer(questions::kLargeInput, Answer::Cancel);
  EXPECT_EQ(AskLargeInput(messages), Answer::Cancel);
  EXPECT_EQ(
      messages.Only().Text,
      "The input file is quite large.  It is advisable to specify an output file before continuing, in case "
      "the text window will not hold the result. Do you wish to specify an output file?");
  EXPECT_EQ(messages.Only().Title, "Large input file");
  EXPECT_EQ(messages.Only().Buttons, Buttons::YesNoCancel);
}

TEST(MultipleFiles, NeedAnOutputFile) {
  FakeMessages messages;
  ShowMultipleFilesNeedOutput(messages);
  EXPECT_EQ(messages.Only().Text,
            "When scanning multiple files or folders\nyou must specify an output file in case\n"
            "the text window will not hold the result.");
  EXPECT_EQ(messages.Only().Title, "Multiple files/folders");
}

TEST(FileKind, IsToldWhileReadingAndAfterTheRun) {
  EXPECT_EQ(FileKindWhileReading(true), "This is a UTF8 file.");
  EXPECT_EQ(FileKindWhileReading(false), "");
  EXPECT_EQ(FileKindAfterRun(true, TextFileCode::UnixText), "This is a UTF-8 text file.");
  EXPECT_EQ(FileKindAfterRun(false, TextFileCode::UnixText), "This is a Unix-type file.");
  EXPECT_EQ(FileKindAfterRun(false, TextFileCode::MacText), "This is a Macintosh-type file.");
  EXPECT_EQ(FileKindAfterRun(false, TextFileCode::WindowsText), "");
}

TEST(SizeLabels, NameWhatTheyMeasure) {
  EXPECT_EQ(FileSizeLabel(2048, NumberFormat()), "Filesize: 2.00 Kb");
  EXPECT_EQ(TextSizeLabel(12, NumberFormat()), "Text: 12 bytes");
}

}  // namespace
}  // namespace korv
