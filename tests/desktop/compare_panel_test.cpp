// The group "Compare with" in the left column: what the source is compared with, and how.

#include <QDropEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QToolButton>
#include <QUrl>

#include "desktop/main_window/compare_panel.h"
#include "desktop/results/run_tabs.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/geometry.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kWhales = "The white whale swam. The white whale swam. The white whale swam.\n";
const char* const kMen = "The old man wept. The old man wept. The old man wept.\n";

class CompareWith : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }

  QAction* Command(const char* name) const {
    for (QMenu* menu : main->menuBar()->findChildren<QMenu*>())
      for (QAction* action : menu->actions())
        if (WithoutMnemonic(action->text()) == QLatin1String(name)) return action;
    return nullptr;
  }
  void Open() const {
    Command("Compare with...")->trigger();
    UntilIdle();
  }
  /// Two files, A chosen as the source.
  void ChooseSides() {
    Type("txbFile_0", WriteFile("a.txt", kWhales));
    Open();
    Type("txbCompared", WriteFile("b.txt", kMen));
  }
  const RunRequest& Counted() const { return main->Result().InFront()->Request; }
  std::vector<std::string> PathsOf(const std::vector<SourcePath>& side) const {
    std::vector<std::string> paths;
    for (const SourcePath& path : side) paths.push_back(path.Path);
    return paths;
  }
  QMenu& RecentPairs() const {
    auto* const menu = Find<QToolButton>("cmdRecentPairs")->menu();
    emit menu->aboutToShow();
    return *menu;
  }
  void DropOn(QWidget& control, const QStringList& paths) const {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&control, &drop);
    EXPECT_TRUE(drop.isAccepted());
    QApplication::processEvents();
  }
};

TEST_F(CompareWith, IsHiddenUntilItIsWanted) {
  EXPECT_FALSE(Shown("fraCompare"));
  Open();
  EXPECT_TRUE(Shown("fraCompare"));
  EXPECT_EQ(Find<QGroupBox>("fraCompare")->title().toStdString(), "Compare with");
  EXPECT_EQ(main->focusWidget(), Find<QLineEdit>("txbCompared"));
  EXPECT_EQ(main->Work().Compared(), ComparedWith{});
  Click("cmdCloseCompare");
  EXPECT_FALSE(Shown("fraCompare"));
  EXPECT_EQ(main->Work().Compared(), std::nullopt);
}

TEST_F(CompareWith, BringsTheLeftColumnBackWithIt) {
  Command("Left column")->trigger();
  ASSERT_FALSE(Shown("fraColumn"));
  Open();
  EXPECT_TRUE(Shown("fraCompare"));
}

TEST_F(CompareWith, IsNoPartOfWhatIsSaved) {
  ChooseSides();
  ASSERT_TRUE(Start());
  EXPECT_FALSE(Shown("fraCompare"));
  Open();
  EXPECT_EQ(TextOf("txbCompared"), "");
}

TEST_F(CompareWith, ComparesByWordsAndNoDraftsAtFirst) {
  Open();
  const auto* by = Find<QComboBox>("cboCompareBy");
  std::vector<std::string> items;
  for (int i = 0; i < by->count(); ++i) items.push_back(by->itemText(i).toStdString());
  EXPECT_THAT(items, ElementsAre("by words", "by files", "by occurrences in no longer phrase"));
  EXPECT_EQ(by->currentIndex(), 0);
  EXPECT_FALSE(Checked("chkDrafts"));
  EXPECT_EQ(Find<QCheckBox>("chkDrafts")->text().toStdString(), "A is a new version of B");
}

TEST_F(CompareWith, HasTheCountButtonCountBothSides) {
  ChooseSides();
  Choose("cboCompareBy", 1);
  Count();
  EXPECT_THAT(PathsOf(Counted().Paths), ElementsAre(PathOf("a.txt")));
  EXPECT_THAT(PathsOf(Counted().Compared), ElementsAre(PathOf("b.txt")));
  EXPECT_EQ(Counted().Comparison, (ComparisonChoice{ComparisonBasis::Files, 1, false}));
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("a.txt"));
  Click("cmdCloseCompare");
  Count();
  EXPECT_THAT(PathsOf(Counted().Compared), IsEmpty());
}

TEST_F(CompareWith, SaysThatThePathIsMissing) {
  Type("txbFile_0", WriteFile("a.txt", kWhales));
  Open();
  Type("txbCompared", "  ");
  Find<QPushButton>("cmdCountPhrases")->setFocus();
  Count();
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Nothing to compare with | "
                          "Please name the file or folder that is to be compared with."));
  EXPECT_FALSE(main->Result().HasResult());
  EXPECT_EQ(main->focusWidget(), Find<QLineEdit>("txbCompared"));
}

struct MissingSide {
  const char* Source;
  const char* A;
  const char* B;
  const char* Message;
};

TEST_F(CompareWith, SaysWhichSideIsNotThere) {
  const std::string there = WriteFile("there.txt", kWhales);
  const MissingSide cases[] = {
      {"optInFile", "there.txt", "gone.txt",
       "Nothing to compare with | What is to be compared with does not exist."},
      {"optInFile", "gone.txt", "there.txt", "File not found | Input file does not exist."},
      {"optFolder", "gone", "there.txt", "Invalid input | Folder does not exist"},
      {"optFolder", "", "there.txt", "Invalid input | Folder not specified."}};
  Open();
  for (const MissingSide& side : cases) {
    Click(side.Source);
    Type("txbFile_0", PathOf(side.A));
    Type("txbFolder", *side.A == '\0' ? std::string() : PathOf(side.A));
    Type("txbCompared", PathOf(side.B));
    WindowTest::Shown();
    Count();
    EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr(side.Message))) << side.Message;
    EXPECT_FALSE(main->Result().HasResult());
  }
}

TEST_F(CompareWith, TakesWhatTheDialogsChoose) {
  Open();
  dialogs.WillChoose(PathOf("b.txt"));
  Click("cmdComparedFile");
  EXPECT_EQ(TextOf("txbCompared"), PathOf("b.txt"));
  dialogs.WillChoose(FolderPath());
  Click("cmdComparedFolder");
  EXPECT_EQ(TextOf("txbCompared"), FolderPath());
  Click("cmdComparedFile");
  EXPECT_EQ(TextOf("txbCompared"), FolderPath());
}

TEST_F(CompareWith, TakesWhatIsDroppedOnIt) {
  const std::string a = WriteFile("a.txt", kWhales);
  const std::string b = WriteFile("b.txt", kMen);
  Type("txbFile_0", a);
  Open();
  for (const char* control : {"txbCompared", "fraCompare"}) {
    Type("txbCompared", "");
    DropOn(*Find<QWidget>(control), {ToQt(b)});
    EXPECT_EQ(TextOf("txbCompared"), b) << control;
  }
  EXPECT_EQ(TextOf("txbFile_0"), a);
  DropOn(*Find<QWidget>("fraCompare"), {ToQt(a), ToQt(b)});
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("Please drop one file or folder to compare with.")));
  EXPECT_EQ(TextOf("txbCompared"), b);
}

TEST_F(CompareWith, LeavesToTheSourceWhatIsDroppedElsewhere) {
  Open();
  DropOn(*Find<QWidget>("txbFile_0"), {ToQt(WriteFile("a.txt", kWhales))});
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("a.txt"));
  EXPECT_EQ(TextOf("txbCompared"), "");
}

TEST_F(CompareWith, SwapsTheSides) {
  ChooseSides();
  Click("cmdSwapSides");
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("b.txt"));
  EXPECT_EQ(TextOf("txbCompared"), PathOf("a.txt"));
  Type("txbCompared", FolderPath());
  Click("cmdSwapSides");
  EXPECT_TRUE(Checked("optFolder"));
  EXPECT_EQ(TextOf("txbFolder"), FolderPath());
  EXPECT_EQ(TextOf("txbCompared"), PathOf("b.txt"));
}

TEST_F(CompareWith, SwapsOnlyWhatBothSidesCanHave) {
  ChooseSides();
  EXPECT_TRUE(Enabled("cmdSwapSides"));
  Type("txbCompared", "");
  EXPECT_FALSE(Enabled("cmdSwapSides"));
  Type("txbCompared", PathOf("b.txt"));
  Type("txbFile_0", "");
  EXPECT_FALSE(Enabled("cmdSwapSides"));
  Type("txbFile_0", PathOf("a.txt"));
  EXPECT_TRUE(Enabled("cmdSwapSides"));
  Click("optOnClipboard");
  EXPECT_FALSE(Enabled("cmdSwapSides"));
  main->OpenPaths({ToQt(PathOf("a.txt")), ToQt(PathOf("b.txt"))});
  EXPECT_FALSE(Enabled("cmdSwapSides"));
}

TEST_F(CompareWith, OffersThePairsThatWereCountedNewestFirstEachOnce) {
  ChooseSides();
  Count();
  Click("cmdSwapSides");
  Count();
  Click("cmdSwapSides");
  Count();
  Type("txbFile_0", "");
  Type("txbCompared", "");
  const QList<QAction*> pairs = RecentPairs().actions();
  ASSERT_EQ(pairs.size(), 4) << "two pairs, a line, and what forgets them";
  EXPECT_THAT(pairs[0]->text().toStdString(), testing::EndsWith("b.txt"));
  EXPECT_THAT(pairs[1]->text().toStdString(), testing::EndsWith("a.txt"));
  pairs[1]->trigger();
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("b.txt"));
  EXPECT_EQ(TextOf("txbCompared"), PathOf("a.txt"));
  RecentPairs().actions().last()->trigger();
  EXPECT_EQ(RecentPairs().actions().size(), 1);
  EXPECT_FALSE(RecentPairs().actions().first()->isEnabled());
}

TEST_F(CompareWith, KeepsTenPairs) {
  Type("txbFile_0", WriteFile("a.txt", kWhales));
  Open();
  for (int k = 0; k < 11; ++k) {
    Type("txbCompared", WriteFile("b" + std::to_string(k) + ".txt", kMen));
    Count();
  }
  const QList<QAction*> pairs = RecentPairs().actions();
  ASSERT_EQ(pairs.size(), 12);
  EXPECT_THAT(pairs[0]->text().toStdString(), testing::EndsWith("b10.txt"));
  EXPECT_THAT(pairs[9]->text().toStdString(), testing::EndsWith("b1.txt"));
}

TEST_F(CompareWith, RestsDuringARun) {
  OpenWithEveryTurn();
  ChooseSides();
  const char* const controls[] = {"txbCompared",  "cmdCloseCompare", "cmdComparedFile", "cmdComparedFolder",
                                  "cmdSwapSides", "cmdRecentPairs",  "cboCompareBy",    "chkDrafts"};
  bool looked = false;
  AtTheNextTurn([&] {
    looked = true;
    for (const char* control : controls) EXPECT_FALSE(Enabled(control)) << control;
  });
  Count();
  ASSERT_TRUE(looked);
  for (const char* control : controls) EXPECT_TRUE(Enabled(control)) << control;
}

TEST_F(CompareWith, IsReachedByTabBehindTheSource) {
  ChooseSides();
  QWidget* const first = Find<QWidget>("txbCompared");
  std::vector<std::string> order;
  QWidget* control = first;
  for (int k = 0; k < 8; ++k) {
    order.push_back(control->objectName().toStdString());
    control = control->nextInFocusChain();
  }
  EXPECT_THAT(order, ElementsAre("txbCompared", "cmdCloseCompare", "cmdComparedFile", "cmdComparedFolder",
                                 "cmdSwapSides", "cmdRecentPairs", "cboCompareBy", "chkDrafts"));
  for (const std::string& name : order) {
    const auto* reached = Find<QWidget>(name.c_str());
    EXPECT_TRUE(reached->focusPolicy() & Qt::TabFocus) << name;
    const auto* button = qobject_cast<const QAbstractButton*>(reached);
    EXPECT_FALSE(reached->accessibleName().isEmpty() && (button == nullptr || button->text().isEmpty()))
        << name;
    EXPECT_FALSE(reached->toolTip().isEmpty()) << name;
  }
}

TEST_F(CompareWith, FollowsTheSettingsOfARunThatAreTakenBack) {
  ChooseSides();
  Check("chkDrafts");
  Count();
  Click("cmdCloseCompare");
  Find<RunTabs>("tabRuns")->SettingsWanted(0);
  EXPECT_TRUE(Shown("fraCompare"));
  EXPECT_EQ(TextOf("txbCompared"), PathOf("b.txt"));
  EXPECT_TRUE(Checked("chkDrafts"));
}

}  // namespace
}  // namespace korv
