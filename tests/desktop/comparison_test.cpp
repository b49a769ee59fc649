// A comparison: one run over two sources, as a finished run of the window.

#include <QMenu>
#include <QMenuBar>

#include "app/run/questions.h"
#include "desktop/dialogs/frm_export.h"
#include "desktop/questions.h"
#include "desktop/results/run_tabs.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const char* const kWhales = "The white whale swam. The white whale swam. The white whale swam.\n";
const char* const kMen = "The old man wept. The old man wept. The white whale swam. Ox.\n";

class Comparison : public WindowTest {
 protected:
  void SetUp() override {
    clock.Step = std::chrono::seconds(0);
    ASSERT_TRUE(Start());
  }

  const ShownResult& Result() const { return *main->Result().InFront(); }
  const CountedRun& Run() const { return Result().Run; }
  RunTabs& Tabs() const { return *Find<RunTabs>("tabRuns"); }
  std::string TabText(int index) const { return Tabs().tabText(index).toStdString(); }
  QMenu* FileMenu() const {
    QMenu* const menu = main->menuBar()->actions().front()->menu();
    emit menu->aboutToShow();
    return menu;
  }
  void Do(const char* name) const {
    UntilIdle();
    for (QAction* action : FileMenu()->actions())
      if (WithoutMnemonic(action->text()) == QLatin1String(name)) {
        action->trigger();
        return UntilIdle();
      }
    ADD_FAILURE() << name;
  }
  std::string NoteOf(const char* name) const {
    const auto* label = main->findChild<QLabel*>(QLatin1String("lblNote_") + QLatin1String(name));
    return label == nullptr ? std::string() : label->text().toStdString();
  }
};

TEST_F(Comparison, CountsBothSidesInOneRunNamedAfterBoth) {
  CountCompared(kWhales, kMen);
  ASSERT_TRUE(main->Result().HasResult());
  ASSERT_TRUE(Run().Facts.SecondSide.has_value());
  EXPECT_EQ(SizeOf(Run().Facts, Side::A).Words.Read(), 12U);
  EXPECT_EQ(SizeOf(Run().Facts, Side::B).Words.Read(), 13U);
  EXPECT_EQ(TabText(0), "a.txt - b.txt");
}

TEST_F(Comparison, KeepsHowItComparesWithTheRun) {
  EXPECT_EQ(ComparisonChoice(), (ComparisonChoice{ComparisonBasis::Words, 1, false}));
  const ComparisonChoice how{ComparisonBasis::Files, 10, true};
  CountCompared(kWhales, kMen, how);
  ASSERT_TRUE(main->Result().HasResult());
  EXPECT_EQ(Run().Comparison, how);
}

TEST_F(Comparison, SaysWhatBothSidesAreAndWhatToThinkOfTheTest) {
  CountCompared(kWhales, kMen);
  EXPECT_EQ(TextOf("lblHeadLine"),
            "A: a.txt, 1 file, 12 words; B: b.txt, 1 file, 13 words (12 taken); 2 different phrases, 0s");
  EXPECT_THAT(TextOf("lblBothSides"),
              AllOf(HasSubstr("Both sides: Phrases of 4 to 6 words that occur at least 3 times; "),
                    HasSubstr("letters")));
  EXPECT_EQ(
      TextOf("lblComparisonNote"),
      "Phrases stand in each other and depend on each other: the test sorts them out, it proves nothing.");
  EXPECT_TRUE(Shown("lblBothSides"));
  EXPECT_TRUE(Shown("lblComparisonNote"));
  EXPECT_THAT(Tabs().tabToolTip(0).toStdString(),
              AllOf(HasSubstr("A: " + PathOf("a.txt")), HasSubstr("B: " + PathOf("b.txt"))));
  main->Work().CompareWith(ChangedBy::User, std::nullopt);
  Count();
  EXPECT_FALSE(Shown("lblBothSides"));
  EXPECT_FALSE(Shown("lblComparisonNote"));
}

TEST_F(Comparison, SaysThatDraftsArePutToNoTest) {
  CountCompared(kWhales, kMen, {.Drafts = true});
  EXPECT_EQ(TextOf("lblComparisonNote"),
            "A is a new version of B: what is new in it, gone, more and less, without a test.");
}

TEST_F(Comparison, NamesEachSideAsItsSourceIsNamed) {
  WriteFile("one/a.txt", kWhales);
  WriteFile("two/b.txt", kMen);
  Click("optFolder");
  Type("txbFolder", PathOf("one"));
  main->Work().CompareWith(ChangedBy::User, ComparedWith{PathOf("two")});
  Count();
  EXPECT_EQ(TabText(0), "one - two");
  Click("optOnClipboard");
  clipboard.Content = kWhales;
  Count();
  EXPECT_EQ(TabText(1), "Clipboard - two");
  main->OpenPaths({ToQt(PathOf("one/a.txt")), ToQt(PathOf("two/b.txt"))});
  Count();
  EXPECT_EQ(TabText(2), "2 files - two");
}

TEST_F(Comparison, CountsTheTextOnTheClipboardAsSideA) {
  Click("optOnClipboard");
  clipboard.Content = kWhales;
  main->Work().CompareWith(ChangedBy::User, ComparedWith{WriteFile("b.txt", kMen)});
  Count();
  ASSERT_TRUE(main->Result().HasResult());
  EXPECT_EQ(SizeOf(Run().Facts, Side::A).Words.Read(), 12U);
  EXPECT_EQ(SizeOf(Run().Facts, Side::B).Words.Read(), 13U);
  EXPECT_EQ(Run().KeptText, kWhales);
  EXPECT_THAT(TextOf("lblHeadLine"), HasSubstr("A: Clipboard, 1 file, 12 words"));
}

TEST_F(Comparison, RefusesAnEmptyClipboard) {
  Click("optOnClipboard");
  main->Work().CompareWith(ChangedBy::User, ComparedWith{WriteFile("b.txt", kMen)});
  Count();
  EXPECT_FALSE(main->Result().HasResult());
  EXPECT_EQ(WindowTest::Shown().size(), 1U);
}

TEST_F(Comparison, RefusesASideWithoutAWord) {
  CountCompared(kWhales, "...\n");
  EXPECT_FALSE(main->Result().HasResult());
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("Nothing to compare | ")));
}

struct LeastCase {
  int Chosen;
  bool Drafts;
  int Counted;
};

TEST_F(Comparison, AsksForThreeOccurrencesUnlessTheUserSaysHowMany) {
  const LeastCase cases[] = {{2, false, 3}, {4, false, 4}, {1, false, 1}, {2, true, 2}, {4, true, 4}};
  messages.WillAnswer(questions::kMinimumFrequency, Answer::No);
  for (const LeastCase& least : cases) {
    main->Work().Change(ChangedBy::User, [&](Settings& settings) { settings.MinFrequency = least.Chosen; });
    CountCompared(kWhales, kMen, {.Drafts = least.Drafts});
    EXPECT_EQ(Run().Facts.Options.MinFrequency, least.Counted) << least.Chosen << least.Drafts;
    EXPECT_EQ(main->Work().Current().MinFrequency, least.Chosen) << "what was chosen stays";
  }
}

TEST_F(Comparison, AsksForThreeOccurrencesWhereAMinimumOfOneWasRaised) {
  main->Work().Change(ChangedBy::User, [](Settings& settings) { settings.MinFrequency = 1; });
  messages.WillAnswer(questions::kMinimumFrequency, Answer::Yes);
  CountCompared(kWhales, kMen);
  EXPECT_EQ(Run().Facts.Options.MinFrequency, 3);
  EXPECT_EQ(main->Work().Current().MinFrequency, 2);
}

TEST_F(Comparison, CountsSingleWordsOfBothSidesToo) {
  Type("txbFile_0", WriteFile("a.txt", kWhales));
  main->Work().CompareWith(ChangedBy::User, ComparedWith{WriteFile("b.txt", kMen)});
  Do("Count single words");
  EXPECT_EQ(TabText(0), "a.txt - b.txt: words");
  EXPECT_TRUE(Run().Facts.SecondSide.has_value());
}

TEST_F(Comparison, WritesNoOutputFile) {
  Type("txbFile_1", PathOf("out.txt"));
  CountCompared(kWhales, kMen);
  EXPECT_FALSE(files->FileExists(PathFromText(PathOf("out.txt"))));
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(Output(), HasSubstr("\nthe white whale swam\n"));
  EXPECT_FALSE(files->FileExists(PathFromText(PathOf("out.txt"))));
  EXPECT_EQ(NoteOf("NotWritten"), "");
  Do("Save list as...");
  EXPECT_TRUE(main->findChild<frmExport*>()->isVisible()) << "its table is what can be written";
}

TEST_F(Comparison, SaysInTheReportThatItCountsBothSidesTogether) {
  CountCompared(kWhales, kMen);
  EXPECT_EQ(NoteOf("Source"), "Phrases of a.txt, compared with b.txt");
  EXPECT_EQ(NoteOf("BothSides"), "Frequencies in this list are those of both sides together.");
  EXPECT_THAT(Output(), HasSubstr("4"));
  main->Panels().Frame->ShowView(RunView::Table);
  EXPECT_EQ(NoteOf("BothSides"), "");
}

TEST_F(Comparison, SaysInEveryViewThatAFileIsOnBothSides) {
  Type("txbFile_0", WriteFile("a.txt", kWhales));
  main->Work().CompareWith(ChangedBy::User, ComparedWith{PathOf("a.txt")});
  Count();
  for (const RunView view : {RunView::Table, RunView::Report, RunView::Pictures}) {
    main->Panels().Frame->ShowView(view);
    EXPECT_EQ(NoteOf("SharedFiles"), "1 file is on both sides of the comparison.");
  }
}

TEST_F(Comparison, IsOfAnotherSourceThanACountOfOneSide) {
  CountCompared(kWhales, kMen);
  EXPECT_EQ(NoteOf("OtherSource"), "");
  main->Work().CompareWith(ChangedBy::User, ComparedWith{PathOf("a.txt")});
  EXPECT_EQ(NoteOf("OtherSource"), "Another source is chosen now.");
  main->Work().CompareWith(ChangedBy::User, std::nullopt);
  EXPECT_EQ(NoteOf("OtherSource"), "Another source is chosen now.");
  EXPECT_EQ(NoteOf("OtherRules"), "") << "it has a minimum of its own";
}

TEST_F(Comparison, IsThereAgainWhenItWasKept) {
  CountCompared(kWhales, kMen, {ComparisonBasis::Net, 1, true});
  const std::string path = PathOf("kept.korvrun");
  dialogs.WillChoose(path);
  Do("Keep run...");
  dialogs.WillChoose(path);
  Do("Open kept run...");
  ASSERT_EQ(Tabs().count(), 2);
  EXPECT_THAT(TabText(1), testing::StartsWith("a.txt - b.txt, "));
  EXPECT_EQ(Run().Comparison, (ComparisonChoice{ComparisonBasis::Net, 1, true}));
  EXPECT_EQ(SizeOf(Run().Facts, Side::B).Words.Read(), 13U);
  Tabs().SettingsWanted(1);
  EXPECT_EQ(TextOf("txbCompared"), PathOf("b.txt"));
}

class ComparedRuns : public Comparison {
 protected:
  void SetUp() override {
    Comparison::SetUp();
    CountText("a.txt", kWhales);
    CountText("b.txt", kMen);
    WindowTest::Shown();
  }
  void CountText(const std::string& name, const std::string& text) {
    Type("txbFile_0", WriteFile(name, text));
    Count();
  }
  /// The runs that the menu offers.
  QList<QAction*> Offered() const {
    FileMenu();
    return main->findChild<QMenu*>(QStringLiteral("mnuCompareRun"))->actions();
  }
  void CompareWithFirst() const {
    const QList<QAction*> offered = Offered();
    ASSERT_FALSE(offered.isEmpty());
    offered.front()->trigger();
    UntilIdle();
  }
};

TEST_F(ComparedRuns, AreCountedTogetherUnderTheRulesOfTheOneInFront) {
  Tabs().setCurrentIndex(0);
  Choose("cboPhraseLength_0", 1);
  CountText("c.txt", kWhales);
  Choose("cboPhraseLength_0", 2);
  const QList<QAction*> offered = Offered();
  ASSERT_EQ(offered.size(), 2);
  EXPECT_EQ(offered[0]->text().toStdString(), "a.txt");
  EXPECT_EQ(offered[1]->text().toStdString(), "b.txt");
  offered[1]->trigger();
  UntilIdle();
  EXPECT_EQ(TabText(3), "c.txt - b.txt *");
  EXPECT_EQ(Run().Facts.Options.MinWords, Result().Request.Options.MinWords);
  EXPECT_EQ(Run().Facts.Options.MinWords, main->Work().Current().MinWords - 1);
  EXPECT_EQ(SizeOf(Run().Facts, Side::B).Words.Read(), 13U);
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(ComparedRuns, AreOfferedInTheMenuOfATabToo) {
  const std::vector<NamedRun> runs = Tabs().Comparable(0);
  ASSERT_EQ(runs.size(), 1U);
  EXPECT_EQ(runs[0].Name.toStdString(), "b.txt");
  QContextMenuEvent wanted(QContextMenuEvent::Mouse, Tabs().tabRect(0).center(), QPoint(0, 0));
  QApplication::sendEvent(&Tabs(), &wanted);
  auto* const menu = Tabs().findChild<QMenu*>(QStringLiteral("mnuCompareTab"));
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->actions().size(), 1);
  menu->actions().front()->trigger();
  qobject_cast<QWidget*>(menu->parent())->close();
  EXPECT_EQ(TabText(2), "a.txt - b.txt");
}

TEST_F(ComparedRuns, AreNoComparisonsThemselves) {
  CompareWithFirst();
  ASSERT_EQ(Tabs().count(), 3);
  EXPECT_THAT(Offered(), IsEmpty()) << "a comparison is in front";
  EXPECT_FALSE(main->findChild<QMenu*>(QStringLiteral("mnuCompareRun"))->isEnabled());
  EXPECT_EQ(Tabs().Comparable(0).size(), 1U);
}

TEST_F(ComparedRuns, AreComparedAsTheyAreNowOnlyIfTheUserWantsThat) {
  WriteFile("a.txt", std::string(kWhales) + kWhales);
  messages.WillAnswer(questions::kCompareChanged, Answer::No);
  CompareWithFirst();
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Compare runs | 1 file has changed since it was counted.\nCompare as it is now?"));
  EXPECT_EQ(Tabs().count(), 2);
  EXPECT_EQ(TextOf("lblHeadLine"), "b.txt: 13 words (12 taken), 2 different phrases, 0s");
  messages.WillAnswer(questions::kCompareChanged, Answer::Yes);
  CompareWithFirst();
  ASSERT_EQ(Tabs().count(), 3);
  EXPECT_EQ(SizeOf(Run().Facts, Side::B).Words.Read(), 24U);
}

TEST_F(ComparedRuns, AreRefusedWhereAFileIsGone) {
  ASSERT_FALSE(files->Remove(PathFromText(PathOf("a.txt"))));
  CompareWithFirst();
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Compare runs | 1 file that was counted is not there any more."));
  EXPECT_EQ(Tabs().count(), 2);
}

TEST_F(ComparedRuns, HaveTheTextThatWasOnTheClipboard) {
  Click("optOnClipboard");
  clipboard.Content = "The old man wept. The old man wept.\n";
  Count();
  clipboard.Content = "other";
  CompareWithFirst();
  EXPECT_EQ(TabText(3), "Clipboard - a.txt");
  EXPECT_EQ(SizeOf(Run().Facts, Side::A).Words.Read(), 8U);
  Tabs().setCurrentIndex(0);
  UntilIdle();
  Offered().back()->trigger();
  UntilIdle();
  EXPECT_EQ(TabText(4), "a.txt - Clipboard");
  EXPECT_EQ(SizeOf(Run().Facts, Side::B).Words.Read(), 8U);
}

TEST_F(ComparedRuns, CannotBothBeOfTheClipboard) {
  Click("optOnClipboard");
  clipboard.Content = kWhales;
  Count();
  clipboard.Content = kMen;
  Count();
  Offered().back()->trigger();
  UntilIdle();
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(HasSubstr("Two texts of the clipboard cannot be compared. Save one as a file.")));
  EXPECT_EQ(Tabs().count(), 4);
}

TEST_F(ComparedRuns, LeaveTheChoicesOfTheWindowAlone) {
  CompareWithFirst();
  EXPECT_EQ(TextOf("txbFile_0"), PathOf("b.txt"));
  EXPECT_FALSE(Shown("fraCompare"));
  EXPECT_EQ(main->Work().Compared(), std::nullopt);
  Tabs().SettingsWanted(2);
  EXPECT_TRUE(Shown("fraCompare"));
  EXPECT_EQ(TextOf("txbCompared"), PathOf("a.txt"));
}

}  // namespace
}  // namespace korv
