// Finished runs stay: a tab for each, until the user closes it.

#include <QTabBar>
#include <QTabWidget>

#include "app/run/questions.h"
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
  const std::weak_ptr<ShownResult> closed = main->Result().InFront();
  Close(1);
  EXPECT_TRUE(closed.expired());
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

}  // namespace
}  // namespace korv
