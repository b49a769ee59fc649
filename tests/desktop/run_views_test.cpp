// The views of a finished run: the table with its contexts, and the report.

#include <QMenuBar>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>

#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/run_tabs.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

const char* const kWhale = "The white whale swam. The white whale swam.\n";
const char* const kMan = "The old man wept. The old man wept. The old man wept.\n";

class RunViews : public WindowTest {
 protected:
  void SetUp() override {
    View = RunView::Table;
    ASSERT_TRUE(Start());
    main->activateWindow();
  }

  ResultFrame& Frame() const { return *main->Panels().Frame; }
  void CountText(const std::string& name, const std::string& text) {
    Type("txbFile_0", WriteFile(name, text));
    Count();
  }
  void UntilShown() const {
    UntilIdle();
    while (!Frame().Table->Idle() || !Frame().Contexts->Idle())
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  }
  /// The phrases that the table shows.
  std::vector<std::string> Phrases() const {
    UntilShown();
    const QAbstractItemModel& rows = *Frame().Table->tblPhrases->model();
    std::vector<std::string> phrases;
    for (int row = 0; row < rows.rowCount(); ++row)
      for (int column = 0; column < rows.columnCount(); ++column)
        if (rows.headerData(column, Qt::Horizontal).toString() == QLatin1String("Phrase"))
          phrases.push_back(rows.index(row, column).data().toString().toStdString());
    return phrases;
  }
};

TEST_F(RunViews, AreHiddenBehindTheStartBeforeTheFirstRun) {
  EXPECT_FALSE(Frame().Views->tabBar()->isVisible());
  EXPECT_TRUE(Shown("txbOutput"));
  EXPECT_FALSE(Shown("tblPhrases"));
}

TEST_F(RunViews, ShowTheTableFirst) {
  CountText("whale.txt", kWhale);
  EXPECT_TRUE(Frame().Views->tabBar()->isVisible());
  EXPECT_TRUE(Shown("tblPhrases"));
  EXPECT_THAT(Phrases(), ElementsAre("the white whale swam"));
}

TEST_F(RunViews, ShowTheTableFirstWhenThereIsAnOutputFileToo) {
  Type("txbFile_1", PathOf("out.txt"));
  CountText("whale.txt", kWhale);
  EXPECT_TRUE(Shown("tblPhrases"));
  EXPECT_THAT(Phrases(), ElementsAre("the white whale swam"));
  EXPECT_THAT(ReadFile(PathOf("out.txt")), HasSubstr("the white whale swam"));
}

TEST_F(RunViews, FollowTheRunInFront) {
  CountText("whale.txt", kWhale);
  CountText("man.txt", kMan);
  EXPECT_THAT(Phrases(), ElementsAre("the old man wept"));
  Find<RunTabs>("tabRuns")->setCurrentIndex(0);
  EXPECT_THAT(Phrases(), ElementsAre("the white whale swam"));
  Find<RunTabs>("tabRuns")->tabCloseRequested(0);
  EXPECT_THAT(Phrases(), ElementsAre("the old man wept"));
}

TEST_F(RunViews, StayTheOneThatWasChosenWhenTheNextRunComes) {
  CountText("whale.txt", kWhale);
  QTest::keyClick(main.get(), Qt::Key_2, Qt::AltModifier);
  EXPECT_TRUE(Shown("txbOutput"));
  CountText("man.txt", kMan);
  EXPECT_TRUE(Shown("txbOutput"));
  QTest::keyClick(main.get(), Qt::Key_1, Qt::AltModifier);
  EXPECT_TRUE(Shown("tblPhrases"));
}

TEST_F(RunViews, TellOfTheListingBesideTheReportOnly) {
  CountText("whale.txt", kWhale);
  Choose("cboPhraseLength_1", 5);
  EXPECT_EQ(TextOf("lblNote_OtherRules"), "Counted under other rules than those chosen now: phrase lengths.");
  EXPECT_EQ(main->findChild<QLabel*>(QStringLiteral("lblNote_Source")), nullptr);
  Frame().ShowView(RunView::Report);
  EXPECT_EQ(TextOf("lblNote_Source"), "Phrases of whale.txt");
  EXPECT_EQ(TextOf("lblNote_OtherRules"), "Counted under other rules than those chosen now: phrase lengths.");
}

TEST_F(RunViews, OpenTheContextsOfAPhrase) {
  CountText("man.txt", kMan);
  UntilShown();
  Frame().splTable->setSizes({100, 0});
  Frame().Table->tblPhrases->GoTo(0);
  QTest::keyClick(Frame().Table->tblPhrases, Qt::Key_Return);
  UntilShown();
  EXPECT_EQ(TextOf("txbContextPhrase"), "the old man wept");
  EXPECT_THAT(TextOf("lblContextCount"), HasSubstr("3 occurrences"));
  EXPECT_GT(Frame().splTable->sizes()[1], 0);
}

TEST_F(RunViews, HaveTheFilterOfTheOneInFrontUnderTheSameKey) {
  CountText("man.txt", kMan);
  QTest::keyClick(main.get(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(main->focusWidget(), Find<QWidget>("txbMatch"));
  QTest::keyClick(main.get(), Qt::Key_2, Qt::AltModifier);
  QTest::keyClick(main.get(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(main->focusWidget(), Find<QWidget>("txbFilterWords"));
}

TEST_F(RunViews, ShareTheRoomAsTheUserLikedItLast) {
  CountText("man.txt", kMan);
  Frame().splTable->setSizes({300, 100});
  const QList<int> heights = Frame().splTable->sizes();
  main->close();
  ASSERT_TRUE(Start());
  CountText("man.txt", kMan);
  EXPECT_EQ(Frame().splTable->sizes(), heights);
}

TEST_F(RunViews, GetTheRoomOfTheLeftColumnWhenItIsFolded) {
  const int width = Frame().width();
  QTest::keyClick(main.get(), Qt::Key_B, Qt::ControlModifier);
  QApplication::processEvents();
  EXPECT_FALSE(Shown("fraColumn"));
  EXPECT_GT(Frame().width(), width);
  main->close();
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Shown("fraColumn"));
  QTest::keyClick(main.get(), Qt::Key_L, Qt::ControlModifier);
  EXPECT_TRUE(Shown("fraColumn"));
  EXPECT_EQ(main->focusWidget(), Find<QWidget>("txbFile_0"));
}

TEST_F(RunViews, HaveTheOptionsOfTheReportAboveIt) {
  EXPECT_TRUE(Shown("cboDisplayFormat"));
  EXPECT_TRUE(Shown("txbFile_1"));
  EXPECT_FALSE(Shown("cmdReportOptions"));
  CountText("man.txt", kMan);
  Frame().ShowView(RunView::Table);
  EXPECT_FALSE(Shown("cboDisplayFormat"));
  EXPECT_FALSE(Shown("cmdReportOptions"));
  Frame().ShowView(RunView::Report);
  EXPECT_TRUE(Shown("cboDisplayFormat"));
  EXPECT_TRUE(Shown("cmdReportOptions"));
}

TEST_F(RunViews, FoldTheOptionsOfTheReportAwayAndRememberThat) {
  CountText("man.txt", kMan);
  Frame().ShowView(RunView::Report);
  const int height = Find<QWidget>("txbOutput")->height();
  Click("cmdReportOptions");
  QApplication::processEvents();
  EXPECT_FALSE(Shown("cboDisplayFormat"));
  EXPECT_GT(Find<QWidget>("txbOutput")->height(), height);
  main->close();
  ASSERT_TRUE(Start());
  // Nothing is counted yet, and there are no tabs to unfold them from.
  EXPECT_TRUE(Shown("cboDisplayFormat"));
  CountText("man.txt", kMan);
  Frame().ShowView(RunView::Report);
  EXPECT_FALSE(Shown("cboDisplayFormat"));
  Click("cmdReportOptions");
  EXPECT_TRUE(Shown("cboDisplayFormat"));
}

TEST_F(RunViews, SaveTheListUnderANameThatIsAskedFor) {
  CountText("man.txt", kMan);
  dialogs.WillChoose(PathOf("list.txt"));
  QTest::keyClick(main.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  UntilIdle();
  EXPECT_THAT(ReadFile(PathOf("list.txt")), HasSubstr("the old man wept"));
}

TEST_F(RunViews, HaveAChipThatLiftsTheFilterOfTheReport) {
  CountText("man.txt", kMan);
  EXPECT_EQ(main->findChild<QToolButton*>(QStringLiteral("cmdChip_1")), nullptr);
  Type("txbFilterWords", "whale");
  Click("cmdFilterResults");
  EXPECT_EQ(Find<QToolButton>("cmdChip_1")->accessibleName().toStdString(), "Report filtered: whale");
  Click("cmdChip_1");
  EXPECT_EQ(TextOf("txbFilterWords"), "");
  EXPECT_EQ(main->findChild<QToolButton*>(QStringLiteral("cmdChip_1")), nullptr);
}

}  // namespace
}  // namespace korv
