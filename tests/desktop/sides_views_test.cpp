// What is shown of a run that compares: the contexts on both sides.

#include <QAction>
#include <QLabel>
#include <QLineEdit>

#include "desktop/results/contexts/contexts_of_side.h"
#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/contexts/text_view.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/run_tabs.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/compared_run.h"
#include "tests/desktop/geometry.h"
#include "tests/desktop/view_test.h"
#include "tests/desktop/window_test.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SidesViews : public ViewTest {
 protected:
  SidesViews() : desktop_(around.On(world.Files, world.Messages, world.Clock)) {
    world.UseLengths(2, 2, 1);
    run = CompareIn(world, {Lines({{"old cheese", 2}}), Lines({{"old cheese", 1}, {"red wine", 1}})},
                    {Lines({{"old cheese", 1}, {"white wine", 2}})});
    pane = std::make_unique<ContextsPane>(desktop_, nullptr);
    pane->resize(1200, 400);
    pane->show();
    pane->Show(run);
  }
  void ShowPhrase(const char* phrase) {
    pane->txbContextPhrase->setText(QLatin1String(phrase));
    QTest::keyClick(pane->txbContextPhrase, Qt::Key_Return);
    UntilIdle(*pane);
  }
  static std::vector<std::string> Places(const ContextsOfSide& list) {
    const QAbstractItemModel& model = *list.tblContexts->model();
    std::vector<std::string> places;
    for (int row = 0; row < model.rowCount(); ++row)
      places.push_back(FromQt(model.index(row, 3).data().toString()));
    return places;
  }
  std::shared_ptr<const CountedRun> run;
  Desktop desktop_;
  std::unique_ptr<ContextsPane> pane;
};

TEST_F(SidesViews, ListTheContextsOfBothSidesSideBySide) {
  ShowPhrase("old cheese");
  EXPECT_TRUE(pane->OfA->isVisible());
  EXPECT_TRUE(pane->OfB->isVisible());
  EXPECT_LT(pane->OfA->geometry().right(), pane->OfB->geometry().left());
  EXPECT_THAT(Places(*pane->OfA), ElementsAre(Native("a/1.txt:1"), Native("a/1.txt:2"), Native("a/2.txt:1")));
  EXPECT_THAT(Places(*pane->OfB), ElementsAre(Native("b/1.txt:1")));
  EXPECT_EQ(FromQt(pane->OfA->lblSideCount->text()), "A: 3 occurrences in 2 files");
  EXPECT_EQ(FromQt(pane->OfB->lblSideCount->text()), "B: 1 occurrence in 1 file");
  EXPECT_EQ(FromQt(pane->lblContextCount->text()), "");
  ShowPhrase("white wine");
  EXPECT_THAT(Places(*pane->OfA), IsEmpty());
  EXPECT_THAT(Places(*pane->OfB), ElementsAre(Native("b/1.txt:2"), Native("b/1.txt:3")));
}

TEST_F(SidesViews, GoOnInTheListThatWasUsedLast) {
  ShowPhrase("white wine");
  auto* next = pane->findChild<QAction*>(QStringLiteral("mnuContextNext"));
  pane->OfB->tblContexts->Focused();
  next->trigger();
  EXPECT_EQ(pane->OfB->tblContexts->currentIndex().row(), 1);
  ShowPhrase("old cheese");
  pane->OfA->tblContexts->Focused();
  next->trigger();
  EXPECT_EQ(pane->OfA->tblContexts->currentIndex().row(), 1);
}

TEST_F(SidesViews, OpenTheTextOfTheirSide) {
  ShowPhrase("white wine");
  pane->OfB->ShowText();
  UntilIdle(*pane);
  ASSERT_NE(pane->OfB->frmText, nullptr);
  EXPECT_EQ(pane->OfA->frmText, nullptr);
  EXPECT_EQ(FromQt(pane->OfB->frmText->lblTextPlace->text()),
            Native("b/1.txt, line 2, column 1 \u2013 occurrence 1 of 2"));
}

TEST_F(SidesViews, HaveOneListForARunThatComparesNothing) {
  ShowPhrase("old cheese");
  world.Request.Compared.clear();
  world.Request.Paths.clear();
  world.UseFolder("/a");
  pane->Show(Counted());
  UntilIdle(*pane);
  EXPECT_FALSE(pane->OfB->isVisible());
  EXPECT_FALSE(pane->OfA->lblSideCount->isVisible());
  EXPECT_EQ(FromQt(pane->lblContextCount->text()), "3 occurrences in 2 files");
  EXPECT_THAT(Places(*pane->OfB), IsEmpty());
}

TEST_F(SidesViews, StandWellInEverySize) {
  ShowPhrase("old cheese");
  EXPECT_THAT(GeometryFaultsInEverySize(*pane), IsEmpty());
}

TEST_F(SidesViews, NameBothLists) {
  EXPECT_EQ(pane->OfA->tblContexts->accessibleName(), "Contexts in A");
  EXPECT_EQ(pane->OfB->tblContexts->accessibleName(), "Contexts in B");
  EXPECT_THAT(pane->TabOrder(), testing::Contains(pane->OfB->tblContexts));
}

class SidesInTheWindow : public WindowTest {
 protected:
  void UntilShown() const {
    UntilIdle();
    while (!main->Panels().Frame->Table->Idle())
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  }
};

TEST_F(SidesInTheWindow, AreComparedAsTheUserChoseForTheirRun) {
  View = RunView::Table;
  ASSERT_TRUE(Start());
  CountCompared("The white whale swam. The white whale swam.", "The white whale swam. The old man wept.");
  UntilShown();
  EXPECT_TRUE(Find<QWidget>("fraSides")->isVisible());
  Find<QComboBox>("cboBasis")->setCurrentIndex(static_cast<int>(ComparisonBasis::Net));
  UntilShown();
  CountCompared("The white whale swam. The white whale swam.", "The white whale swam. The white whale swam.");
  UntilShown();
  EXPECT_EQ(ItemOf("cboBasis"), static_cast<int>(ComparisonBasis::Words));
  Find<RunTabs>("tabRuns")->setCurrentIndex(0);
  UntilShown();
  EXPECT_EQ(ItemOf("cboBasis"), static_cast<int>(ComparisonBasis::Net));
}

}  // namespace
}  // namespace korv
