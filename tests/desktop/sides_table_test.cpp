// The table of a run that compares two sides.

#include "desktop/results/table/comparison_bar.h"

#include <QTabBar>

#include "desktop/results/table/table_columns.h"
#include "report/key_phrases.h"
#include "tests/desktop/compared_run.h"
#include "tests/desktop/geometry.h"
#include "tests/desktop/table_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SidesTable : public TableTest {
 protected:
  /// Wine on both sides, red in A and white in B; one phrase of each side is rare.
  static std::shared_ptr<const CountedRun> Wines(const ComparisonChoice& how) {
    RunWorld world;
    world.UseLengths(2, 2, 1);
    return CompareIn(
        world, {Lines({{"red wine", 30}, {"old cheese", 25}, {"dry bread", 2}}), Lines({{"old cheese", 25}})},
        {Lines({{"white wine", 30}, {"old cheese", 25}, {"ripe fig", 1}}), Lines({{"old cheese", 25}})}, how);
  }
  void ShowWines(const ComparisonChoice& how = {}) {
    if (panel == nullptr) Open();
    shown = Wines(how);
    panel->Show(shown);
    UntilIdle();
  }
  std::vector<std::string> Tabs() const {
    std::vector<std::string> tabs;
    const auto* bar = Find<QTabBar>("tabSides");
    for (int k = 0; k < bar->count(); ++k) tabs.push_back(bar->tabText(k).toStdString());
    return tabs;
  }
  void GoToTab(int index) const {
    Find<QTabBar>("tabSides")->setCurrentIndex(index);
    UntilIdle();
  }
};

TEST_F(SidesTable, HasNoTabsForARunOfOneSide) {
  Show(RunOf({{"old ship", 3}}));
  EXPECT_FALSE(Find<QWidget>("fraSides")->isVisible());
  EXPECT_EQ(Section("Log ratio") >= 0 && !Grid().isColumnHidden(Section("Log ratio")), false);
  emit Find<QToolButton>("cmdColumns")->menu()->aboutToShow();
  EXPECT_EQ(panel->findChild<QAction*>(QStringLiteral("mnuColumn_log_ratio")), nullptr);
}

TEST_F(SidesTable, SortsThePhrasesOutIntoTabsWithTheirNumbers) {
  ShowWines();
  EXPECT_TRUE(Find<QWidget>("fraSides")->isVisible());
  EXPECT_THAT(Tabs(), ElementsAre("Typical of A (1)", "Typical of B (1)", "Shared (1)"));
  EXPECT_THAT(Phrases(), ElementsAre("red wine"));
  GoToTab(1);
  EXPECT_THAT(Phrases(), ElementsAre("white wine"));
  GoToTab(2);
  EXPECT_THAT(Phrases(), ElementsAre("old cheese"));
  EXPECT_EQ(TextOf("lblPhraseCount"), "1 of 5 phrases, 100 occurrences");
}

TEST_F(SidesTable, HasTheUsualColumnsOfComparisons) {
  ShowWines();
  EXPECT_THAT(Headings(), ElementsAre("Phrase", "A", "B", "Per million A", "Per million B", "Log ratio", "G2",
                                      "BIC", "Files A", "Files B", "Dispersion A"));
  EXPECT_EQ(TextAt(0, "A"), "30");
  EXPECT_EQ(TextAt(0, "B"), "0");
  EXPECT_EQ(TextAt(0, "Files A"), "1");
}

TEST_F(SidesTable, PutsTypicalPhrasesToTheTestOfTheMenu) {
  ShowWines();
  Choose("cboTest", "No test");
  EXPECT_THAT(Tabs(), ElementsAre("Typical of A (2)", "Typical of B (3)", "Shared (1)"));
  EXPECT_THAT(Phrases(), ElementsAre("red wine", "dry bread"));
  Choose("cboTest", "p at most 0.01 % (Sidak)");
  EXPECT_THAT(Tabs(), ElementsAre("Typical of A (1)", "Typical of B (1)", "Shared (1)"));
  EXPECT_THAT(Phrases(), ElementsAre("red wine"));
}

TEST_F(SidesTable, OrdersEachTabByItsLargestDifference) {
  ShowWines();
  Choose("cboTest", "No test");
  GoToTab(1);
  EXPECT_THAT(Phrases(), ElementsAre("white wine", "ripe fig", "old cheese"));
  ClickHeading("Phrase");
  EXPECT_THAT(Phrases(), ElementsAre("old cheese", "ripe fig", "white wine"));
  GoToTab(0);
  EXPECT_THAT(Phrases(), ElementsAre("red wine", "dry bread"));
}

TEST_F(SidesTable, FiltersWithinTheTab) {
  ShowWines();
  Type("txbMatch", "wine");
  EXPECT_THAT(Phrases(), ElementsAre("red wine"));
  GoToTab(1);
  EXPECT_THAT(Phrases(), ElementsAre("white wine"));
  EXPECT_THAT(Tabs(), ElementsAre("Typical of A (1)", "Typical of B (1)", "Shared (1)"));
  GoToTab(2);
  EXPECT_THAT(Phrases(), IsEmpty());
  EXPECT_EQ(TextOf("lblEmptyTable"), "No phrase passes the filter.");
  Click("cmdClearMatch");
  EXPECT_THAT(Phrases(), ElementsAre("old cheese"));
}

TEST_F(SidesTable, KeepsTheLastGoodFilterInAnotherTab) {
  ShowWines();
  Type("txbMatch", "wine");
  Choose("cboMatchMode", "Regular expression");
  Type("txbMatch", "wine(");
  EXPECT_THAT(Phrases(), ElementsAre("red wine"));
  GoToTab(1);
  EXPECT_THAT(Phrases(), ElementsAre("white wine"));
  EXPECT_TRUE(Find<QLabel>("lblMatchFault")->isVisible());
}

TEST_F(SidesTable, ComparesFilesInstead) {
  ShowWines();
  Choose("cboBasis", "by files");
  // One file of two has it, and none of two: that is no evidence.
  EXPECT_THAT(Tabs(), ElementsAre("Typical of A (0)", "Typical of B (0)", "Shared (0)"));
  EXPECT_EQ(TextOf("lblEmptyTable"), "The comparison found no such phrase.");
  EXPECT_FALSE(Find<QWidget>("cmdClearMatch")->isVisible());
  Choose("cboTest", "No test");
  EXPECT_THAT(Phrases(), testing::UnorderedElementsAre("red wine", "dry bread"));
  EXPECT_EQ(TextAt(0, "Log ratio"), "1.00 (A)");
  Choose("cboBasis", "by words");
  EXPECT_THAT(Phrases(), ElementsAre("red wine", "dry bread"));
  EXPECT_EQ(TextAt(0, "A"), "30");
}

TEST_F(SidesTable, MarksWhatOnlyOneSideHas) {
  ShowWines();
  const int section = Section("Log ratio");
  const QModelIndex cell = Model().index(0, section);
  EXPECT_THAT(cell.data().toString().toStdString(), testing::EndsWith(" (A)"));
  EXPECT_EQ(cell.data(Qt::ToolTipRole).toString(), "only in A");
  EXPECT_THAT(cell.data(Qt::AccessibleTextRole).toString().toStdString(), testing::EndsWith(", only in A"));
  GoToTab(1);
  EXPECT_EQ(Model().index(0, section).data(Qt::ToolTipRole).toString(), "only in B");
  GoToTab(2);
  EXPECT_EQ(TextAt(0, "Log ratio").find('('), std::string::npos);
  EXPECT_EQ(Model().index(0, section).data(Qt::ToolTipRole).toString(), "");
}

TEST_F(SidesTable, MarksWhatOnlyOneSideHasOnItsOwn) {
  RunWorld world;
  world.UseLengths(2, 3, 1);
  Open();
  shown = CompareIn(world, {Lines({{"old cheese", 9}})}, {Lines({{"old cheese cake", 9}, {"a fig", 1}})},
                    {.Basis = ComparisonBasis::Net});
  panel->Show(shown);
  UntilIdle();
  EXPECT_EQ(Find<QComboBox>("cboBasis")->currentText(), "by occurrences in no longer phrase");
  EXPECT_THAT(Phrases(), ElementsAre("old cheese"));
  EXPECT_EQ(Model().index(0, Section("Log ratio")).data(Qt::ToolTipRole).toString(), "on its own only in A");
}

TEST_F(SidesTable, OfDraftsTellsWhatIsNewGoneMoreAndLess) {
  ShowWines({.Drafts = true});
  EXPECT_THAT(Tabs(), ElementsAre("New (2)", "Gone (2)", "More (0)", "Less (1)"));
  EXPECT_THAT(Headings(),
              ElementsAre("Phrase", "Change", "A", "B", "Per million A", "Per million B", "Log ratio"));
  EXPECT_THAT(Phrases(), ElementsAre("red wine", "dry bread"));
  EXPECT_FALSE(Find<QWidget>("cboTest")->isVisible());
  EXPECT_TRUE(Find<QWidget>("cboBasis")->isVisible());
}

TEST_F(SidesTable, KeepsItsColumnsApartFromThoseOfOtherRuns) {
  ShowWines();
  ChooseFrom("cmdColumns", "mnuColumn_g2");
  ChooseFrom("cmdColumns", "mnuColumn_words");
  const std::vector<std::string> chosen = Headings();
  EXPECT_THAT(chosen, testing::Not(testing::Contains("G2")));
  Show(RunOf({{"old ship", 3}}));
  EXPECT_THAT(Headings(),
              ElementsAre("Rank", "Phrase", "Freq", "Per million", "Words", "Dispersion", "Alone", "First"));
  Open();
  ShowWines();
  EXPECT_EQ(Headings(), chosen);
  ChooseFrom("cmdColumns", "mnuUsualColumns");
  EXPECT_THAT(Headings(), testing::Contains("G2"));
}

TEST_F(SidesTable, KeepsTheOrderOfOtherRuns) {
  Show(RunOf({{"white sail", 3}, {"old ship", 1}}));
  ClickHeading("Phrase");
  EXPECT_THAT(Phrases(), ElementsAre("old ship", "white sail"));
  ShowWines();
  EXPECT_THAT(Phrases(), ElementsAre("red wine"));
  Show(RunOf({{"white sail", 3}, {"old ship", 1}}));
  EXPECT_THAT(Phrases(), ElementsAre("old ship", "white sail"));
}

TEST_F(SidesTable, TellsInTheHeadingsHowManyWordsTheSidesHave) {
  ShowWines();
  const QString tip = Model().headerData(Section("G2"), Qt::Horizontal, Qt::ToolTipRole).toString();
  EXPECT_THAT(tip.toStdString(), testing::HasSubstr("A has 164 running words, B 162."));
}

TEST_F(SidesTable, IsReachedByKeyboardAndNamed) {
  ShowWines();
  for (QWidget* control : panel->Sides->TabOrder()) {
    EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
    EXPECT_NE(control->focusPolicy() & Qt::TabFocus, 0) << control->objectName().toStdString();
  }
  auto* tabs = Find<QTabBar>("tabSides");
  tabs->setFocus();
  QTest::keyClick(tabs, Qt::Key_Right);
  UntilIdle();
  EXPECT_THAT(Phrases(), ElementsAre("white wine"));
}

TEST_F(SidesTable, StandsWellInEverySize) {
  const QFont plain = QApplication::font();
  for (const int percent : {100, 200}) {
    QFont font = plain;
    font.setPointSizeF(plain.pointSizeF() * percent / 100);
    QApplication::setFont(font);
    Open();
    ShowWines();
    EXPECT_THAT(GeometryFaultsInEverySize(*panel), IsEmpty()) << percent;
    ShowWines({.Drafts = true});
    EXPECT_THAT(GeometryFaultsInEverySize(*panel), IsEmpty()) << percent << " of drafts";
  }
  panel.reset();
  QApplication::setFont(plain);
}

}  // namespace
}  // namespace korv
