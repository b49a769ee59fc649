// Listing what was counted: formats, orders, the filter, the output file.

#include <functional>
#include <new>
#include <stdexcept>
#include <utility>

#include "desktop/questions.h"
#include "sources/questions.h"
#include "tests/desktop/window_test.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const char* const kText = "The white whale swam. The white whale swam. The old man wept, the old man wept.\n";

class Reports : public WindowTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    Choose("cboPhraseLength_0", 1);
    Choose("cboPhraseLength_1", 1);
  }
  void CountText() {
    UseFile(kText);
    Count();
    ASSERT_TRUE(main->Result().HasResult());
  }
  void CountFolder() {
    WriteFile("texts/a.txt", kText);
    WriteFile("texts/b.txt", kText);
    Click("optFolder");
    Type("txbFolder", PathOf("texts"));
    Type("txbFile_1", PathOf("report.txt"));
    Count();
    ASSERT_TRUE(main->Result().HasResult());
    Check("chkDisableOutputToFile");
  }
  /// The list alone: the output from its heading line on.
  std::string List(const std::string& heading) const {
    const std::string output = Output();
    const size_t at = output.find(heading);
    return at == output.npos ? "no heading in: " + output : output.substr(at);
  }
};

TEST_F(Reports, RelistInEveryFormatWithoutCountingAgain) {
  CountText();
  // The source is gone: whatever is listed now was counted before.
  std::filesystem::remove(PathOf("text.txt"));
  EXPECT_THAT(List("Rank  Freq  Phrase"), HasSubstr("  Phrase [longest has 16 characters]\n"));
  for (int format = 0; format < 10; ++format) {
    Choose("cboDisplayFormat", format);
    EXPECT_THAT(WindowTest::Shown(), IsEmpty()) << format;
    EXPECT_THAT(Output(), testing::StartsWith("There are ")) << format;
    if (format != 2 && format != 4) {
      EXPECT_THAT(Output(), HasSubstr("white whale swam")) << format;
    }
  }
  Choose("cboDisplayFormat", 9);
  EXPECT_THAT(Output(), HasSubstr("the old man, "));
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(Output(), HasSubstr("\nthe old man\n"));
}

TEST_F(Reports, RelistInTheOtherOrder) {
  CountText();
  Choose("cboDisplayFormat", 8);
  Choose("cboWordOrder", 1);
  const std::string list = Output();
  EXPECT_LT(list.find("\nold man wept"), list.find("\nthe old man"));
  EXPECT_LT(list.find("\nthe old man"), list.find("\nwhite whale swam"));
}

TEST_F(Reports, RelistWithRelativeFrequencies) {
  CountText();
  Check("chkDisplayRelativeFrequency");
  EXPECT_THAT(Output(), HasSubstr("Rel freq"));
  EXPECT_THAT(Output(), HasSubstr("%"));
}

TEST_F(Reports, EnableRelativeFrequencyOnlyWhereFrequenciesAreShown) {
  Click("optFolder");
  for (int format = 0; format < 13; ++format) {
    Choose("cboDisplayFormat", format);
    const bool shows = format == 0 || format == 1 || format == 2 || format == 4 || format == 5 ||
                       format == 7 || format == 10 || format == 12;
    EXPECT_EQ(Enabled("chkDisplayRelativeFrequency"), shows) << format;
  }
}

TEST_F(Reports, EnableTheSortByNumberOfFilesOnlyWhereItHasAMeaning) {
  Click("optFolder");
  Choose("cboDisplayFormat", 12);
  EXPECT_TRUE(Enabled("chkSortByNumberOfFiles"));
  Check("chkSortByNumberOfFiles");
  Choose("cboWordOrder", 1);
  EXPECT_FALSE(Enabled("chkSortByNumberOfFiles"));
  EXPECT_FALSE(Checked("chkSortByNumberOfFiles"));
}

TEST_F(Reports, RefuseAFolderFormatForAnotherSource) {
  Click("optOnClipboard");
  Choose("cboDisplayFormat", 11);
  EXPECT_THAT(
      WindowTest::Shown(),
      ElementsAre("Unavailable display format | The display format '#11: Phrase, files that contain it' is "
                  "available\nonly when the source of the text is a folder."));
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
}

TEST_F(Reports, SelectFormatTenByTheFileListBox) {
  Click("optFolder");
  Check("chkFileList");
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 10);
  Choose("cboDisplayFormat", 3);
  EXPECT_FALSE(Checked("chkFileList"));
}

TEST_F(Reports, ListAFolderInItsOwnFormats) {
  CountFolder();
  Choose("cboDisplayFormat", 10);
  EXPECT_THAT(Output(), HasSubstr(" Files"));
  Choose("cboDisplayFormat", 11);
  EXPECT_THAT(Output(), HasSubstr("{Folder} = " + PathOf("texts") + "\n"));
  EXPECT_THAT(Output(), HasSubstr(WithNativePaths("{Folder}/a.txt  {Folder}/b.txt")));
  Choose("cboDisplayFormat", 12);
  EXPECT_THAT(Output(), HasSubstr(WithNativePaths("     50.00% {Folder}/a.txt\n")));
  Check("chkSortByNumberOfFiles");
  EXPECT_THAT(Output(), HasSubstr(WithNativePaths("     50.00% {Folder}/b.txt\n")));
}

TEST_F(Reports, StayInTheirFormatWhenTheNextSourceGetsOneThatTheyLack) {
  CountText();
  const std::string before = Output();
  Click("optFolder");
  Choose("cboDisplayFormat", 11);
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 11);
  EXPECT_EQ(Output(), before);
  EXPECT_EQ(TextOf("lblNote_OtherReport"),
            "The chosen format needs a count of a folder; this list has another one.");
}

// ---- The filter

TEST_F(Reports, AreFilteredInThreeModes) {
  CountText();
  Choose("cboDisplayFormat", 8);
  const std::tuple<const char*, const char*, bool> cases[] = {
      {"optIncludeAllWords", "whale white", true},
      {"optIncludeAllWordsInSameOrder", "whale white", false},
      {"optIncludeAllWordsInSameOrder", "white whale", true},
      {"optIncludeAllWordsAsSubphrase", "white whale", true},
      {"optIncludeAllWordsAsSubphrase", "white swam", false},
  };
  for (const auto& [mode, words, found] : cases) {
    Click(mode);
    Type("txbFilterWords", words);
    Click("cmdFilterResults");
    EXPECT_EQ(Output().find("\nwhite whale swam") != std::string::npos, found) << mode << words;
    EXPECT_THAT(Output(), HasSubstr(std::string("Filter words: ") + words + "\n"));
    EXPECT_EQ(TextOf("lblNumberOfWords"), "");
  }
}

TEST_F(Reports, AreFilteredByEnterToo) {
  CountText();
  auto* box = Find<QLineEdit>("txbFilterWords");
  box->setFocus();
  QTest::keyClicks(box, "WHALE,");
  EXPECT_TRUE(Enabled("cmdClear"));
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_EQ(TextOf("txbFilterWords"), "whale");
  EXPECT_THAT(Output(), HasSubstr("Phrase filtering (all filter words) has been applied."));
}

TEST_F(Reports, KeepTheirFilterWhereverItsWordsStand) {
  CountText();
  Type("txbFilterWords", "whale");
  const std::function<void()> listings[] = {[this] { Choose("cboDisplayFormat", 5); },
                                            [this] { Choose("cboWordOrder", 1); },
                                            [this] { Check("chkDisplayRelativeFrequency"); }};
  for (const auto& list : listings) {
    list();
    EXPECT_THAT(Output(), HasSubstr("has been applied."));
    EXPECT_THAT(Output(), Not(HasSubstr("old man wept")));
  }
  // Without words there is nothing to keep.
  Click("cmdClear");
  Choose("cboWordOrder", 0);
  EXPECT_THAT(Output(), Not(HasSubstr("has been applied.")));
  EXPECT_THAT(Output(), HasSubstr("old man wept"));
}

TEST_F(Reports, AreNotFilteredBeforeThereIsOne) {
  Find<QLineEdit>("txbFilterWords")->setText(QStringLiteral("WHALE,"));
  QFocusEvent left(QEvent::FocusOut);
  QApplication::sendEvent(Find<QLineEdit>("txbFilterWords"), &left);
  EXPECT_EQ(TextOf("txbFilterWords"), "whale");
  Click("cmdFilterResults");
  EXPECT_EQ(Output(), "");
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  Click("cmdClear");
  EXPECT_EQ(main->focusWidget()->objectName().toStdString(), "txbFilterWords");
}

TEST_F(Reports, SayWhenNoPhrasePassesTheFilter) {
  CountText();
  Type("txbFilterWords", "elephant");
  Click("cmdFilterResults");
  EXPECT_THAT(Output(), HasSubstr("No phrase containing filter word(s) found."));
  Choose("cboWordOrder", 1);
  Click("optIncludeAllWordsAsSubphrase");
  Click("cmdFilterResults");
  EXPECT_THAT(Output(), HasSubstr("No phrase containing all filter words as a subphrase found."));
}

TEST_F(Reports, StayAsTheyAreWhenTheFilterIsEmptyOrCleared) {
  CountText();
  const std::string before = Output();
  Click("cmdFilterResults");
  EXPECT_EQ(Output(), before);
  Type("txbFilterWords", "whale");
  Click("cmdFilterResults");
  const std::string filtered = Output();
  Click("cmdClear");
  EXPECT_EQ(TextOf("txbFilterWords"), "");
  EXPECT_FALSE(Enabled("cmdClear"));
  EXPECT_EQ(Output(), filtered);
}

// ---- The text box

TEST_F(Reports, AreClearedFromTheTextBoxButNotForgotten) {
  CountText();
  Click("cmdClearOutput");
  EXPECT_EQ(Output(), "");
  EXPECT_FALSE(Enabled("cmdClearOutput"));
  Choose("cboDisplayFormat", 5);
  EXPECT_THAT(Output(), HasSubstr("white whale"));
}

TEST_F(Reports, StopAtTheRoomOfTheTextBox) {
  std::string text;
  for (int i = 0; i < 6000; ++i) {
    std::string word = "w";
    for (int rest = i; rest > 0; rest /= 26) word += static_cast<char>('a' + rest % 26);
    text += word + "tail head" + word + ". ";
  }
  UseFile(text + "\n" + text);
  Choose("cboPhraseLength_0", 0);
  Choose("cboPhraseLength_1", 0);
  messages.WillAnswer(questions::kLargeInput, Answer::No);
  Count();
  EXPECT_GT(Output().size(), 60000U);
  EXPECT_LT(Output().size(), 66000U);
}

// ---- The output file

TEST_F(Reports, GoToTheOutputFileAlone) {
  Type("txbFile_1", PathOf("out.txt"));
  CountText();
  EXPECT_THAT(ReadFile(PathOf("out.txt")), testing::StartsWith("File: " + PathOf("text.txt") + "\r\n"));
  EXPECT_THAT(Output(), Not(HasSubstr("white whale")));
  EXPECT_THAT(messages.InputBoxes, IsEmpty());
}

TEST_F(Reports, ToAFileLeaveWhatWasNotCountedInTheTextBox) {
  FakeFiles& disk = OpenOnFakeFiles();
  disk.Add("/texts/a.txt", kText);
  disk.Add("/texts/empty.txt", "");
  disk.Add("/texts/locked/b.txt", kText);
  disk.Refuse("/texts/locked", FileFault::PermissionDenied);
  disk.AddFolder("/out");
  Click("optFolder");
  Type("txbFolder", "/texts");
  Check("chkIncludeSubfolders");
  Type("txbFile_1", "/out/report.txt");
  Count();
  ASSERT_TRUE(disk.Content("/out/report.txt"));
  EXPECT_EQ(Output(),
            "Now writing to output file . . .\n2 phrases were written to /out/report.txt.\n"
            "1 file was skipped:\n" +
                WithNativePaths("{Folder}/empty.txt: is zero-length\n") + "Folder " +
                Below("/texts", "locked") + " cannot be read (Permission denied).\n");
}

TEST_F(Reports, ReplaceAFileWhenThePromptSaysSo) {
  WriteFile("out.txt", "precious");
  Type("txbFile_1", PathOf("out.txt"));
  messages.WillType(PathOf("out.txt"));
  CountText();
  ASSERT_EQ(messages.InputBoxes.size(), 1U);
  EXPECT_EQ(messages.InputBoxes[0].Title, "The output file exists.");
  EXPECT_EQ(messages.InputBoxes[0].Prompt,
            "To overwrite the current output file click on 'OK'.\nTo write to a different file edit the "
            "filepath below.\nTo disable file output click on 'Cancel'.");
  EXPECT_EQ(messages.InputBoxes[0].Initial, PathOf("out.txt"));
  EXPECT_THAT(ReadFile(PathOf("out.txt")), testing::StartsWith("File: "));
  // What the program wrote itself it may replace, unless it is to warn every time.
  Choose("cboDisplayFormat", 5);
  EXPECT_EQ(messages.InputBoxes.size(), 1U);
  Check("chkWarnOnOverwrite");
  messages.WillType(PathOf("out.txt"));
  Choose("cboDisplayFormat", 7);
  EXPECT_EQ(messages.InputBoxes.size(), 2U);
}

TEST_F(Reports, LeaveAFileAloneWhenThePromptIsCancelled) {
  WriteFile("out.txt", "precious");
  Type("txbFile_1", PathOf("out.txt"));
  CountText();
  EXPECT_EQ(ReadFile(PathOf("out.txt")), "precious");
  EXPECT_TRUE(Checked("chkDisableOutputToFile"));
  EXPECT_THAT(Output(), HasSubstr("white whale"));
}

TEST_F(Reports, GoToAnotherFileThatIsTypedIntoThePrompt) {
  WriteFile("out.txt", "precious");
  Type("txbFile_1", PathOf("out.txt"));
  messages.WillType(PathOf("other.txt"));
  CountText();
  EXPECT_EQ(ReadFile(PathOf("out.txt")), "precious");
  EXPECT_EQ(TextOf("txbFile_1"), PathOf("other.txt"));
  EXPECT_THAT(ReadFile(PathOf("other.txt")), testing::StartsWith("File: "));
}

TEST_F(Reports, RefuseAFolderThatIsNotThereInThePrompt) {
  WriteFile("out.txt", "precious");
  Type("txbFile_1", PathOf("out.txt"));
  messages.WillType(PathOf("nowhere/out.txt"));
  CountText();
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Error | Folder does not exist."));
  EXPECT_TRUE(Checked("chkDisableOutputToFile"));
  EXPECT_EQ(ReadFile(PathOf("out.txt")), "precious");
}

TEST_F(Reports, NeverReplaceWhatWasCounted) {
  WriteFile("out.txt", "precious");
  Type("txbFile_1", PathOf("out.txt"));
  // Another file that exists is asked for in its turn.
  messages.WillType(PathOf("text.txt"));
  messages.WillType(PathOf("text.txt"));
  CountText();
  EXPECT_EQ(ReadFile(PathOf("text.txt")), kText);
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Error | The output file cannot be the same as the input file."));
  // Nor by a path that is typed after the count.
  Type("txbFile_1", PathOf("text.txt"));
  messages.WillAnswer(questions::kRelist, Answer::Yes);
  messages.WillType(PathOf("text.txt"));
  Check("chkDisableOutputToFile", false);
  EXPECT_EQ(ReadFile(PathOf("text.txt")), kText);
}

TEST_F(Reports, AreWrittenAfterwardsWhenTheOutputIsEnabled) {
  Type("txbFile_1", PathOf("out.txt"));
  Check("chkDisableOutputToFile");
  CountText();
  EXPECT_FALSE(std::filesystem::exists(PathOf("out.txt")));
  messages.WillAnswer(questions::kRelist, Answer::No);
  Check("chkDisableOutputToFile", false);
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Relist? | Relist words (so as to write to file)?"));
  EXPECT_FALSE(std::filesystem::exists(PathOf("out.txt")));
  Check("chkDisableOutputToFile");
  messages.WillAnswer(questions::kRelist, Answer::Yes);
  Check("chkDisableOutputToFile", false);
  EXPECT_TRUE(std::filesystem::exists(PathOf("out.txt")));
}

TEST_F(Reports, SayWhenTheOutputFileCannotBeWritten) {
  FakeFiles& disk = OpenOnFakeFiles();
  disk.Add("/text.txt", kText);
  disk.Add("/out/report.txt", "precious");
  disk.Refuse("/out/report.txt", FileFault::PermissionDenied);
  Type("txbFile_1", "/out/report.txt");
  const char* const refusal =
      "Error | Error: Permission denied\nIf the output file is open in Excel then it must first be "
      "closed\n"
      "or a different file should be specified as the output file.";
  // Before anything is read: the input file is not even looked for.
  Type("txbFile_0", "/nowhere.txt");
  Count();
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(refusal, HasSubstr("Input file does not exist.")));
  Type("txbFile_0", "/text.txt");
  Count();
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(refusal));
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
  EXPECT_EQ(disk.Content("/out/report.txt"), "precious");
  EXPECT_THAT(messages.InputBoxes, IsEmpty());
  EXPECT_FALSE(Checked("chkDisableOutputToFile"));
  EXPECT_TRUE(Enabled("cmdCountPhrases"));
}

TEST_F(Reports, NameTheListingThatFailedUnforeseen) {
  OpenWithEveryTurn();
  CountText();
  const char* const advice =
      "The phrases that were counted are still there.\nYou could list them once more, perhaps with an "
      "output "
      "file in another folder,\nor with another display format.\nIf the error comes back please quit the "
      "program and start it again.";
  for (const bool toFile : {false, true}) {
    Type("txbFile_1", toFile ? PathOf("out.txt") : "");
    for (const auto& [order, name] : {std::pair(1, "ListWordsAlphabetically"), {0, "ListWordsByFrequency"}}) {
      AtTheNextTurn([] { throw std::runtime_error("a surprise"); });
      Choose("cboWordOrder", order);
      EXPECT_THAT(WindowTest::Shown(), ElementsAre(std::string("Error | At ") + name +
                                                   " error # 5.\nDescription: a surprise\n" + advice));
      AtTheNextTurn([] { throw std::bad_alloc(); });
      Click("chkDisplayRelativeFrequency");
      EXPECT_THAT(WindowTest::Shown(), ElementsAre("Error | Insufficient memory"));
    }
    EXPECT_FALSE(std::filesystem::exists(PathOf("out.txt")));
  }
  EXPECT_TRUE(main->Result().HasResult());
  EXPECT_TRUE(Enabled("cmdSetParameters"));
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(ReadFile(PathOf("out.txt")), HasSubstr("white whale swam"));
}

// ---- An output file that a large input asks for

class LargeInputs : public Reports {
 protected:
  void SetUp() override {
    Reports::SetUp();
    std::string text;
    while (text.size() < 210000) text += "the white whale swims here. ";
    UseFile(text);
    messages.WillAnswer(questions::kLargeInput, Answer::Yes);
  }
};

TEST_F(LargeInputs, AreReportedToTheFileThatIsChosenForThem) {
  Check("chkDisableOutputToFile");
  dialogs.WillChoose(PathOf("new.txt"));
  Count();
  EXPECT_FALSE(Checked("chkDisableOutputToFile"));
  EXPECT_EQ(TextOf("txbFile_1"), PathOf("new.txt"));
  EXPECT_THAT(ReadFile(PathOf("new.txt")), HasSubstr("white whale"));
}

TEST_F(LargeInputs, LeaveADisabledOutputFileAloneWhenNoneIsChosen) {
  Type("txbFile_1", PathOf("old.txt"));
  Check("chkDisableOutputToFile");
  Count();
  EXPECT_EQ(dialogs.Saved.size(), 1U);
  EXPECT_TRUE(Checked("chkDisableOutputToFile"));
  EXPECT_FALSE(std::filesystem::exists(PathFromText(PathOf("old.txt"))));
}

TEST_F(LargeInputs, MayChooseAnotherFileThanOneThatCannotBeOpened) {
  Type("txbFile_1", PathOf("nowhere/out.txt"));
  dialogs.WillChoose(PathOf("new.txt"));
  Count();
  EXPECT_THAT(ReadFile(PathOf("new.txt")), HasSubstr("white whale"));
}

}  // namespace
}  // namespace korv
