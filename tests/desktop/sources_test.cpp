// Choosing and checking what is to be counted.

#include <QDir>
#include <QListWidget>
#include <QMenu>
#include <tuple>

#include "sources/questions.h"
#include "tests/desktop/window_test.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kText = "Call me Ishmael, said the old man, and call me Ishmael again.\n";

class Sources : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  /// What a click on "Count phrases" shows.
  std::vector<std::string> Refusal() {
    messages.Forget();
    Count();
    return WindowTest::Shown();
  }
};

TEST_F(Sources, ShowTheirOwnControls) {
  const std::pair<const char*, std::vector<const char*>> shown[] = {
      {"optOnClipboard", {"cmdClipboardViewer"}},
      {"optInFile", {"txbFile_0", "cmdFile_0", "cmdClearFile_0"}},
      {"optFolder",
       {"txbFolder", "cmdFolder", "cmdClearFolder", "txbFileFilepathSpecifications_0",
        "txbFileFilepathSpecifications_1", "chkIncludeSubfolders", "cmdListFiles", "chkFileList"}}};
  for (const auto& [option, controls] : shown) {
    Click(option);
    main->Timer1_Timer();
    for (const auto& [other, theirs] : shown) {
      for (const char* control : theirs) EXPECT_EQ(WindowTest::Shown(control), option == other) << control;
    }
  }
}

TEST_F(Sources, AreChosenInTheSystemsDialogs) {
  const std::string path = WriteFile("a.txt", kText);
  dialogs.WillChoose(path);
  Click("cmdFile_0");
  EXPECT_EQ(TextOf("txbFile_0"), path);
  EXPECT_EQ(TextOf("lblFilesize"), "Filesize: 62 bytes");
  EXPECT_EQ(dialogs.Opened.at(0).Filter, "Any text file (*.*) | *.*");

  dialogs.WillChoose(folder.path().toStdString());
  Click("optFolder");
  Click("cmdFolder");
  EXPECT_EQ(TextOf("txbFolder"), folder.path().toStdString());

  dialogs.WillChoose(std::nullopt);
  Click("cmdFolder");
  EXPECT_EQ(TextOf("txbFolder"), folder.path().toStdString());
}

TEST_F(Sources, AreRememberedInTheRecentMenu) {
  const std::string path = WriteFile("a.txt", kText);
  dialogs.WillChoose(path);
  Click("cmdFile_0");
  dialogs.WillChoose(FolderPath());
  Click("cmdFolder");
  Start();
  const std::tuple<std::string, const char*, const char*> sources[] = {
      {path, "txbFile_0", "optInFile"}, {FolderPath(), "txbFolder", "optFolder"}};
  auto* recent = main->findChild<QMenu*>(QStringLiteral("mnuRecent"));
  ASSERT_NE(recent, nullptr);
  for (const auto& [source, box, option] : sources) {
    EXPECT_EQ(TextOf(box), "");
    emit recent->aboutToShow();
    for (QAction* action : recent->actions()) {
      if (action->text().toStdString() == source) action->trigger();
    }
    EXPECT_EQ(TextOf(box), source);
    EXPECT_TRUE(Checked(option));
  }
}

TEST_F(Sources, AreListedAndChosenAgainByAClick) {
  const std::string file = WriteFile("a.txt", kText);
  auto* recent = Find<QListWidget>("lstRecent");
  EXPECT_EQ(recent->count(), 0);
  main->Panels().Source->Take(QString::fromStdString(file));
  main->Panels().Source->Take(QString::fromStdString(FolderPath()));
  ASSERT_EQ(recent->count(), 2);
  const std::pair<std::string, const char*> sources[] = {{file, "optInFile"}, {FolderPath(), "optFolder"}};
  for (int row = 0; row < 2; ++row) {
    const auto& [path, option] = sources[row];
    EXPECT_EQ(recent->item(row)->text().toStdString(), path);
    EXPECT_EQ(recent->item(row)->toolTip().toStdString(), path);
    Type("txbFile_0", "");
    Type("txbFolder", "");
    Click("optOnClipboard");
    QTest::mouseClick(recent->viewport(), Qt::LeftButton, {},
                      recent->visualItemRect(recent->item(row)).center());
    QApplication::processEvents();
    EXPECT_TRUE(Checked(option));
    EXPECT_EQ(TextOf(row == 0 ? "txbFile_0" : "txbFolder"), path);
  }
  std::filesystem::remove(PathFromText(file));
  emit recent->itemActivated(recent->item(0));
  QApplication::processEvents();
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("File not found | Input file does not exist."));
  auto* menu = main->findChild<QMenu*>(QStringLiteral("mnuRecent"));
  emit menu->aboutToShow();
  menu->actions().back()->trigger();
  EXPECT_EQ(recent->count(), 0);
}

// ---- A single file

TEST_F(Sources, RefuseAnInputFileThatIsNone) {
  EXPECT_THAT(Refusal(), ElementsAre("Error | Input file not specified."));
  Type("txbFile_0", "   ");
  EXPECT_THAT(Refusal(), ElementsAre("Error | Input file not specified."));
  Type("txbFile_0", PathOf("nowhere.txt"));
  EXPECT_THAT(Refusal(), ElementsAre("File not found | Input file does not exist."));
  Type("txbFile_0", WriteFile("empty.txt", ""));
  EXPECT_THAT(Refusal(), ElementsAre("Error | Input file is zero-length."));
  Type("txbFile_0", WriteFile("rich.rtf", "{\\rtf1\\ansi what a text}"));
  EXPECT_THAT(Refusal(), ElementsAre(HasSubstr("Not a text file | ")));
  EXPECT_EQ(TextOf("cmdCountPhrases"), "Count phrases");
  EXPECT_TRUE(Enabled("cmdCountPhrases"));
}

TEST_F(Sources, RefuseAPathThatEndsWithASeparatorAndEmptyTheBox) {
  Type("txbFile_0", "C:\\texts\\");
  EXPECT_THAT(Refusal(), ElementsAre("Invalid input | Invalid input file specification."));
  EXPECT_EQ(TextOf("txbFile_0"), "");
}

TEST_F(Sources, RefuseAnOutputFileThatIsTheInputFile) {
  const std::string path = WriteFile("a.txt", kText);
  Type("txbFile_0", path);
  Type("txbFile_1", PathOf("A.TXT"));
  EXPECT_THAT(Refusal(), ElementsAre("Error | The output file cannot be the same as the input file."));
  EXPECT_EQ(ReadFile(path), kText);
}

TEST_F(Sources, ShowTheSizeOfTheInputFile) {
  Type("txbFile_0", WriteFile("a.txt", std::string(235725, 'a')));
  EXPECT_EQ(TextOf("lblFilesize"), "Filesize: 230.20 Kb");
  Type("txbFile_0", PathOf("nowhere.txt"));
  EXPECT_EQ(TextOf("lblFilesize"), " ");
}

TEST_F(Sources, ShowHowMuchOfAMarkUpFileIsText) {
  Type("txbFile_0", WriteFile("a.html", "<p>the big cat</p>"));
  EXPECT_EQ(TextOf("lblXMLsize"), " ");
  Count();
  EXPECT_EQ(TextOf("lblFilesize"), "Filesize: 18 bytes");
  EXPECT_EQ(TextOf("lblXMLsize"), "Text: 11 bytes");
  UseFile(kText);
  Count();
  EXPECT_EQ(TextOf("lblXMLsize"), " ");
}

TEST_F(Sources, AreTrimmedWhenTheirBoxIsLeft) {
  for (const char* box : {"txbFile_0", "txbFile_1", "txbFolder"}) {
    Type(box, "  " + PathOf("a b") + "   ");
    EXPECT_EQ(TextOf(box), PathOf("a b")) << box;
  }
}

std::string LargeText() {
  std::string text;
  for (int i = 0; text.size() <= 200001; ++i)
    text += "word" + std::string(1, static_cast<char>('a' + i % 26)) + " ";
  return text;
}

TEST_F(Sources, AdviseAnOutputFileForALargeInput) {
  UseFile(LargeText());
  messages.WillAnswer(questions::kLargeInput, Answer::Cancel);
  EXPECT_THAT(
      Refusal(),
      ElementsAre("Large input file | The input file is quite large.  It is advisable to specify an output "
                  "file before continuing, in case the text window will not hold the result. Do you wish to "
                  "specify an output file?"));
  EXPECT_FALSE(main->Result().HasResult());

  messages.WillAnswer(questions::kLargeInput, Answer::Yes);
  dialogs.WillChoose(PathOf("out.txt"));
  Count();
  EXPECT_EQ(TextOf("txbFile_1"), PathOf("out.txt"));
  EXPECT_TRUE(std::filesystem::exists(PathOf("out.txt")));

  Type("txbFile_1", "");
  messages.WillAnswer(questions::kLargeInput, Answer::No);
  Count();
  EXPECT_TRUE(main->Result().HasResult());
}

TEST_F(Sources, AskAboutUtf8WithoutASignatureOncePerPath) {
  UseFile("Der Bär mag süße Äpfel. Der Bär mag süße Äpfel.");
  messages.WillAnswer(questions::kTextEncoding, Answer::Yes);
  EXPECT_THAT(Refusal(),
              ElementsAre("Text encoding | This file appears to be UTF-8 text without a signature.\n"
                          "Do you wish to read it as UTF-8?"));
  EXPECT_THAT(Output(), HasSubstr("der bär mag süße äpfel"));
  EXPECT_THAT(Refusal(), IsEmpty());
}

// ---- The clipboard

TEST_F(Sources, RefuseAClipboardWithoutWords) {
  Click("optOnClipboard");
  EXPECT_THAT(Refusal(), ElementsAre("Invalid input | There is no text on the clipboard."));
  clipboard.Content = "1 2 3";
  EXPECT_THAT(Refusal(), ElementsAre("Invalid input | The text on the clipboard does not consist\n"
                                     "solely of natural language words."));
}

TEST_F(Sources, TakeAHundredThousandCharactersFromTheClipboardAndNoMore) {
  Click("optOnClipboard");
  clipboard.Content.clear();
  while (clipboard.Content.size() < 100000) clipboard.Content += "word ";
  EXPECT_THAT(Refusal(), IsEmpty());
  clipboard.Content += "s";
  EXPECT_THAT(Refusal(),
              ElementsAre("Too much clipboard text | There are 100,001 characters in the text on the "
                          "clipboard.\nThe maximum permitted is 100,000.  If possible,\ncount word "
                          "frequencies for this text using an input file."));
}

// ---- A folder

TEST_F(Sources, RefuseAFolderThatCannotBeScanned) {
  Click("optFolder");
  EXPECT_THAT(Refusal(), ElementsAre("Error | Folder not specified."));
  Type("txbFolder", PathOf("nowhere"));
  EXPECT_THAT(Refusal(), ElementsAre("Invalid input | Folder does not exist"));
  WriteFile("only/sub/a.txt", kText);
  Type("txbFolder", PathOf("only"));
  Check("chkIncludeSubfolders");
  EXPECT_THAT(Refusal(), ElementsAre("Nothing to do | Folder contains no files."));
}

TEST_F(Sources, RefuseAnOutputFileInTheFolder) {
  WriteFile("texts/a.txt", kText);
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  Type("txbFile_1", PathOf("texts/out.txt"));
  EXPECT_THAT(Refusal(),
              ElementsAre("Invalid output file | The output file cannot be in the folder or a subfolder."));
  // The same words guard the dialog.
  Type("txbFile_1", "");
  dialogs.WillChoose(PathOf("texts/out.txt"));
  Click("cmdFile_1");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Invalid output file | The output file cannot be in the folder or a subfolder."));
  EXPECT_EQ(TextOf("txbFile_1"), "");
}

TEST_F(Sources, NeedAnOutputFileForSeveralFiles) {
  WriteFile("texts/a.txt", kText);
  WriteFile("texts/b.txt", kText);
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  EXPECT_THAT(Refusal(), ElementsAre("Multiple files/folders | When scanning multiple files or folders\n"
                                     "you must specify an output file in case\nthe text window will not "
                                     "hold the result."));
}

TEST_F(Sources, SayWhenNoFileIsWanted) {
  WriteFile("texts/a.txt", kText);
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  Type("txbFileFilepathSpecifications_0", "*.html");
  Check("chkIncludeSubfolders");
  const auto shown = Refusal();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0], testing::StartsWith("No files found | No scanable files as specified"));
  EXPECT_THAT(shown[0], testing::EndsWith("were found in this folder or in its subfolders."));
}

TEST_F(Sources, RewriteAndCheckPatternsWhenTheBoxIsLeft) {
  Click("optFolder");
  Type("txbFileFilepathSpecifications_0", "*.txt,*.html   a*.xml");
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_0"), "*.txt, *.html, a*.xml");
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  Type("txbFileFilepathSpecifications_0", "a~b");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Invalid input | File pattern 'a~b' contains an invalid character."));
  Type("txbFileFilepathSpecifications_0", "*.doc");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Match file patterns | This software does not process .doc files.  To process\n"
                          "Word .doc files they should first be converted to .docx files."));
  Type("txbFileFilepathSpecifications_0", "*.doc *.txt");
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_0"), "*.doc, *.txt");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("This software does not process .doc files.")));
  Type("txbFileFilepathSpecifications_0", "");
  Type("txbFileFilepathSpecifications_1", "b*k");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Invalid input | Folder pattern 'b*k' contains an invalid character."));
}

TEST_F(Sources, ListTheFilesThatWouldBeScanned) {
  WriteFile("texts/b.txt", kText);
  WriteFile("texts/a.txt", kText);
  WriteFile("texts/old.bak.txt", kText);
  WriteFile("texts/script.js", kText);
  WriteFile("texts/sub/c.txt", kText);
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  Type("txbFileFilepathSpecifications_1", "bak");
  Check("chkIncludeSubfolders");
  Click("cmdListFiles");
  EXPECT_EQ(Output(), "{Folder} = " + PathOf("texts") + "\n" +
                          WithNativePaths("{Folder}/a.txt\n{Folder}/b.txt\n{Folder}/sub/c.txt\n"));
  EXPECT_TRUE(Enabled("cmdListFiles"));
}

TEST_F(Sources, ListARelativeFolderAsItWasGiven) {
  WriteFile("texts/a.txt", kText);
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(folder.path()));
  Click("optFolder");
  Type("txbFolder", "texts");
  Click("cmdListFiles");
  EXPECT_EQ(Output(), "{Folder} = texts\n" + WithNativePaths("{Folder}/a.txt\n"));
  QDir::setCurrent(before);
}

TEST_F(Sources, CountAFolderIntoAnOutputFile) {
  WriteFile("texts/a.txt", kText);
  WriteFile("texts/b.txt", kText);
  Click("optFolder");
  Type("txbFolder", PathOf("texts"));
  Type("txbFile_0", "/before.txt");
  Type("txbFile_1", PathOf("report.txt"));
  Choose("cboPhraseLength_0", 0);
  Count();
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  EXPECT_THAT(
      ReadFile(PathOf("report.txt")),
      testing::StartsWith("Folder: " + PathOf("texts") + "\r\n2 files (in 1 folder) were scanned.\r\n"));
  EXPECT_EQ(TextOf("lblTotalNumOccurrences").rfind("Total number of phrase occurrences: ", 0), 0U);
  EXPECT_EQ(TextOf("lblStatusFiles"), "2 files");
  EXPECT_EQ(TextOf("txbFile_0"), "/before.txt");
}

}  // namespace
}  // namespace korv
