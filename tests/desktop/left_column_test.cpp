// What the left column tells of the source and of words, and what is told of words and files left out.

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTimer>
#include <QToolButton>

#include "desktop/main_window/source_surveyor.h"
#include "desktop/questions.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kText = "The old man wept. The old man wept.\n";

class LeftColumn : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  /// Waits until the source has been looked at.
  void UntilFound() {
    SourceSurveyor& surveyor = *main->Panels().Surveyor;
    surveyor.tmrSurvey->setInterval(0);
    if (surveyor.tmrSurvey->isActive()) surveyor.tmrSurvey->start();
    while (!surveyor.Idle()) QApplication::processEvents(QEventLoop::AllEvents, 10);
  }
  std::string Found() {
    UntilFound();
    EXPECT_EQ(Shown("lblFound"), !TextOf("lblFound").empty());
    return TextOf("lblFound");
  }
};

// ---- How texts are read

/// The settings that the way of reading sets.
SettingSet SettingsOfReading() {
  return DifferencesOf(DefaultsUnder(Reading::Letter), DefaultsUnder(Reading::Reader));
}

TEST_F(LeftColumn, SwitchesBetweenTheLetterAndWhatAReaderSees) {
  EXPECT_EQ(Find<QComboBox>("cboReading")->currentText().toStdString(), "by the letter");
  EXPECT_EQ(TextOf("lblReading"), "Read by the letter");
  Choose("cboReading", 1);
  EXPECT_EQ(DifferencesOf(main->Work().Current(), DefaultsUnder(Reading::Reader)) & SettingsOfReading(),
            SettingSet());
  EXPECT_EQ(TextOf("lblReading"),
            "Read as a reader sees it: pages as they are shown, declared encodings, notes and text boxes and "
            "phrases of up to 1,000 characters");
  Choose("cboReading", 0);
  EXPECT_EQ(DifferencesOf(main->Work().Current(), Settings{}) & SettingsOfReading(), SettingSet());
  EXPECT_EQ(TextOf("lblReading"), "Read by the letter");
}

TEST_F(LeftColumn, CountsAsAReaderSeesAText) {
  Type("txbFile_0", WriteFile("a.html", "<p>I am <b>a</b>t ho<i>me</i>.<p>I am at home."));
  Choose("cboReading", 1);
  Count();
  EXPECT_THAT(Output(), HasSubstr("i am at home"));
}

// ---- The source

TEST_F(LeftColumn, SaysWhatAFileIs) {
  EXPECT_EQ(Found(), "");
  UseFile(kText);
  EXPECT_EQ(TextOf("lblFound"), "");
  EXPECT_EQ(Found(), "Plain text, ASCII");
  Type("txbFile_0", WriteFile("a.html", "<p>caf\xC3\xA9</p>"));
  EXPECT_EQ(TextOf("lblFound"), "");
  EXPECT_EQ(Found(), "HTML, UTF-8");
  Type("txbFile_0", PathOf("none.txt"));
  EXPECT_EQ(Found(), "There is no such file.");
  Type("txbFile_0", "");
  EXPECT_EQ(Found(), "");
}

TEST_F(LeftColumn, SaysWhatAFolderHolds) {
  WriteFile("in/a.txt", kText);
  WriteFile("in/b.html", kText);
  WriteFile("in/below/c.txt", kText);
  Click("optFolder");
  EXPECT_EQ(Found(), "");
  Type("txbFolder", PathOf("in"));
  EXPECT_EQ(Found(), "2 files, 72 bytes, ASCII");
  Check("chkIncludeSubfolders");
  EXPECT_EQ(Found(), "3 files in 2 folders, 108 bytes, ASCII");
  Type("txbFileFilepathSpecifications_0", "*.html");
  EXPECT_EQ(Found(), "1 file in 2 folders, 36 bytes, ASCII");
  Type("txbFileFilepathSpecifications_1", "b");
  EXPECT_EQ(Found(), "No file in it is to be counted.");
  Click("optOnClipboard");
  EXPECT_EQ(Found(), "");
}

TEST_F(LeftColumn, LooksAtTheSourceOnlyWhileNothingIsCounted) {
  OpenWithEveryTurn();
  UseFile(kText);
  bool looked = false;
  AtTheNextTurn([&] {
    looked = true;
    EXPECT_TRUE(main->Panels().Surveyor->Idle());
    main->Work().Change(ChangedBy::Program, [](Settings& settings) { settings.InputFile += "x"; });
    EXPECT_TRUE(main->Panels().Surveyor->Idle());
  });
  Count();
  EXPECT_TRUE(looked);
  EXPECT_FALSE(main->Panels().Surveyor->Idle());
  EXPECT_EQ(Found(), "There is no such file.");
}

// ---- Words

TEST_F(LeftColumn, SaysInPlainWordsWhatAWordIs) {
  EXPECT_EQ(TextOf("lblWordRules"),
            "Words of 3 to 40 letters, with hyphens; case ignored; phrases end at periods, double quotes and "
            "tabs.");
  ClickInParams("chkAllowWordsWithApostrophes");
  EXPECT_THAT(TextOf("lblWordRules"), HasSubstr("with hyphens and apostrophes"));
  EXPECT_FALSE(main->Params().isVisible());
  Click("cmdChangeWordRules");
  EXPECT_TRUE(main->Params().isVisible());
}

TEST_F(LeftColumn, SaysWhichWordsToIgnoreAreInForce) {
  EXPECT_EQ(TextOf("lblWordsInForce"), "Words to ignore: none");
  dialogs.WillChoose(WriteFile("list.txt", "the\nof\n"));
  ClickInParams("cmdSelectWordsFile");
  EXPECT_EQ(TextOf("lblWordsInForce"), "Words to ignore: 2 of list.txt");
  Type("txbWordsToIgnoreOrCount_0", "ibid");
  EXPECT_EQ(TextOf("lblWordsInForce"), "Words to ignore: 2 of list.txt, 1 typed");
}

TEST_F(LeftColumn, NamesTheCommonWordsOfALanguage) {
  End();
  messages.WillAnswer(questions::kFirstCommonWords, Answer::Yes);
  MakeWindow();
  ASSERT_TRUE(main->Form_Load());
  UntilIdle();
  EXPECT_THAT(TextOf("lblWordsInForce"), testing::AllOf(testing::StartsWith("Words to ignore: "),
                                                        testing::EndsWith(" common words of English")));
  messages.Forget();
}

// ---- What a run left out

TEST_F(LeftColumn, WordsLeftOutOfARunAreCountedWhenTheyAreWanted) {
  UseFile("We go on as we go on as it is. We go on as we go on as it is.\n");
  Choose("cboPhraseLength_0", 0);
  Count();
  EXPECT_EQ(TextOf("lblNote_WordsLeftOut"), "20 of 20 words left out: shorter than 3 letters.");
  Click("cmdNote_WordsLeftOut_CountLeftOut");
  EXPECT_EQ(main->findChild<QLabel*>(QStringLiteral("lblNote_WordsLeftOut")), nullptr);
  EXPECT_THAT(Output(), HasSubstr("go on as we"));
  EXPECT_FALSE(InParams<QCheckBox>("chkIgnoreShortWords")->isChecked());
  EXPECT_THAT(Shown(), IsEmpty());
}

TEST_F(LeftColumn, WordsLeftOutAreThoseOfTheRunWhateverIsChosenByNow) {
  UseFile("We go on as it is. We go on as it is.\n");
  Choose("cboPhraseLength_0", 0);
  Count();
  const std::string counted = TextOf("txbFile_0");
  Type("txbFile_0", WriteFile("other.txt", kText));
  Choose("cboMinimumFrequency", 5);
  Click("cmdNote_WordsLeftOut_CountLeftOut");
  EXPECT_EQ(TextOf("txbFile_0"), counted);
  EXPECT_THAT(Output(), HasSubstr("as it is"));
}

TEST_F(LeftColumn, SkippedFilesAreToldInEveryViewAndShown) {
  WriteFile("in/a.txt", kText);
  WriteFile("in/b.rtf", "{\\rtf1 the old man}");
  WriteFile("in/c.txt", kText);
  Click("optFolder");
  Type("txbFolder", PathOf("in"));
  Type("txbFile_1", PathOf("report.txt"));
  Choose("cboPhraseLength_0", 0);
  Count();
  messages.Forget();
  main->Panels().Frame->ShowView(RunView::Table);
  EXPECT_EQ(TextOf("lblNote_Skipped"), "1 file was skipped.");
  main->Panels().Frame->ShowView(RunView::Pictures);
  QApplication::processEvents();
  EXPECT_TRUE(Shown("lblNote_Skipped"));
  Click("cmdNote_Skipped_ShowSkipped");
  EXPECT_EQ(main->Panels().Frame->View(), RunView::Report);
  EXPECT_THAT(Output(), HasSubstr("b.rtf: is an RTF file"));
  Click("cmdClearOutput");
  EXPECT_EQ(TextOf("lblNote_Skipped"), "1 file was skipped.");
  Click("cmdNote_Skipped_ShowSkipped");
  EXPECT_THAT(Output(), HasSubstr("b.rtf: is an RTF file"));
}

}  // namespace
}  // namespace korv
