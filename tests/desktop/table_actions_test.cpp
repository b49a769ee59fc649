// What the user does with a phrase of the table, and the chips that undo it.

#include <QToolButton>

#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/contexts/why_panel.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/results/run_tabs.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kText =
    "The white whale swam. The white whale swam. The old man wept. The old man wept. The old man wept.\n";

class TableActionsTest : public WindowTest {
 protected:
  void SetUp() override {
    View = RunView::Table;
    ASSERT_TRUE(Start());
    UseFile(kText);
    Count();
    UntilShown();
  }

  PhraseTablePanel& Table() const { return *main->Panels().Frame->Table; }
  void UntilShown() const {
    UntilIdle();
    while (!Table().Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  }
  int Rows() const {
    UntilShown();
    return Table().tblPhrases->model()->rowCount();
  }
  /// The phrase of a row.
  PhraseIndex At(int row) const {
    Table().tblPhrases->GoTo(row);
    return Table().CurrentPhrase();
  }
  std::vector<std::string> Chips() const {
    std::vector<std::string> chips;
    for (int i = 1;; ++i) {
      const auto* chip = main->findChild<QToolButton*>(QStringLiteral("cmdChip_%1").arg(i));
      if (chip == nullptr) return chips;
      chips.push_back(chip->accessibleName().toStdString());
    }
  }
};

TEST_F(TableActionsTest, RestrictNothingAtFirst) {
  EXPECT_THAT(Chips(), IsEmpty());
}

TEST_F(TableActionsTest, IgnoreAWordFromTheNextCountOn) {
  Table().Actions.IgnoreWord("whale");
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "whale");
  EXPECT_THAT(Chips(), ElementsAre("Ignored: whale"));
  EXPECT_THAT(TipOf("cmdChip_1"), HasSubstr("from the next count on"));
  EXPECT_EQ(TextOf("lblNote_OtherRules"),
            "Counted under other rules than those chosen now: words to ignore.");
  Choose("cboPhraseLength_0", 2);
  Click("optExcludePhrasesWithWordToIgnore");
  Click("cmdNote_OtherRules_CountAgain");
  EXPECT_EQ(Rows(), 1);
  EXPECT_THAT(Chips(), ElementsAre("Ignored: whale"));
  Click("cmdChip_1");
  EXPECT_THAT(Chips(), IsEmpty());
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "");
}

TEST_F(TableActionsTest, MakeWordsToIgnoreDoSomethingWhereTheyAreAllowed) {
  Click("optAllowPhrasesAllWordsToIgnore");
  Type("txbWordsToIgnoreOrCount_0", "sea");
  Table().Actions.IgnoreWord("whale");
  EXPECT_TRUE(Checked("optExcludePhrasesWithWordToIgnore"));
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "sea whale");
  EXPECT_THAT(Chips(), ElementsAre("Ignored: whale"));
}

TEST_F(TableActionsTest, CountOnlyPhrasesWithOne) {
  Table().Actions.CountOnlyWith(At(0));
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_1"), "the old man wept");
  EXPECT_THAT(Chips(), ElementsAre("Only with: the old man wept"));
  Click("cmdNote_OtherRules_CountAgain");
  EXPECT_EQ(Rows(), 1);
  EXPECT_THAT(TipOf("cmdChip_1"), testing::Not(HasSubstr("next count")));
  Click("cmdChip_1");
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_1"), "");
  Click("cmdNote_OtherRules_CountAgain");
  EXPECT_EQ(Rows(), 2);
}

TEST_F(TableActionsTest, LeavePhrasesOutOfTheTableOfTheirRun) {
  Table().Actions.LeaveOut({At(0)});
  EXPECT_EQ(Rows(), 1);
  EXPECT_THAT(Chips(), ElementsAre("1 phrase left out"));
  Count();
  EXPECT_EQ(Rows(), 2);
  EXPECT_THAT(Chips(), IsEmpty());
  Find<RunTabs>("tabRuns")->setCurrentIndex(0);
  EXPECT_EQ(Rows(), 1);
  Click("cmdChip_1");
  EXPECT_EQ(Rows(), 2);
  EXPECT_THAT(Chips(), IsEmpty());
}

TEST_F(TableActionsTest, ShowTheFilterOfTheReport) {
  Type("txbFilterWords", "whale");
  Click("cmdFilterResults");
  EXPECT_THAT(Chips(), ElementsAre("Report filtered: whale"));
  Click("cmdChip_1");
  EXPECT_EQ(TextOf("txbFilterWords"), "");
  EXPECT_THAT(Chips(), IsEmpty());
}

TEST_F(TableActionsTest, AnswerWhyAPhraseIsNotListedOrThatItIs) {
  Table().Actions.ShowWhy(At(0));
  const WhyPanel& why = *main->Panels().Frame->Contexts->Why;
  while (!why.Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  EXPECT_EQ(TextOf("txbContextPhrase"), "the old man wept");
  std::string answer;
  for (const QLabel* label : why.Notes->findChildren<QLabel*>()) answer += label->text().toStdString();
  EXPECT_THAT(answer, HasSubstr("is listed"));
}

TEST_F(TableActionsTest, CountAgainWithShortWords) {
  Check("chkIgnoreShortWords");
  Table().CountWithShortWords();
  UntilShown();
  EXPECT_FALSE(Checked("chkIgnoreShortWords"));
  EXPECT_EQ(Find<RunTabs>("tabRuns")->count(), 2);
}

TEST_F(TableActionsTest, PutWhatHasNoRoomIntoAMenu) {
  for (const char* word : {"white", "whale", "swam", "old", "man"}) Table().Actions.IgnoreWord(word);
  EXPECT_THAT(Chips(), ElementsAre("Ignored: white", "Ignored: whale", "Ignored: swam"));
  EXPECT_EQ(Find<QToolButton>("cmdMoreChips")->text().toStdString(), "2 more");
}

}  // namespace
}  // namespace korv
