// Finished runs stay: a tab for each, until the user closes it.

#include <QMenu>
#include <QMenuBar>

#include "app/run/questions.h"
#include "app/run/run_description.h"
#include "base/size_text.h"
#include "desktop/results/run_tabs.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const char* const kWhale = "The white whale swam. The white whale swam.\n";
const char* const kMan = "The old man wept. The old man wept. The old man wept.\n";

class FinishedRuns : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }

  RunTabs& Tabs() const { return *Find<RunTabs>("tabRuns"); }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (int i = 0; i < Tabs().count(); ++i) names.push_back(Tabs().tabText(i).toStdString());
    return names;
  }
  void Bring(int index) const {
    Tabs().setCurrentIndex(index);
    UntilIdle();
    QApplication::processEvents();
    UntilIdle();
  }
  void Close(int index) const {
    emit Tabs().tabCloseRequested(index);
    UntilIdle();
  }
  void CountText(const std::string& name, const std::string& text) {
    Type("txbFile_0", WriteFile(name, text));
    Count();
  }
  void CountTwo() {
    CountText("whale.txt", kWhale);
    CountText("man.txt", kMan);
    ASSERT_EQ(Tabs().count(), 2);
  }
};

TEST_F(FinishedRuns, HaveNoTabsBeforeTheFirst) {
  EXPECT_FALSE(Shown("tabRuns"));
  EXPECT_FALSE(Shown("lblHeadLine"));
}

TEST_F(FinishedRuns, AreNamedAfterTheirSources) {
  CountText("whale.txt", kWhale);
  CountText("a & b.txt", kMan);
  CountText("whale.txt", kWhale);
  Click("optOnClipboard");
  clipboard.Content = kMan;
  Count();
  EXPECT_THAT(Names(), testing::ElementsAre("whale.txt", "a && b.txt", "whale.txt (2)", "Clipboard"));
  EXPECT_EQ(Tabs().currentIndex(), 3);
}

TEST_F(FinishedRuns, SayInALineWhatTheyAre) {
  clock.Step = std::chrono::seconds(0);
  CountTwo();
  EXPECT_EQ(TextOf("lblHeadLine"), "man.txt: 12 words, 1 different phrase, 0s");
  Bring(0);
  EXPECT_EQ(TextOf("lblHeadLine"), "whale.txt: 8 words, 1 different phrase, 0s");
  EXPECT_THAT(Tabs().tabToolTip(0).toStdString(), StartsWith(PathOf("whale.txt") + "\nPhrases of 4 to 6"));
}

TEST_F(FinishedRuns, HaveTheTextBoxLabelsAndNotesWhenTheyComeInFront) {
  CountTwo();
  EXPECT_THAT(Output(), HasSubstr("the old man wept"));
  Bring(0);
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
  EXPECT_THAT(Output(), Not(HasSubstr("old man")));
  EXPECT_EQ(TextOf("lblNumOccurrences"), "No. of instances of phrases in this list: 2");
  EXPECT_EQ(TextOf("lblNote_Source"), "Phrases of whale.txt");
  EXPECT_EQ(TextOf("lblStatusWords"), "8 words");
  EXPECT_EQ(TextOf("lblNote_OtherSource"), "Another source is chosen now.");
  Bring(1);
  EXPECT_THAT(Output(), HasSubstr("the old man wept"));
  EXPECT_EQ(TextOf("lblNote_Source"), "Phrases of man.txt");
}

TEST_F(FinishedRuns, FollowTheFormatThatWasChosenMeanwhile) {
  CountTwo();
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(Output(), HasSubstr("\nthe old man wept\n"));
  Bring(0);
  EXPECT_THAT(Output(), HasSubstr("\nthe white whale swam\n"));
}

TEST_F(FinishedRuns, StayClearedWhenTheirTextBoxWasCleared) {
  CountTwo();
  Click("cmdClearOutput");
  Bring(0);
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
  Bring(1);
  EXPECT_EQ(Output(), "");
  Click("cmdNote_NotInSight_ShowLastList");
  EXPECT_THAT(Output(), HasSubstr("the old man wept"));
}

TEST_F(FinishedRuns, AreClosedOneByOneButForTheLast) {
  CountTwo();
  const ShownResult& closed = main->Result().Runs().At(1);
  const uint64_t both = main->Result().Runs().Memory();
  EXPECT_EQ(both, MemoryOf(closed) + MemoryOf(main->Result().Runs().At(0)));
  Close(1);
  EXPECT_LT(main->Result().Runs().Memory(), both);
  EXPECT_THAT(Names(), testing::ElementsAre("whale.txt"));
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
  EXPECT_FALSE(Tabs().tabsClosable());
  Close(0);
  EXPECT_EQ(Tabs().count(), 1);
}

TEST_F(FinishedRuns, AreClosedBehindTheOneInFront) {
  CountTwo();
  Close(0);
  EXPECT_THAT(Names(), testing::ElementsAre("man.txt"));
  EXPECT_THAT(Output(), HasSubstr("the old man wept"));
  EXPECT_EQ(TextOf("lblNote_Source"), "Phrases of man.txt");
}

TEST_F(FinishedRuns, StayWhenTheNextOneIsStopped) {
  CountTwo();
  UseLongText();
  messages.WillAnswer(questions::kReallyStop, Answer::Yes);
  messages.WillAnswer(questions::kCountingInterrupted, Answer::No);
  DuringTheRun([this] { Click("cmdCountPhrases"); });
  Count();
  EXPECT_EQ(Tabs().count(), 2);
  EXPECT_TRUE(WindowTest::Shown("lblNote_NotInSight"));
  Bring(0);
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
}

TEST_F(FinishedRuns, LeaveTheTextBoxToACountThatGoesOn) {
  CountTwo();
  UseLongText();
  bool looked = false;
  DuringTheRun([&] {
    looked = true;
    Tabs().setCurrentIndex(0);
    EXPECT_EQ(TextOf("lblHeadLine"), "whale.txt: 8 words, 1 different phrase, 0s");
    EXPECT_THAT(Output(), StartsWith("Now counting"));
  });
  Count();
  ASSERT_TRUE(looked);
  EXPECT_EQ(Tabs().currentIndex(), 2);
  EXPECT_THAT(Output(), StartsWith("There "));
  Bring(1);
  EXPECT_THAT(Output(), HasSubstr("the old man wept"));
  Bring(0);
  EXPECT_THAT(Output(), HasSubstr("the white whale swam"));
}

TEST_F(FinishedRuns, KeepTheirListsWhenAnotherComesInFrontWhileOneIsListed) {
  OpenWithEveryTurn();
  CountTwo();
  AtTheNextTurn([this] { Tabs().setCurrentIndex(0); });
  Choose("cboDisplayFormat", 8);
  QApplication::processEvents();
  EXPECT_THAT(Output(), HasSubstr("\nthe white whale swam\n"));
  Bring(1);
  EXPECT_THAT(Output(), HasSubstr("\nthe old man wept\n"));
  EXPECT_THAT(Output(), Not(HasSubstr("whale")));
}

TEST_F(FinishedRuns, AreMarkedWhenTheyWereCountedUnderOtherRules) {
  CountText("whale.txt", kWhale);
  Choose("cboPhraseLength_0", 1);
  CountText("man.txt", kMan);
  EXPECT_THAT(Names(), testing::ElementsAre("whale.txt *", "man.txt"));
  EXPECT_THAT(Tabs().tabToolTip(0).toStdString(),
              HasSubstr("Counted under other rules than those chosen now: phrase lengths."));
  Choose("cboPhraseLength_0", 2);
  EXPECT_THAT(Names(), testing::ElementsAre("whale.txt", "man.txt *"));
  EXPECT_THAT(Tabs().tabToolTip(0).toStdString(), Not(HasSubstr("other rules")));
}

TEST_F(FinishedRuns, TellTheirMemoryOnceThereAreSeveral) {
  CountText("whale.txt", kWhale);
  EXPECT_FALSE(Shown("lblStatusMemory"));
  CountText("man.txt", kMan);
  EXPECT_EQ(TextOf("lblStatusMemory"), "2 runs: " + FormatSize(main->Result().Runs().Memory(), {}));
  EXPECT_TRUE(Shown("lblStatusMemory"));
  Close(0);
  EXPECT_FALSE(Shown("lblStatusMemory"));
}

class SettingsOfARun : public FinishedRuns {
 protected:
  /// The command of that name in the menus, as the open menu shows it.
  QAction& Command(const char* menu, const char* name) const {
    QMenu* const found = MenuOf(menu);
    emit found->aboutToShow();
    for (QAction* action : found->actions())
      if (WithoutMnemonic(action->text()).startsWith(QLatin1String(name))) return *action;
    ADD_FAILURE() << name;
    return *found->menuAction();
  }
  QMenu* MenuOf(const char* name) const {
    for (QAction* action : main->menuBar()->actions())
      if (WithoutMnemonic(action->text()) == QLatin1String(name)) return action->menu();
    return nullptr;
  }
  void Do(const char* menu, const char* name) const {
    Command(menu, name).trigger();
    UntilIdle();
  }
};

TEST_F(SettingsOfARun, AreTakenBackInOneStepAndThatIsUndoneInOne) {
  Check("chkAllowWordsWithNumerals");
  Type("txbWordsToIgnoreOrCount_0", "old");
  Type("txbWordsToIgnoreOrCount_1", "white");
  CountText("whale.txt", kWhale);
  Check("chkAllowWordsWithNumerals", false);
  Type("txbWordsToIgnoreOrCount_0", "new");
  Type("txbWordsToIgnoreOrCount_1", "");
  Type("txbFile_0", PathOf("other.txt"));
  Choose("cboPhraseLength_1", 0);
  Choose("cboDisplayFormat", 8);
  Do("File", "Take settings of the run back");
  EXPECT_TRUE(Checked("chkAllowWordsWithNumerals"));
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "old");
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_1"), "white");
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("whale.txt"));
  EXPECT_EQ(ItemOf("cboPhraseLength_1"), 4);
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 8) << "how a run is listed stays";
  EXPECT_EQ(main->findChild<QLabel*>(QStringLiteral("lblNote_OtherRules")), nullptr);
  EXPECT_EQ(Command("Edit", "Undo").text().toStdString(), "&Undo: Settings of whale.txt");
  Do("Edit", "Undo");
  EXPECT_FALSE(Checked("chkAllowWordsWithNumerals"));
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "new");
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_1"), "");
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("other.txt"));
  EXPECT_EQ(ItemOf("cboPhraseLength_1"), 0);
  EXPECT_FALSE(Command("Edit", "Undo").isEnabled());
}

TEST_F(SettingsOfARun, CountSingleWordsIntoATabOfTheirOwn) {
  Type("txbFile_1", PathOf("out.txt"));
  Type("txbFile_0", WriteFile("whale.txt", kWhale));
  Do("File", "Count single words");
  EXPECT_THAT(Names(), testing::ElementsAre("whale.txt: words"));
  EXPECT_THAT(Output(), HasSubstr("whale"));
  EXPECT_THAT(Output(), Not(HasSubstr("white whale")));
  EXPECT_FALSE(files->FileExists(PathFromText(PathOf("out.txt"))));
  EXPECT_EQ(main->findChild<QLabel*>(QStringLiteral("lblNote_OtherRules")), nullptr);
  EXPECT_EQ(ItemOf("cboPhraseLength_0"), 2) << "the lengths stay";
  Choose("cboMinimumFrequency", 2);
  Click("cmdNote_OtherRules_CountAgain");
  EXPECT_THAT(Names(), testing::ElementsAre("whale.txt: words *", "whale.txt: words (2)"));
}

TEST_F(SettingsOfARun, AreThoseOfTheTabThatWasAskedFor) {
  CountText("whale.txt", kWhale);
  CountText("man.txt", kMan);
  Tabs().SettingsWanted(0);
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("whale.txt"));
  EXPECT_EQ(Tabs().currentIndex(), 1);
}

TEST_F(SettingsOfARun, CannotBeUndoneOnceSomethingElseWasChosen) {
  CountText("whale.txt", kWhale);
  Choose("cboPhraseLength_0", 0);
  Do("File", "Take settings of the run back");
  Choose("cboPhraseLength_0", 1);
  EXPECT_FALSE(Command("Edit", "Undo").isEnabled());
}

}  // namespace
}  // namespace korv
