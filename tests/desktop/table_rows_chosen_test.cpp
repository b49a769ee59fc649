// What is done with rows of the table: choosing, jumping, copying, and the menu of a row.

#include <QClipboard>
#include <QMimeData>
#include <QTimer>

#include "desktop/questions.h"
#include "tests/desktop/table_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ChosenRows : public TableTest {
 protected:
  void SetUp() override {
    Show(RunOf({{"the white whale", 5}, {"whale oil", 3}, {"white sail", 2}, {"côté droit", 1}}));
    for (const char* column : {"mnuColumn_rank", "mnuColumn_words", "mnuColumn_dispersion",
                               "mnuColumn_net_frequency", "mnuColumn_first"})
      ChooseFrom("cmdColumns", column);
    QGuiApplication::clipboard()->clear();
  }
  static std::string Copied() { return QGuiApplication::clipboard()->text().toStdString(); }
  static std::string CopiedTable() { return QGuiApplication::clipboard()->mimeData()->html().toStdString(); }
};

TEST_F(ChosenRows, AreNoneAtFirst) {
  EXPECT_EQ(panel->CurrentPhrase(), kNoPhrase);
  EXPECT_THAT(Grid().SelectedRows(), IsEmpty());
}

TEST_F(ChosenRows, AreToldOf) {
  std::vector<std::string> current;
  panel->CurrentChanged = [&](PhraseIndex phrase) {
    const std::string text = phrase == kNoPhrase ? "" : shown->Table.Text(phrase);
    if (current.empty() || current.back() != text) current.push_back(text);
  };
  Press(Qt::Key_Down);
  Grid().GoTo(2);
  EXPECT_THAT(current.back(), "white sail");
}

TEST_F(ChosenRows, AreCopiedWithTheirHeading) {
  Grid().GoTo(1);
  Press(Qt::Key_Down, Qt::ShiftModifier);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(Copied(), "Phrase\tFreq\tPer million\nwhale oil\t3\t111111.111\nwhite sail\t2\t74074.0741\n");
  EXPECT_THAT(CopiedTable(), HasSubstr("<tr><th>Phrase</th><th>Freq</th><th>Per million</th></tr>"));
  EXPECT_THAT(CopiedTable(), HasSubstr("<tr><td>whale oil</td><td align=\"right\">3</td>"));
}

TEST_F(ChosenRows, AreCopiedWithoutIt) {
  Grid().GoTo(0);
  Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Copied(), "the white whale\t5\t185185.185\n");
}

TEST_F(ChosenRows, AreCopiedInTheMannerOfTheLocaleWithoutGroups) {
  numbers = {.DecimalPoint = ",", .GroupSeparator = ".", .Grouping = "\3"};
  Open();
  Show(RunOf({{"old ship", 1234}, {"red sea", 2}}));
  Grid().GoTo(0);
  Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_THAT(Copied(), HasSubstr("1234\t499190,939"));
}

TEST_F(ChosenRows, AreAllOfThem) {
  Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_THAT(Grid().SelectedRows(), ElementsAre(RowRange{0, 3}));
  Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(std::ranges::count(Copied(), '\n'), 4);
}

TEST_F(ChosenRows, OpenTheirContexts) {
  std::vector<std::string> opened;
  panel->ShowContexts = [&](PhraseIndex phrase) { opened.push_back(shown->Table.Text(phrase)); };
  Grid().GoTo(1);
  Press(Qt::Key_Return);
  Press(Qt::Key_F4);
  const QPoint at = Grid().visualRect(Model().index(0, Section("Phrase"))).center();
  QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, at);
  EXPECT_THAT(opened, ElementsAre("whale oil", "whale oil", "the white whale"));
}

TEST_F(ChosenRows, AreJumpedToByTyping) {
  Press(Qt::Key_Down);
  QTest::keyClicks(&Grid(), "white s");
  EXPECT_EQ(Current(), "white sail");
}

TEST_F(ChosenRows, AreJumpedToWithoutTheirAccents) {
  QTest::keyClicks(&Grid(), "cote d");
  EXPECT_EQ(Current(), "côté droit");
}

TEST_F(ChosenRows, AreJumpedToInAlphabeticalOrderEitherWay) {
  ClickHeading("Phrase");
  QTest::keyClicks(&Grid(), "wh");
  EXPECT_EQ(Current(), "whale oil");
  Open();
  Show(shown);
  ClickHeading("Phrase");
  ClickHeading("Phrase");
  QTest::keyClicks(&Grid(), "wh");
  EXPECT_EQ(Current(), "white sail");
}

TEST_F(ChosenRows, StayWhenNothingBeginsWithWhatIsTyped) {
  Grid().GoTo(1);
  QTest::keyClicks(&Grid(), "xyz");
  EXPECT_EQ(Current(), "whale oil");
}

TEST_F(ChosenRows, HaveAMenuOfWhatOthersDo) {
  std::vector<std::string> done;
  panel->Actions.IgnoreWord = [&](const std::string& word) { done.push_back("ignore " + word); };
  panel->Actions.LeaveOut = [&](const std::vector<PhraseIndex>& phrases) {
    for (const PhraseIndex phrase : phrases) done.push_back("without " + shown->Table.Text(phrase));
  };
  Grid().GoTo(1);
  emit Grid().customContextMenuRequested({10, 10});
  auto* menu = Find<QMenu>("mnuRow");
  EXPECT_EQ(menu->findChild<QAction*>("mnuShowWhy"), nullptr);
  EXPECT_EQ(menu->findChild<QAction*>("mnuCountOnlyWith"), nullptr);
  menu->findChild<QMenu*>("mnuIgnoreWord")->actions().back()->trigger();
  menu->findChild<QAction*>("mnuLeaveOut")->trigger();
  menu->close();
  EXPECT_THAT(done, ElementsAre("ignore oil", "without whale oil"));
}

TEST_F(ChosenRows, HaveDetails) {
  EXPECT_FALSE(panel->Details->isVisible());
  Click("cmdRowDetails");
  EXPECT_EQ(panel->Details->toPlainText(), "Select a phrase in the table.");
  Grid().GoTo(1);
  UntilIdle();
  EXPECT_THAT(panel->Details->toPlainText().toStdString(), HasSubstr("whale oil"));
  EXPECT_THAT(panel->Details->toPlainText().toStdString(), HasSubstr("On its own: 3 of 3."));
}

class ManyRows : public TableTest {
 protected:
  void SetUp() override {
    ReportWorld world;
    for (int i = 0; i < 210'000; ++i) world.Say("w" + std::to_string(i) + " x");
    Show(RunOf(std::move(world)));
    Press(Qt::Key_A, Qt::ControlModifier);
  }
};

TEST_F(ManyRows, AreSelectedAllAtOnce) {
  EXPECT_TRUE(Grid().IsAllSelected());
  EXPECT_THAT(Grid().SelectedRows(), ElementsAre(RowRange{0, 209'999}));
  Grid().GoTo(5);
  EXPECT_FALSE(Grid().IsAllSelected());
  EXPECT_THAT(Grid().SelectedRows(), ElementsAre(RowRange{5, 5}));
}

TEST_F(ManyRows, AreCopiedAfterAQuestion) {
  messages.WillAnswer(questions::kCopyManyRows, Answer::No);
  Press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_EQ(messages.Shown.size(), 1);
  EXPECT_EQ(messages.Shown[0].Title, "Copy rows");
  EXPECT_EQ(messages.Shown[0].Text,
            "Do you wish to copy 210,000 rows?\nOther programs may not have room for so many.");
  EXPECT_EQ(messages.Shown[0].NoButton, "Copy the first 200,000");
  EXPECT_EQ(messages.Shown[0].DefaultAnswer, Answer::No);
  EXPECT_EQ(messages.Shown[0].ExtraButton, "") << "nobody here can export";
  EXPECT_EQ(QGuiApplication::clipboard()->text().count(u'\n'), 200'000);
}

TEST_F(ManyRows, AreExportedInsteadIfTheUserLikes) {
  QGuiApplication::clipboard()->clear();
  int wanted = 0;
  panel->ExportWanted = [&] { ++wanted; };
  messages.WillAnswer(questions::kCopyManyRows, Answer::Extra);
  Press(Qt::Key_C, Qt::ControlModifier);
  ASSERT_EQ(messages.Shown.size(), 1);
  EXPECT_EQ(messages.Shown[0].ExtraButton, "Export...");
  EXPECT_EQ(wanted, 1);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
}

TEST_F(ManyRows, AreNotCopiedWhenTheUserCancels) {
  QGuiApplication::clipboard()->clear();
  messages.WillAnswer(questions::kCopyManyRows, Answer::Cancel);
  Press(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
}

}  // namespace
}  // namespace korv
